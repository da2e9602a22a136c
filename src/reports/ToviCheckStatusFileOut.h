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
    /// Starts the application with a folder for whatever it needs; null when that fails or \p
    /// giveUp says so meanwhile.
    using Starter = std::function<std::unique_ptr<SpreadsheetApplication>(
        const CString& folder, const std::function<bool()>& giveUp)>;

    /// \p document and \p labels outlive it.
    ToviCheckStatusFileOut(ToviData& document, const ToviLabelManager& labels,
                           Starter starter = StartSpreadsheet);

    /// Asks for the output, writes it, tells how that ended in a message titled \p caption, and
    /// opens what was written. True when it was. \p place, if not null, is the path without an
    /// ending that is proposed, and afterwards that of the output, or empty when none was chosen.
    bool FileOut(const CString& caption, CString* place = nullptr);
    /// Writes the output \p path without a question or message. \p caption is the title of the
    /// progress.
    CheckStatusOutcome FileOut(const CString& caption, const CString& path);

private:
    /// \p cancelled becomes true when the user has given up waiting for it.
    std::unique_ptr<SpreadsheetApplication> Start(const CString& folder, const CString& caption,
                                                  bool& cancelled) const;
    /// The path that the user chooses, never in the delivery's folder; empty when he gives up.
    CString ChooseOutput(const CString& proposed, const CString& caption) const;
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
