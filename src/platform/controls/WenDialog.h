#pragma once

#include "platform/text/Export.h"

#include <QDialog>

class QDialogButtonBox;

/// The base of the dialogs. It may also stand as a child inside another window: Enter and Esc then
/// belong to that window.
class TOVI_EXPORT WenDialog : public QDialog
{
    Q_OBJECT

public:
    /// \p parent is the window over which the dialog stands; null: none.
    explicit WenDialog(QWidget* parent = nullptr);

    /// Shows the dialog and returns when it is closed: true by OK, false by anything else.
    bool DoModal();

    void setVisible(bool visible) override;
    /// What Enter and OK do: OnOK().
    void accept() final;
    /// What Esc, キャンセル and the close box do: OnCancel().
    void reject() final;

protected:
    /// Runs once, before the dialog is first shown.
    virtual void OnInitDialog();
    /// Closes the dialog with the answer true. An override that doesn't call it keeps it open.
    virtual void OnOK();
    /// Closes the dialog with the answer false, in the same manner.
    virtual void OnCancel();

    /// The buttons OK, which Enter presses, and キャンセル, for the end of the layout.
    QDialogButtonBox* MakeOkCancel();

    void keyPressEvent(QKeyEvent* event) override;

private:
    bool initialised = false;
};
