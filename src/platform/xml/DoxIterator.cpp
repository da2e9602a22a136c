#include "platform/xml/DoxIterator.h"

#include "platform/xml/DoxTree.h"

#include <cstring>

namespace
{
pugi::xml_node NodeOf(void* node)
{
    return pugi::xml_node(static_cast<pugi::xml_node_struct*>(node));
}

bool MoveTo(void*& place, pugi::xml_node target)
{
    if (!target) return false;
    place = target.internal_object();
    return true;
}
} // namespace

DoxIterator::DoxIterator(DoxDocument* walked) : document(walked) {}

bool DoxIterator::Root()
{
    if (!document->tree) return false;
    node = document->tree->document.internal_object();
    return MoveTo(node, document->tree->document.document_element());
}

bool DoxIterator::Child()
{
    return MoveTo(node, ElementFrom(NodeOf(node).first_child()));
}

bool DoxIterator::ChildTail()
{
    pugi::xml_node last = NodeOf(node).last_child();
    while (last && last.type() != pugi::node_element) last = last.previous_sibling();
    return MoveTo(node, last);
}

bool DoxIterator::Parent()
{
    const pugi::xml_node parent = NodeOf(node).parent();
    return parent.type() == pugi::node_element && MoveTo(node, parent);
}

bool DoxIterator::NextSibling()
{
    return MoveTo(node, ElementFrom(NodeOf(node).next_sibling()));
}

bool DoxIterator::Next()
{
    return Child() || NextOutside();
}

bool DoxIterator::NextOutside()
{
    for (pugi::xml_node above = NodeOf(node); above; above = above.parent()) {
        if (MoveTo(node, ElementFrom(above.next_sibling()))) return true;
    }
    return false;
}

bool DoxIterator::NextInside(const DoxIterator& top)
{
    if (Child()) return true;
    for (DoxIterator above = *this; above != top; above.Parent()) {
        if (!above.NextSibling()) continue;
        *this = above;
        return true;
    }
    return false;
}

void DoxIterator::GetTagName(CString& tag) const
{
    tag = NodeOf(node).name();
}

std::string_view DoxIterator::TagName() const
{
    return NodeOf(node).name();
}

bool DoxIterator::IsTag(std::string_view tag) const
{
    const char* const name = NodeOf(node).name();
    return std::strncmp(name, tag.data(), tag.size()) == 0 && name[tag.size()] == '\0';
}

bool DoxIterator::GetText(CString& text) const
{
    const pugi::xml_node element = NodeOf(node);
    bool hasElements = false;
    text = element.value();
    for (pugi::xml_node part = element.first_child(); part; part = part.next_sibling()) {
        if (part.type() == pugi::node_pcdata || part.type() == pugi::node_cdata) {
            text += part.value();
        }
        hasElements = hasElements || part.type() == pugi::node_element;
    }
    return hasElements;
}

CString DoxIterator::GetText() const
{
    CString text;
    GetText(text);
    return text;
}

bool DoxIterator::IsElement() const
{
    return NodeOf(node).type() == pugi::node_element;
}

bool DoxIterator::InsertChild(const char* tag)
{
    pugi::xml_node around = NodeOf(node);
    const bool secondRoot = !IsElement() && document->tree->document.document_element();
    if (*tag == '\0' || secondRoot || !around) return false;
    return around.append_child(tag);
}

void DoxIterator::SetText(const char* text)
{
    NodeOf(node).text().set(text);
}

void DoxIterator::SetText(unsigned long number)
{
    SetText(std::to_string(number).c_str());
}

bool DoxIterator::Remove()
{
    if (!IsElement()) return false;
    pugi::xml_node around = NodeOf(node).parent();
    around.remove_child(NodeOf(node));
    node = around.internal_object();
    return true;
}

std::ptrdiff_t DoxIterator::Position() const
{
    return NodeOf(node).offset_debug();
}
