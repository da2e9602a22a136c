#include "hosts/viewer/HistoryWatch.h"

#include "hosts/viewer/NoticeStrip.h"
#include "hosts/viewer/ViewerDocument.h"

#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <QTimer>

#include <chrono>

namespace
{
constexpr std::chrono::milliseconds interval(250);
/// What a delivery takes to be on show, and more.
constexpr std::chrono::seconds timeToShow(1);
/// How far the disk may be behind unmentioned.
constexpr std::chrono::seconds usualDelay(1);
constexpr int messageTime = 5000;

constexpr const char* lookingText =
    "見るだけで開いています。この納品データは別のプログラムで検査中なので、付箋とコメントは変えられ"
    "ません。";
constexpr const char* takenOverText =
    "この納品データの検査は、別のプログラムに引き継がれました。ここでは見るだけになります。ここだけ"
    "に残っている変更があれば、検査状況に保存してください。";
constexpr const char* problemText =
    "検査は続けられますが、プログラムが急に終わると、検査状況に保存していない付箋とコメントは失われ"
    "ます。書き込めるようになると記録し直します。";

using Access = InspectionHistory::Access;

CStringArray StripTexts(const InspectionHistory& history)
{
    if (history.GetAccess() == Access::TakenOver) return {takenOverText};
    if (history.GetAccess() == Access::Look) return {lookingText};
    CStringArray texts;
    const CString problem = history.Writing().problem;
    if (!problem.empty()) texts.Add("検査の記録を残せません。" + problem + problemText);
    const CString files = history.FileNotice();
    if (!files.empty()) texts.Add(files);
    return texts;
}

QString StateText(const HistoryWriter::State& writing)
{
    if (!writing.problem.empty()) return QStringLiteral("記録できません");
    const bool isBehind =
        writing.waiting > 0 && HistoryWriter::Clock::now() - writing.since > usualDelay;
    return isBehind ? QStringLiteral("記録待ち %1 件").arg(writing.waiting) : QString();
}
} // namespace

HistoryWatch::HistoryWatch(QMainWindow* theFrame, ViewerDocument& theDocument)
    : QObject(theFrame), frame(theFrame), document(theDocument), strip(new NoticeStrip),
      state(new QLabel), comparing(new QTimer(this))
{
    state->setContentsMargins(8, 0, 8, 0);
    state->hide();
    frame->statusBar()->addPermanentWidget(state);
    auto* const timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &HistoryWatch::Look);
    connect(&document, &ViewerDocument::Updated, this, &HistoryWatch::Look);
    connect(&document, &ViewerDocument::EditRefused, this, &HistoryWatch::TellRefusal);
    timer->start(interval);
    comparing->setSingleShot(true);
    connect(comparing, &QTimer::timeout, this, [this] {
        if (document.History() != nullptr) document.History()->CompareFiles();
    });
    connect(&document, &ViewerDocument::Opened, comparing,
            [this] { comparing->start(timeToShow); });
}

QWidget* HistoryWatch::Strip() const
{
    return strip;
}

void HistoryWatch::Look()
{
    InspectionHistory* const history = document.History();
    CStringArray texts;
    QString now;
    if (history != nullptr) {
        const Access before = history->GetAccess();
        history->Tend();
        if (history->GetAccess() != before) emit document.Updated();
        texts = StripTexts(*history);
        now = StateText(history->Writing());
    }
    state->setText(now);
    state->setVisible(!now.isEmpty());
    if (std::exchange(told, texts) != texts) strip->Tell(texts);
}

void HistoryWatch::TellRefusal()
{
    frame->statusBar()->showMessage(
        QStringLiteral("見るだけで開いているため、付箋とコメントは変えられません。"), messageTime);
}
