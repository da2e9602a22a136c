#pragma once

#include "platform/text/Export.h"
#include "platform/text/Text.h"

#include <QWidget>

class QLabel;

/// What stands in the place of the photographs when none meets the conditions of the extraction.
class TOVI_EXPORT NothingExtractedPage : public QWidget
{
    Q_OBJECT

public:
    NothingExtractedPage();

    /// \p conditions is their phrase.
    void Tell(const CString& conditions);

signals:
    void ChangeRequested();
    void EndRequested();

private:
    QLabel* text;
};
