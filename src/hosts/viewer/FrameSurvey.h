#pragma once

#include "windows/loader/FileSurvey.h"

class NoticeStrip;
class QWidget;
class ViewerDocument;

/// Has the files of the open delivery looked through, and tells in a strip over the photographs
/// which of them are missing or damaged, with a button that leads from one to the next.
class FrameSurvey : public QObject
{
    Q_OBJECT

public:
    /// \p theDocument outlives this.
    FrameSurvey(QObject* parent, ViewerDocument& theDocument);

    /// Out of sight while there is nothing to tell.
    QWidget* Strip() const;

signals:
    /// The user wants to see the photograph with the photo index \p photo.
    void PhotoRequested(int photo);

private:
    void Tell();
    void ShowNext();

    ViewerDocument& document;
    FileSurvey survey;
    NoticeStrip* strip;
    /// How many of the faulty ones the user has gone to.
    std::size_t gone = 0;
    /// What the strip has told last.
    CString told;
    bool isDismissed = false;
};
