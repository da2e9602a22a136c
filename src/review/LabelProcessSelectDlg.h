#pragma once

#include "platform/text/Export.h"
#include "review/LabelCorrection.h"

/// Asks which correction shall run over the labels of all photographs on show.
class TOVI_EXPORT LabelProcessSelectDlg
{
public:
    /// The actions, in the order in which they are offered.
    enum Action
    {
        PasteOk = 0,
        RemoveChecks = 1,
        RemoveAll = 2
    };

    /// \p theScope is what it would run over.
    explicit LabelProcessSelectDlg(const CorrectionScope& theScope) : scope(theScope) {}

    /// False when the user gave up, or nobody can be asked.
    bool DoModal();
    Action GetAction() const { return static_cast<Action>(action); }

private:
    CorrectionScope scope;
    int action = PasteOk;
};
