#include "sample/SampleXml.h"

namespace
{
void AppendEscaped(CString& target, std::string_view text)
{
    for (const char c : text) {
        switch (c) {
        case '&':
            target += "&amp;";
            break;
        case '<':
            target += "&lt;";
            break;
        case '>':
            target += "&gt;";
            break;
        default:
            target += c;
        }
    }
}
} // namespace

SampleXml::SampleXml(SampleLayout lines, CString lineEnd, int firstDepth)
    : layout(lines), lineBreak(std::move(lineEnd)), depth(firstDepth)
{}

void SampleXml::Open(std::string_view tag, std::string_view attributes)
{
    Indent();
    text.append("<").append(tag).append(attributes.empty() ? "" : " ").append(attributes) += '>';
    ++depth;
    EndLine();
}

void SampleXml::Close(std::string_view tag)
{
    --depth;
    Indent();
    text.append("</").append(tag) += '>';
    EndLine();
}

void SampleXml::Leaf(std::string_view tag, std::string_view value)
{
    Indent();
    text.append("<").append(tag) += '>';
    AppendEscaped(text, value);
    text.append("</").append(tag) += '>';
    EndLine();
}

void SampleXml::Raw(std::string_view xml)
{
    Indent();
    text += xml;
    EndLine();
}

void SampleXml::Indent()
{
    if (layout == SampleLayout::Indented) text.append(static_cast<std::size_t>(depth) * 2, ' ');
}

void SampleXml::EndLine()
{
    if (layout != SampleLayout::LinePerChild || depth < 2) text += lineBreak;
}
