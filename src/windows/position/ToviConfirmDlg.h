#pragma once

#include "platform/controls/WenDialog.h"
#include "windows/position/ToviConfirmTreeCtrl.h"

class ToviData;
class ToviPhoto;

/// The window 写真格納位置の確認: the classification tree of the delivery, in which the place of
/// the selected photograph is marked. It goes when it is closed.
class ToviConfirmDlg : public WenDialog
{
    Q_OBJECT

public:
    /// Still hidden, over \p owner, and showing no tree.
    explicit ToviConfirmDlg(QWidget* owner);

    bool IsTreeType(int type) const { return type == treeType; }
    void SetTreeType(int type) { treeType = type; }
    /// Shows the tree of \p document as it is now, all open, and marks the selected photograph.
    void BuildTree(ToviData& document);
    /// Moves the mark to \p photo. False leaves it where it is: the photograph has no place in the
    /// tree. With none (null) there is no mark.
    bool OnSelect(ToviData& document, const ToviPhoto* photo);

signals:
    /// The window is about to go from \p place on the screen.
    void Closed(const QRect& place);

protected:
    void OnOK() override {}
    void OnCancel() override {}
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    ToviConfirmTreeCtrl* tree;
    /// None until it is set.
    int treeType;
};
