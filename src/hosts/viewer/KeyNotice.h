#pragma once

#include <QWidget>

class QBoxLayout;
class QLabel;

/// The strip that tells which keys paste labels, and offers those of before.
class KeyNotice : public QWidget
{
    Q_OBJECT

public:
    KeyNotice();

    /// Shows the keys of now.
    void Tell();

signals:
    void OldKeysWanted();
    void SheetWanted();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QLabel* text;
    QBoxLayout* row;
};
