#include "platform/pictures/SvgPhoto.h"

#include "platform/files/MibFile.h"

#include <QByteArray>

#include <pugixml.hpp>

#include <string_view>

namespace
{
constexpr std::size_t largestFile = std::size_t{128} << 20;
constexpr std::string_view jpegData = "data:image/jpeg;base64,";

std::string_view LocalName(const pugi::xml_node& node)
{
    const std::string_view name = node.name();
    return name.substr(name.rfind(':') + 1);
}

/// Where the picture of an image element is; empty for other elements.
std::string_view LinkOf(const pugi::xml_node& node)
{
    if (LocalName(node) != "image") return {};
    for (const char* name : {"xlink:href", "href"}) {
        if (const pugi::xml_attribute link = node.attribute(name)) return link.value();
    }
    return {};
}

std::string_view EmbeddedJpeg(const pugi::xml_node& image)
{
    const std::string_view link = LinkOf(image);
    return link.starts_with(jpegData) ? link.substr(jpegData.size()) : std::string_view();
}

std::string_view FirstEmbeddedJpeg(const pugi::xml_node& from)
{
    const pugi::xml_node image =
        from.find_node([](const pugi::xml_node& node) { return !EmbeddedJpeg(node).empty(); });
    return EmbeddedJpeg(image);
}

std::optional<std::string> MainImage(const pugi::xml_document& document)
{
    const pugi::xml_node original = document.find_node([](const pugi::xml_node& node) {
        return std::string_view(node.attribute("id").value()) == "dcp_org_img";
    });
    std::string_view encoded = FirstEmbeddedJpeg(original);
    if (encoded.empty()) encoded = FirstEmbeddedJpeg(document);
    if (encoded.empty()) return std::nullopt;
    return QByteArray::fromBase64(
               QByteArray::fromRawData(encoded.data(), static_cast<qsizetype>(encoded.size())))
        .toStdString();
}

bool LinksOutside(const pugi::xml_document& document)
{
    return !document
                .find_node([](const pugi::xml_node& node) {
                    const std::string_view link = LinkOf(node);
                    return !link.empty() && !link.starts_with("data:");
                })
                .empty();
}

bool IsSvg(const pugi::xml_parse_result& parsed, const pugi::xml_document& document)
{
    return parsed && LocalName(document.document_element()) == "svg";
}
} // namespace

std::optional<SvgContent> ReadSvgContent(const CString& path)
{
    std::optional<std::string> text = MibReadFile(path, largestFile);
    if (!text) return std::nullopt;
    pugi::xml_document document;
    // With its terminator: in its place the parser would take the last character for the end, and
    // any NUL in the text for that character.
    const pugi::xml_parse_result parsed =
        document.load_buffer_inplace(text->data(), text->size() + 1, pugi::parse_minimal);
    if (!IsSvg(parsed, document)) return std::nullopt;
    return SvgContent{MainImage(document), LinksOutside(document)};
}

std::optional<std::string> ReadMainImageOfSvg(const CString& path)
{
    std::optional<SvgContent> content = ReadSvgContent(path);
    return content ? std::move(content->mainImage) : std::nullopt;
}

std::optional<std::string> ReadSvgFile(const CString& path)
{
    std::optional<std::string> text = MibReadFile(path, largestFile);
    pugi::xml_document document;
    if (!text ||
        !IsSvg(document.load_buffer(text->data(), text->size(), pugi::parse_minimal), document)) {
        return std::nullopt;
    }
    return text;
}
