#pragma once

#include "platform/text/Text.h"

#include <optional>

/// The page, in UTF-8, that the XSLT stylesheet \p stylesheet makes of the XML file \p xml, both
/// given as their bytes in any encoding that platform/text/TextEncoding.h knows. The stylesheet's
/// parameter "note" is \p note, a text.
///
/// Neither of the two is trusted: no other file and no network is read, nothing is written, and a
/// transformation that goes too deep or takes too many steps is broken off. Nothing when that
/// happens or when one of them isn't well formed.
std::optional<std::string> TransformXml(std::string_view xml, std::string_view stylesheet,
                                        const CString& note = {});
