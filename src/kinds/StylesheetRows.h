#pragma once

#include "kinds/DeliveryFamilies.h"

#include <span>

/// The stylesheets for one DTD.
struct StylesheetRow
{
    const char* dtd;
    /// By family, in the order of PhotoXMLType; null where a family has none.
    std::array<const char*, deliveryFamilies.size()> byFamily;
};

// The build makes these of IndexStylesheets.table.
extern const std::span<const StylesheetRow> workStylesheets;
extern const std::span<const StylesheetRow> consultingStylesheets;
