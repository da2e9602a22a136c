// An index file on its way to a browser: given its stylesheet and turned to a page.

#include "Fuzz.h"

#include "loading/IndexCopy.h"
#include "platform/files/MibFile.h"
#include "platform/xml/XslTransform.h"

namespace
{
constexpr const char* name = "INDEX.XSL";
constexpr std::size_t largestStylesheet = 1 << 20;
} // namespace

void Try(std::string_view input)
{
    static const std::optional<std::string> stylesheet =
        MibReadFile(TOVI_STYLESHEET, largestStylesheet);
    Require(stylesheet.has_value(), "there is a stylesheet");
    const std::string copy = WithStylesheet(std::string(input), name);
    Require(WithStylesheet(copy, name) == copy, "a copy already names its stylesheet");
    const std::optional<std::string> page = TransformXml(copy, *stylesheet);
    Require(!page || IsUtf8(*page), "a page is text");
    static_cast<void>(TransformXml("<a DTD_version=\"07\"><b>text</b></a>", input));
}
