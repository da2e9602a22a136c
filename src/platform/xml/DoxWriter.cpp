#include "platform/xml/DoxWriter.h"

#include "platform/xml/DoxTree.h"

#include <algorithm>

namespace
{
constexpr std::string_view blanks = " \t\r\n";

CString Reference(char character)
{
    return "&#" + std::to_string(static_cast<int>(character)) + ';';
}

void AppendCharacter(CString& out, std::string_view& text)
{
    const char32_t codePoint = TakeCodePoint(text);
    AppendUtf8(out, IsXmlCharacter(codePoint) ? codePoint : U'〓');
}

/// Appends \p text so that a parser gives back exactly the same.
void AppendText(CString& out, std::string_view text)
{
    // Parsers drop a text of nothing but blanks, and turn every line end into a line feed.
    if (!text.empty() && text.find_first_not_of(blanks) == std::string_view::npos) {
        out += Reference(text.front());
        text.remove_prefix(1);
    }
    while (!text.empty()) {
        const auto plainEnd = std::find_if(text.begin(), text.end(), [](char c) {
            const auto byte = static_cast<unsigned char>(c);
            return c == '&' || c == '<' || c == '>' || byte >= 0x80 || (byte < 0x20 && c != '\n');
        });
        out.append(text.begin(), plainEnd);
        text.remove_prefix(static_cast<std::size_t>(plainEnd - text.begin()));
        if (text.empty()) return;
        const char c = text.front();
        if (c == '&' || c == '<' || c == '>') {
            out += c == '&' ? "&amp;" : c == '<' ? "&lt;" : "&gt;";
            text.remove_prefix(1);
        } else if (c == '\r' || c == '\t') {
            out += Reference(c);
            text.remove_prefix(1);
        } else {
            AppendCharacter(out, text);
        }
    }
}

/// Writes elements; the end tags of those whose children are being written wait on the way up.
class ElementWriter
{
public:
    ElementWriter(CString& text, const CString& indent) : out(text), indentation(indent) {}

    void Write(const pugi::xml_node& root)
    {
        pugi::xml_node node = root;
        while (node) {
            Open(node);
            if (const pugi::xml_node child = ElementFrom(node.first_child())) {
                ++depth;
                node = child;
                continue;
            }
            Close(node, false);
            while (node != root && !ElementFrom(node.next_sibling())) {
                node = node.parent();
                --depth;
                Close(node, true);
            }
            node = node == root ? pugi::xml_node() : ElementFrom(node.next_sibling());
        }
    }

private:
    /// The start tag and the character data; those between children come together in front of them.
    void Open(const pugi::xml_node& node)
    {
        StartLine();
        out.append("<").append(node.name()).append(">");
        AppendText(out, node.value());
        for (const pugi::xml_node& part : node.children()) {
            if (part.type() != pugi::node_element) AppendText(out, part.value());
        }
    }

    void Close(const pugi::xml_node& node, bool onNewLine)
    {
        if (onNewLine) StartLine();
        out.append("</").append(node.name()).append(">");
    }

    void StartLine()
    {
        if (indentation.empty()) return;
        out += '\n';
        for (int level = 0; level < depth; ++level) out += indentation;
    }

    CString& out;
    const CString& indentation;
    int depth = 0;
};
} // namespace

bool IsXmlCharacter(char32_t codePoint)
{
    if (codePoint < 0x20) return codePoint == '\t' || codePoint == '\n' || codePoint == '\r';
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    return !surrogate && codePoint != 0xFFFE && codePoint != 0xFFFF && codePoint <= 0x10FFFF;
}

CString WriteXml(const pugi::xml_document& document, const CString& indentation)
{
    CString text;
    for (const pugi::xml_node& node : document) {
        if (node.type() == pugi::node_declaration) {
            text.append("<?xml version=\"").append(node.attribute("version").value());
            text.append("\" encoding=\"")
                .append(node.attribute("encoding").value())
                .append("\"?>\n");
        } else if (node.type() == pugi::node_doctype) {
            text.append("<!DOCTYPE ").append(node.value()).append(">");
            if (indentation.empty()) text += '\n';
        }
    }
    ElementWriter(text, indentation).Write(document.document_element());
    text += '\n';
    for (const pugi::xml_node& node : document) {
        if (node.type() != pugi::node_pi) continue;
        text.append("<?").append(node.name()).append(" ").append(node.value()).append("?>\n");
    }
    return text;
}
