#pragma once

#include "photos/ToviPhoto.h"
#include "review/ToviLabelManager.h"

#include <QWidget>

#include <array>

class GaluMultiStatusButton;
class ToviLabelButton;

/// The bar under a photograph: its title, a button for each label, and two marks that tell whether
/// it has reference drawings and what the tamper check has found.
class ToviNamePlate : public QWidget
{
    Q_OBJECT

public:
    explicit ToviNamePlate(QWidget* parent);

    /// A plate is active while a photograph is on show. Only then has it label buttons and takes
    /// single clicks.
    bool IsActive() const { return active; }
    void SetActive(bool isActive);
    /// In the colours of the selected photograph or in the others.
    void SetSelected(bool isSelected);
    /// Shows as much of \p text as there is room for, the whole in the tool tip.
    void SetTitle(const CString& text);
    const CString& GetTitle() const { return title; }
    void SetHasDrawings(bool hasDrawings);
    void SetEditCheckResult(ToviPhoto::EditJPEGCheckResult result);
    void SetLabelNames(const ToviLabelManager& names);
    /// Shows which labels \p photo has, and its comment in the tool tip of that label.
    void ShowLabels(const ToviPhoto& photo);
    ToviLabelButton* Button(unsigned int label) const { return buttons[label]; }

signals:
    void Clicked();
    void DoubleClicked();
    void RightClicked();
    /// A key (a Qt::Key) other than the Tab key went down.
    void KeyPressed(int qtKey);
    /// The user has flipped the button of \p label.
    void LabelFlipped(int label);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LayOut();

    std::array<ToviLabelButton*, labelCount> buttons{};
    GaluMultiStatusButton* photoButton;
    GaluMultiStatusButton* checkButton;
    int titleWidth = 0;
    bool active = false;
    bool selected = false;
    CString title;
};
