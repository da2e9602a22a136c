#pragma once

#include "platform/controls/WenDialog.h"
#include "platform/host/UserInterface.h"

class QLineEdit;

/// Asks a FolderQuestion: a field for the folder, with a button to choose it, in view of a list.
class FolderDialog : public WenDialog
{
    Q_OBJECT

public:
    /// Letters that the field takes.
    static constexpr int longestFolder = 260;

    FolderDialog(const FolderQuestion& question, const CString& folder, QWidget* parent);

    CString GetFolder() const;

private:
    void Browse();

    QLineEdit* field;
};
