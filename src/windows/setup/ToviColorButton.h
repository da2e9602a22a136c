#pragma once

#include "platform/text/Export.h"

#include <QAbstractButton>
#include <QIcon>

/// Shows the picture of a label on a button that can't be pressed.
class TOVI_EXPORT ToviColorButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit ToviColorButton(const QIcon& picture);

    /// The colour of the label (0x00BBGGRR); the picture has its own.
    void SetColor(unsigned long value) { color = value; }
    unsigned long GetColor() const { return color; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    unsigned long color = 0xFFFFFF;
};
