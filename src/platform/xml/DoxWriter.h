#pragma once

#include "platform/text/Text.h"

#include <pugixml.hpp>

/// True for the code points that XML 1.0 lets a document hold.
bool IsXmlCharacter(char32_t codePoint);

/// \p document as text in UTF-8: the declaration and the document type line as they are, then its
/// elements, one a line and indented by \p indentation a level when that isn't empty, and last the
/// processing instructions outside of them.
CString WriteXml(const pugi::xml_document& document, const CString& indentation);
