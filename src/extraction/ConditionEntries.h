#pragma once

#include "extraction/ExtractionConditions.h"

#include <map>

/// Texts by the names of their entries.
using ConditionEntries = std::map<CString, CString>;

/// \p conditions as entries that outlive the program; what is off has none.
TOVI_EXPORT ConditionEntries EntriesOf(const ExtractionConditions& conditions);
/// The conditions that \p entries hold among others.
TOVI_EXPORT ExtractionConditions ConditionsIn(const ConditionEntries& entries);
