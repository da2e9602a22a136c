#pragma once

#include "reports/CheckStatusOutcome.h"

#include <functional>

class ToviData;
class ToviLabelManager;
class ToviProgressDlg;

/// Writes the check report: the photographs of the current array with the results of the
/// inspection, on the form CHKPHOTO.XLS of the program's folder. The output is put in place when it
/// is complete, so that an earlier one is whole until then, and nothing is left of the work in any
/// ending.
class ToviCheckStatusFileOut
{
public:
    /// Starts the application with a folder for whatever it needs; null when that fails.
    using Starter = std::function<std::unique_ptr<SpreadsheetApplication>(const CString& folder)>;

    /// \p document and \p labels outlive it.
    ToviCheckStatusFileOut(ToviData& document, const ToviLabelManager& labels,
                           Starter starter = StartSpreadsheet);

    /// Asks for the output, writes it, tells how that ended in a message titled \p caption, and
    /// opens what was written. True when it was.
    bool FileOut(const CString& caption);
    /// Writes the output \p path without a question or message. \p caption is the title of the
    /// progress.
    CheckStatusOutcome FileOut(const CString& caption, const CString& path);

private:
    CheckStatusOutcome Write(SpreadsheetApplication& application, const CString& folder,
                             const CString& output, const CString& caption) const;
    CheckStatusOutcome Fill(SpreadsheetApplication& application, const CString& form,
                            const CString& filled, SpreadsheetFormat format,
                            const CString& caption) const;
    CheckStatusOutcome WritePages(SpreadsheetBook& book, ToviProgressDlg& progress) const;

    ToviData& data;
    const ToviLabelManager& labelManager;
    Starter start;
};
