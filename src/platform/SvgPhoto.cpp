#include "platform/SvgPhoto.h"

#include "platform/MibFile.h"

#include <QByteArray>

#include <pugixml.hpp>

#include <string_view>

namespace
{
constexpr std::size_t largestFile = std::size_t{128} << 20;
constexpr std::string_view jpegData = "data:image/jpeg;base64,";

std::string_view EmbeddedJpeg(const pugi::xml_node& image)
{
    if (std::string_view(image.name()) != "image") return {};
    for (const char* name : {"xlink:href", "href"}) {
        const std::string_view link = image.attribute(name).value();
        if (link.starts_with(jpegData)) return link.substr(jpegData.size());
    }
    return {};
}

std::string_view FirstEmbeddedJpeg(const pugi::xml_node& from)
{
    const pugi::xml_node image =
        from.find_node([](const pugi::xml_node& node) { return !EmbeddedJpeg(node).empty(); });
    return EmbeddedJpeg(image);
}
} // namespace

std::optional<std::string> ReadMainImageOfSvg(const CString& path)
{
    std::optional<std::string> text = MibReadFile(path, largestFile);
    if (!text) return std::nullopt;
    pugi::xml_document document;
    if (!document.load_buffer_inplace(text->data(), text->size(), pugi::parse_minimal)) {
        return std::nullopt;
    }
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
