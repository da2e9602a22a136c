#pragma once

#include "hosts/cli/PhotoChoice.h"
#include "hosts/cli/Records.h"

#include "extraction/ToviExtractionDlg.h"

/// What narrows and orders the photographs of a node, as the user says it.
struct ConditionArguments
{
    PhotoChoice choice;
    RecordArguments record;
    int label = -1;
    ExtractionConditions conditions;
    std::vector<std::string> items;
    std::optional<std::string> text;
    bool all = false;
    bool any = false;
    bool fileDate = false;
    std::string sortItem;
    bool descending = false;
};

/// --type, --node, --record, --label and the conditions.
Options ConditionOptions(ConditionArguments& arguments);

/// Opens nothing: takes up the inspection, selects, extracts and sorts as \p arguments say, and
/// selects the first photograph. Returns the exit status; what isn't ExitDone was told on standard
/// error.
int MakeCurrentArray(ToviData& document, const ConditionArguments& arguments);
