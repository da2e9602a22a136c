#pragma once

#include "history/HistoryFile.h"

#include <QObject>

class FrameExtraction;
class QTabWidget;
class ToviFolderTreePanel;
class ToviLabelTreePanel;
class ToviMpiPanel;
class ViewerDocument;

/// What shows the photographs of the open delivery.
struct SessionViews
{
    QTabWidget* trees;
    ToviFolderTreePanel* folders;
    ToviLabelTreePanel* labels;
    ToviMpiPanel* photos;
    FrameExtraction* extraction;
};

/// Keeps with the history of the open delivery what the window is at, now and then: the selected
/// photograph, the node or label, what narrows them, the zoom windows.
class FrameSession : public QObject
{
    Q_OBJECT

public:
    /// Belongs to \p frame; \p theDocument and \p theViews outlive this.
    FrameSession(QObject* frame, ViewerDocument& theDocument, SessionViews theViews);

    /// Shows what was kept of the inspection that goes on; nothing of a new one.
    void Restore();

signals:
    /// What else the window remembers is to be kept now.
    void KeepDue();

private:
    void Keep();
    void RestoreZooms(const CString& photos);

    ViewerDocument& document;
    SessionViews views;
};
