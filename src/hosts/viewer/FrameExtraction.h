#pragma once

#include "extraction/ConditionEntries.h"

#include <QObject>

class ExtractionStrip;
class NothingExtractedPage;
class QAction;
class QDockWidget;
class QLabel;
class QMainWindow;
class ToviExtractionWindow;
class ViewerDocument;

/// Extraction and the search in the main window: the docked window of the conditions, the strip and
/// the word in the status bar that tell of both, and the page that stands in the place of an empty
/// result.
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

    /// Shows what extraction and the search do now; \p ofLabel: the photographs on show are those
    /// of a label.
    void Show(bool ofLabel);
    /// Brings the conditions into view, with the focus.
    void ShowConditions();
    /// Lets the user type what to search for.
    void BeginSearch();
    /// Narrows the photographs on show to those in which the text in the field is found.
    void Search(bool ofLabel);
    /// What narrows the photographs, as entries that outlive the program, and takes that up again.
    ConditionEntries Keep() const;
    void Resume(const ConditionEntries& entries);
    /// Lets go of the search alone.
    void EndSearch(bool ofLabel);
    /// Lets go of the extraction and the search.
    void End(bool ofLabel);

signals:
    /// The state of the extraction is another one.
    void Changed();
    /// The user wants extraction and search to end.
    void EndRequested();
    /// The user has typed another text.
    void SearchRequested();
    /// The user wants the search to end.
    void SearchEndRequested();
    /// The user wants the focus to be on the photographs.
    void PhotosRequested();

private:
    void SearchFor(const CString& text, bool ofLabel);

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
