#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <QFrame>

class QLabel;

/// A strip over the photographs that tells by what they are extracted, with the button that ends
/// it. Out of sight while there is nothing to tell.
class TOVI_EXPORT ExtractionStrip : public QFrame
{
    Q_OBJECT

public:
    ExtractionStrip();

    void Tell(const CString& sentence);

signals:
    void EndRequested();

private:
    QLabel* text;
};
