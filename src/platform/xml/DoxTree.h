#pragma once

#include "platform/xml/DoxDocument.h"

#include <pugixml.hpp>

/// The parsed file. The tree points into the text, which therefore lives as long.
struct DoxDocument::Tree
{
    CString text;
    pugi::xml_document document;
};

/// \p node, or the first of its later siblings that is an element.
inline pugi::xml_node ElementFrom(pugi::xml_node node)
{
    while (node && node.type() != pugi::node_element) node = node.next_sibling();
    return node;
}
