#pragma once

#include "platform/text/Text.h"

#include <optional>

/// What an SVG file carries.
struct SvgContent
{
    /// The complete JPEG file of the photograph: the embedded picture of the group "dcp_org_img",
    /// else the first embedded JPEG.
    std::optional<std::string> mainImage;
    /// A picture in it is not embedded but lies somewhere else, where nothing is ever fetched.
    bool linksOutside = false;
};

/// The content of the SVG file \p path; nothing when it isn't well-formed XML with an svg root.
std::optional<SvgContent> ReadSvgContent(const CString& path);

/// The main image alone.
std::optional<std::string> ReadMainImageOfSvg(const CString& path);

/// The bytes of the SVG file \p path, as they stand; nothing as in ReadSvgContent.
std::optional<std::string> ReadSvgFile(const CString& path);
