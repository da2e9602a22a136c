#pragma once

#include "platform/DoxDocument.h"

#include <pugixml.hpp>

/// The parsed file. The tree points into the text, which therefore lives as long.
struct DoxDocument::Tree
{
    CString text;
    pugi::xml_document document;
};
