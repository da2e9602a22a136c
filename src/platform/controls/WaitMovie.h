#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

/// A small moving picture of what goes on while the user waits.
class WaitMovie : public QWidget
{
public:
    /// The pictures by number; any other number shows Busy.
    enum Kind
    {
        Busy = 0,
        Copying = 1,
        Deleting = 3
    };

    explicit WaitMovie(QWidget* parent);

    void SetKind(int newKind);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    int kind = Busy;
    QTimer frames;
    QElapsedTimer sinceShown;
};
