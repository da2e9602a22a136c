#pragma once

#include "platform/Text.h"

#include <optional>

/// The complete JPEG file that an SVG photograph carries: the embedded picture of the group
/// "dcp_org_img", else the first embedded JPEG. Nothing when there is none or the file can't be
/// read. Nothing outside the file is ever fetched.
std::optional<std::string> ReadMainImageOfSvg(const CString& path);
