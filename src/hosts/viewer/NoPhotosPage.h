#pragma once

#include "platform/text/Text.h"

#include <QWidget>

class QLabel;
class ToviLabelManager;

/// What is said in the place of the photographs when the selected label, or none for -1, has none.
CString NoPhotosText(ToviLabelManager& labels, int selectedLabel);

/// What stands in the place of the photographs when there are none to choose from: a sentence and
/// a button that leads back to some.
class NoPhotosPage : public QWidget
{
    Q_OBJECT

public:
    NoPhotosPage();

    void Tell(const CString& sentence);

signals:
    void BackRequested();

private:
    QLabel* text;
};
