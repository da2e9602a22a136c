#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <QWidget>

class QLabel;
class QPushButton;

/// What stands in the place of the photographs when none meets the conditions of the extraction, or
/// none is found.
class TOVI_EXPORT NothingExtractedPage : public QWidget
{
    Q_OBJECT

public:
    NothingExtractedPage();

    /// \p end is what the button says that ends it.
    void Tell(const CString& sentence, const CString& end);

signals:
    void ChangeRequested();
    void EndRequested();

private:
    QLabel* text;
    QPushButton* end;
};
