#include "hosts/viewer/FrameExtraction.h"

#include "hosts/viewer/ViewerDocument.h"
#include "platform/text/SearchFolding.h"
#include "windows/extraction/ExtractionRules.h"
#include "windows/extraction/ExtractionStrip.h"
#include "windows/extraction/NothingExtractedPage.h"
#include "windows/extraction/ToviExtractionWindow.h"

#include <QAction>
#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <QTimer>

namespace
{
constexpr unsigned int windowId = 106;
constexpr const char* runningEntry = "extraction.running";
constexpr const char* searchEntry = "search";
} // namespace

FrameExtraction::FrameExtraction(QMainWindow* theFrame, ViewerDocument& theDocument,
                                 QAction* endAction)
    : QObject(theFrame), frame(theFrame), document(theDocument), end(endAction),
      window(new ToviExtractionWindow), dock(new QDockWidget(QStringLiteral("抽出"), theFrame)),
      strip(new ExtractionStrip), nothingPage(new NothingExtractedPage), status(new QLabel)
{
    window->Create(dock, windowId);
    dock->setObjectName(QStringLiteral("extractionConditions"));
    dock->setWidget(window);
    dock->hide();
    document.AddPanel(window);
    QFont bold = status->font();
    bold.setBold(true);
    status->setFont(bold);
    status->setContentsMargins(8, 0, 8, 0);
    status->hide();
    frame->statusBar()->addPermanentWidget(status);
    connect(window, &ToviExtractionWindow::StateChanged, this, &FrameExtraction::Changed);
    connect(strip, &ExtractionStrip::EndRequested, this, &FrameExtraction::EndRequested);
    connect(nothingPage, &NothingExtractedPage::EndRequested, this, &FrameExtraction::EndRequested);
    connect(nothingPage, &NothingExtractedPage::ChangeRequested, this, [this] {
        if (window->IsRunning()) {
            ShowConditions();
        } else {
            BeginSearch();
        }
    });
    connect(strip, &ExtractionStrip::TextChanged, this, &FrameExtraction::SearchRequested);
    connect(strip, &ExtractionStrip::SearchEndRequested, this,
            &FrameExtraction::SearchEndRequested);
    connect(strip, &ExtractionStrip::PhotosRequested, this, &FrameExtraction::PhotosRequested);
    connect(end, &QAction::triggered, this, &FrameExtraction::EndRequested);
}

QWidget* FrameExtraction::Strip() const
{
    return strip;
}

QWidget* FrameExtraction::NothingPage() const
{
    return nothingPage;
}

void FrameExtraction::Show(bool ofLabel)
{
    ToviData* const data = document.Data();
    const ExtractionView view =
        data == nullptr ? ExtractionView() : ViewOf(*data, window->IsRunning(), ofLabel);
    const bool isOn = view.kind != ExtractionView::Off;
    findsNothing = view.kind == ExtractionView::Nothing;
    // The field may still hold what was searched for in another delivery.
    if (data == nullptr || (!view.searched && !SearchWords(strip->SearchText()).empty())) {
        strip->EndSearch();
    }
    strip->Tell(StripText(view, window->GetConditions()), EndText(view));
    if (findsNothing) {
        nothingPage->Tell(NothingText(view, window->GetConditions(), data->GetSearchText()),
                          EndText(view));
    }
    status->setText(view.extracted ? QStringLiteral("抽出中") : QStringLiteral("検索中"));
    status->setVisible(isOn);
    end->setEnabled(isOn);
    dock->setEnabled(data != nullptr);
    window->EnableExtractCtrl(!ofLabel);
}

void FrameExtraction::ShowConditions()
{
    if (dock->isHidden()) {
        dock->show();
        // Once the frame has made room for it, which keeps some of what it is asked for to itself.
        QTimer::singleShot(0, this, [this] {
            const int spare = 2 * dock->fontMetrics().lineSpacing();
            frame->resizeDocks({dock}, {dock->sizeHint().height() + spare}, Qt::Vertical);
        });
    }
    dock->raise();
    dock->activateWindow();
    window->FocusConditions();
}

void FrameExtraction::BeginSearch()
{
    strip->BeginSearch();
}

void FrameExtraction::SearchFor(const CString& text, bool ofLabel)
{
    ToviData& data = *document.Data();
    if (data.GetSearchText().empty() && SearchWords(text).empty()) return;
    data.SetSearchText(text);
    if (ofLabel) {
        data.SetSelected(data.GetSelectedIndex());
    } else {
        data.SetSelected(data.GetSelectedNode(), true);
    }
}

void FrameExtraction::Search(bool ofLabel)
{
    if (document.Data() != nullptr) SearchFor(strip->SearchText(), ofLabel);
}

ConditionEntries FrameExtraction::Keep() const
{
    ConditionEntries entries = EntriesOf(window->GetConditions());
    if (window->IsRunning()) entries[runningEntry] = "1";
    if (document.Data() != nullptr && !document.Data()->GetSearchText().empty())
        entries[searchEntry] = document.Data()->GetSearchText();
    return entries;
}

void FrameExtraction::Resume(const ConditionEntries& entries)
{
    window->Resume(ConditionsIn(entries), entries.contains(runningEntry));
    const auto text = entries.find(searchEntry);
    if (text != entries.end()) strip->Search(text->second);
}

void FrameExtraction::EndSearch(bool ofLabel)
{
    strip->EndSearch();
    Search(ofLabel);
}

void FrameExtraction::End(bool ofLabel)
{
    if (document.Data() == nullptr) return;
    EndSearch(ofLabel);
    if (!window->IsRunning()) return;
    if (ofLabel) {
        document.Data()->CancelExtraction(CancelExtButton);
    } else {
        window->OnBnClickedExecute();
    }
}
