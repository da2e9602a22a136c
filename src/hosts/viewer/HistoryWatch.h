#pragma once

#include "platform/text/Text.h"

#include <QObject>

class NoticeStrip;
class QLabel;
class QMainWindow;
class QTimer;
class QWidget;
class ViewerDocument;

/// Watches over the history of the open delivery while it is written: tells in a strip over the
/// photographs what keeps it from being kept, and in the status bar when the disk doesn't follow.
class HistoryWatch : public QObject
{
    Q_OBJECT

public:
    /// Tells in the status bar of \p theFrame; both outlive this.
    HistoryWatch(QMainWindow* theFrame, ViewerDocument& theDocument);

    /// Out of sight while there is nothing to tell.
    QWidget* Strip() const;

private:
    void Look();
    void TellRefusal();

    QMainWindow* frame;
    ViewerDocument& document;
    NoticeStrip* strip;
    QLabel* state;
    /// What the strip has told last.
    CStringArray told;
    /// The delivery is on show before its files are compared.
    QTimer* comparing;
};
