#pragma once

#include "platform/text/Export.h"

#include <QPushButton>

/// A button whose text is cut with "…" where it doesn't fit, instead of asking for more room.
class TOVI_EXPORT ElidedButton : public QPushButton
{
    Q_OBJECT

public:
    explicit ElidedButton(const QString& theWords, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString words;
};
