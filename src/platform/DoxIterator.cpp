#include "platform/DoxIterator.h"

#include "platform/DoxTree.h"

#include <cstring>

namespace
{
pugi::xml_node NodeOf(void* node)
{
    return pugi::xml_node(static_cast<pugi::xml_node_struct*>(node));
}

/// \p node, or the first of its later siblings that is an element.
pugi::xml_node ElementFrom(pugi::xml_node node)
{
    while (node && node.type() != pugi::node_element) node = node.next_sibling();
    return node;
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
    return document->tree && MoveTo(node, document->tree->document.document_element());
}

bool DoxIterator::Child()
{
    return MoveTo(node, ElementFrom(NodeOf(node).first_child()));
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
    if (Child()) return true;
    for (pugi::xml_node above = NodeOf(node); above; above = above.parent()) {
        if (MoveTo(node, ElementFrom(above.next_sibling()))) return true;
    }
    return false;
}

void DoxIterator::GetTagName(CString& tag) const
{
    tag = NodeOf(node).name();
}

bool DoxIterator::IsTag(std::string_view tag) const
{
    return NodeOf(node).name() == tag;
}

void DoxIterator::GetText(CString& text) const
{
    const pugi::xml_node element = NodeOf(node);
    text = element.value();
    for (const pugi::xml_node& part : element.children()) {
        if (part.type() == pugi::node_pcdata || part.type() == pugi::node_cdata) {
            text += part.value();
        }
    }
}

CString DoxIterator::GetText() const
{
    CString text;
    GetText(text);
    return text;
}

std::ptrdiff_t DoxIterator::Position() const
{
    return NodeOf(node).offset_debug();
}
