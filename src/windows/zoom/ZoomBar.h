#pragma once

#include <QWidget>

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QToolButton;
class ZoomView;

/// The line under a zoomed photograph: how it is looked at and how large it is.
class ZoomBar : public QWidget
{
    Q_OBJECT

public:
    explicit ZoomBar(ZoomView* theView, QWidget* parent = nullptr);

    void SetKeepsView(bool keeps);

signals:
    void KeepsViewChanged(bool keeps);

private:
    QToolButton* AddButton(QHBoxLayout* row, const QString& text, const QString& tip);
    void Refresh();

    ZoomView* view;
    QList<QToolButton*> buttons;
    QLabel* zoomLabel;
    QCheckBox* keepBox;
    QLabel* sizeLabel;
};
