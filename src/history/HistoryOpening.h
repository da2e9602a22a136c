#pragma once

#include "history/InspectionHistory.h"

/// Opens the history of the delivery \p document, in which nothing was said yet, and begins an
/// inspection there.
TOVI_EXPORT std::unique_ptr<InspectionHistory> OpenHistory(ToviData& document);
