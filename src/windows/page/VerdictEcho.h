#pragma once

#include "platform/text/Export.h"

#include <QLabel>
#include <QTimer>

/// What was just done to a photograph, in words over it for a second. A screen reader speaks it.
/// The mouse goes through.
class TOVI_EXPORT VerdictEcho : public QLabel
{
    Q_OBJECT

public:
    explicit VerdictEcho(QWidget* parent);

    /// Shows \p words in the middle of \p place, which is one of the parent's.
    void Tell(const QString& words, const QRect& place);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QTimer end;
};
