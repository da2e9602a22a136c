// The main picture of an SVG photograph.

#include "Fuzz.h"

#include "platform/pictures/SvgPhoto.h"

void Try(std::string_view input)
{
    const CString path = Folder().Write("photo.svg", input);
    const std::optional<SvgContent> content = ReadSvgContent(path);
    const std::optional<std::string> bytes = ReadSvgFile(path);
    Require(content.has_value() == bytes.has_value(), "either it is an SVG file or not");
    Require(!bytes || *bytes == input, "its bytes are its own");
    Require(!content || ReadMainImageOfSvg(path) == content->mainImage, "it has one main picture");
}
