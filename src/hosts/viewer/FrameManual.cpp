#include "hosts/viewer/FrameManual.h"

#include "hosts/viewer/StartPage.h"
#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "windows/keys/KeySet.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>

#include <algorithm>

namespace
{
struct Place
{
    const char* widget;
    /// The page of the manual that leads to what is said of it.
    const char* page;
};

/// A widget counts for all that stands in it, but for what has a row of its own.
constexpr Place places[] = {{"ToviMultiDlg", "at-zoom"},
                            {"ToviConfirmDlg", "at-detail"},
                            {"ToviDetailPanel", "at-detail"},
                            {"ToviCommentWindow", "at-labels"},
                            {"ToviInputCommentDlg", "at-labels"},
                            {"ToviLabelTreePanel", "at-labels"},
                            {"ExtractionStrip", "at-search"},
                            {"ToviExtractionWindow", "at-extraction"},
                            {"ToviExtDetailDlg", "at-extraction"},
                            {"KeySheet", "at-keys"},
                            {"KeyChangeDlg", "at-keys"},
                            {"SetUpKeyPage", "at-keys"},
                            {"ToviSetUpDlg", "at-settings"},
                            {"ToviItemSetUpDlg", "at-settings"},
                            {"ToviSelectImageTypeDlg", "at-settings"}};

const char* PageOf(const QWidget* focused, const char* elsewhere)
{
    for (const QWidget* widget = focused; widget != nullptr; widget = widget->parentWidget()) {
        const auto* const place = std::ranges::find_if(
            places, [widget](const Place& each) { return widget->inherits(each.widget); });
        if (place != std::end(places)) return place->page;
    }
    return elsewhere;
}
} // namespace

FrameManual::FrameManual(QMainWindow* theFrame, const FrameActions& actions)
    : QObject(theFrame), frame(theFrame)
{
    connect(actions[FrameCommand::ShowManual], &QAction::triggered, this,
            [this] { ShowFor(QApplication::focusWidget()); });
    qApp->installEventFilter(this);
}

/// Other windows, and all while a dialog waits for its answer, don't hear the keys of the main one.
bool FrameManual::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    if (frame->isActiveWindow() && QApplication::activeModalWidget() == nullptr) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    // What types something or is to become a key is the field's own.
    if (!key->text().isEmpty() || watched->inherits("KeyEdit")) return false;
    const QKeySequence pressed(key->keyCombination());
    if (!CurrentKeys().Of(FrameCommand::ShowManual).contains(pressed)) return false;
    ShowFor(static_cast<QWidget*>(watched));
    return true;
}

void FrameManual::ShowFor(const QWidget* focused)
{
    const bool isStart = frame->findChild<StartPage*>()->isVisible();
    const CString page = PageOf(focused, isStart ? "at-open" : "at-photos");
    const CString path = MibProgramPath() + "manual/" + page + ".html";
    const HostServices& host = GetHostServices();
    if (host.userInterface->OpenFile(path)) return;
    host.userInterface->ShowMessage(
        "ブラウザが見つかりません。次のファイルをブラウザで開いてください。\n" + path,
        host.applicationName, MessageButtons::Ok, MessageIcon::Information);
}
