#pragma once

#include <QObject>

class ExtractionStrip;
class NothingExtractedPage;
class QAction;
class QDockWidget;
class QLabel;
class QMainWindow;
class ToviExtractionWindow;
class ViewerDocument;

/// Extraction in the main window: the docked window of its conditions, the strip and the word in
/// the status bar that tell of it, and the page that stands in the place of an empty result.
class FrameExtraction : public QObject
{
    Q_OBJECT

public:
    /// \p endAction is the command that ends extraction.
    FrameExtraction(QMainWindow* theFrame, ViewerDocument& theDocument, QAction* endAction);

    QDockWidget* Dock() const { return dock; }
    QWidget* Strip() const;
    QWidget* NothingPage() const;
    /// The page is to be seen in place of the photographs.
    bool FindsNothing() const { return findsNothing; }

    /// Shows what extraction does now; \p ofLabel: the photographs on show are those of a label.
    void Show(bool ofLabel);
    /// Brings the conditions into view, with the focus.
    void ShowConditions();
    /// Lets go of the extraction; what is on show stays when it is the photographs of a label.
    void End(bool ofLabel);

signals:
    /// The state of the extraction is another one.
    void Changed();
    /// The user wants extraction to end.
    void EndRequested();

private:
    QMainWindow* frame;
    ViewerDocument& document;
    QAction* end;
    ToviExtractionWindow* window;
    QDockWidget* dock;
    ExtractionStrip* strip;
    NothingExtractedPage* nothingPage;
    QLabel* status;
    bool findsNothing = false;
};
