#include "windows/zoom/ZoomWindows.h"

#include "delivery/ToviData.h"
#include "photos/ToviPhoto.h"
#include "platform/host/HostServices.h"
#include "windows/zoom/ToviMultiDlg.h"
#include "windows/zoom/ZoomRules.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace
{
constexpr const char* tooMany = "これ以上の表示はできません。\n不要なウィンドウを閉じてください。";

/// The share of the photograph in a window whose division nobody has moved yet.
constexpr double photoShare = 2.0 / 3;

std::vector<ZoomRules::Window> StatesOf(const std::vector<ToviMultiDlg*>& windows)
{
    std::vector<ZoomRules::Window> states;
    for (const ToviMultiDlg* window : windows) {
        states.push_back({window->GetPath(), window->IsFixed()});
    }
    return states;
}

void TellTooMany()
{
    const HostServices& host = GetHostServices();
    if (host.userInterface == nullptr) return;
    host.userInterface->ShowMessage(tooMany, host.applicationName, MessageButtons::Ok,
                                    MessageIcon::Warning);
}

/// The place of \p window with its frame becomes \p place.
void PlaceFrame(QWidget& window, const QRect& place)
{
    const QWindow* const handle = window.windowHandle();
    const QMargins frame = handle == nullptr ? QMargins() : handle->frameMargins();
    window.resize(place.marginsRemoved(frame).size());
    window.move(place.topLeft());
}
} // namespace

ZoomWindows::ZoomWindows(QWidget& thePanel) : panel(thePanel)
{
    memory.Load();
}

ZoomWindows::~ZoomWindows()
{
    CloseAll();
    for (const QPointer<ToviMultiDlg>& window : closed) delete window;
}

void ZoomWindows::Show(ToviData& data)
{
    ToviPhoto* const photo = data.GetPhoto(data.GetSelectCurIndex());
    if (photo == nullptr) return;
    shownLast = data.GetIndexPhotoArray(data.GetSelectCurIndex());
    const ZoomRules::Answer answer = ZoomRules::AnswerTo(StatesOf(windows), photo->GetImagePath());
    if (answer.kind == ZoomRules::Answer::Refuse) {
        TellTooMany();
        return;
    }
    ToviMultiDlg& window =
        answer.kind == ZoomRules::Answer::Create ? Create() : *windows[answer.index];
    window.SetInfoVisible(memory.dlgInfo);
    if (answer.kind != ZoomRules::Answer::Raise) {
        window.SetPhoto(data, shownLast);
    }
    Raise(window);
}

void ZoomWindows::Follow(ToviData& data)
{
    RefreshLabels();
    const std::size_t loose = ZoomRules::FirstLoose(StatesOf(windows));
    const int selected = data.GetIndexPhotoArray(data.GetSelectCurIndex());
    if (loose == windows.size() || selected == shownLast) return;
    if (data.GetCurrentPhotoCount() == 0) {
        windows[loose]->ClearPhoto();
        shownLast = -1;
    } else {
        Show(data);
    }
}

ToviMultiDlg& ZoomWindows::Create()
{
    const QSize remembered =
        windows.empty() ? memory.Size() : windows.back()->normalGeometry().size();
    if (!windows.empty()) {
        memory.dlgTabIndex = windows.back()->GetTabIndex();
        memory.dlgSplPos = windows.back()->GetSplitterPos();
    }
    auto* const window = new ToviMultiDlg(memory.dlgInfo);
    windows.push_back(window);
    Connect(*window);
    window->resize(ZoomRules::UsableSize(remembered));
    Place(*window, windows.size() - 1);
    if (memory.dlgZoom) window->setWindowState(Qt::WindowMaximized);
    window->show();
    const int position = memory.dlgSplPos < ZoomMemory::smallestPane
                             ? static_cast<int>(window->width() * photoShare)
                             : memory.dlgSplPos;
    window->SetSplitterPos(position);
    window->SetTabIndex(memory.dlgTabIndex);
    window->SetKeepsView(memory.keepsView);
    return *window;
}

void ZoomWindows::Connect(ToviMultiDlg& window)
{
    connect(&window, &ToviMultiDlg::CloseRequested, this, [this, &window] { Close(window); });
    connect(&window, &ToviMultiDlg::CloseAllRequested, this, &ZoomWindows::CloseAll);
    connect(&window, &ToviMultiDlg::ArrangeRequested, this, &ZoomWindows::Arrange);
    connect(&window, &ToviMultiDlg::InfoChanged, this, [this](bool visible) {
        memory.dlgInfo = visible;
        memory.Save();
    });
    connect(&window, &ToviMultiDlg::KeepsViewChanged, this, [this](bool keeps) {
        memory.keepsView = keeps;
        for (ToviMultiDlg* other : windows) other->SetKeepsView(keeps);
        memory.Save();
    });
    connect(&window, &ToviMultiDlg::StepRequested, this, &ZoomWindows::StepRequested);
    connect(&window, &ToviMultiDlg::LabelRequested, this, &ZoomWindows::LabelRequested);
    connect(&window, &ToviMultiDlg::LabelsRemovalRequested, this,
            &ZoomWindows::LabelsRemovalRequested);
}

void ZoomWindows::Place(ToviMultiDlg& window, std::size_t index)
{
    // The window manager's frame isn't known before the window is up; others have the same.
    const QWidget& framed = *panel.window();
    const QSize frame = framed.frameGeometry().size() - framed.size();
    const QRect place =
        ZoomRules::NewPlace(index, panel.mapToGlobal(QPoint(0, 0)).y(), window.size() + frame,
                            panel.screen()->availableGeometry());
    window.resize(place.size() - frame);
    window.move(place.topLeft());
}

/// Brings \p window to the front. Whatever has the keys keeps them.
void ZoomWindows::Raise(ToviMultiDlg& window) const
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
}

void ZoomWindows::RefreshInfo()
{
    for (ToviMultiDlg* window : windows) window->RefreshInfo();
}

void ZoomWindows::ApplyKeys()
{
    for (ToviMultiDlg* window : windows) window->ApplyKeys();
}

void ZoomWindows::RefreshLabels()
{
    for (ToviMultiDlg* window : windows) window->RefreshLabels();
}

void ZoomWindows::Arrange()
{
    const std::vector<QRect> places =
        ZoomRules::Arranged(windows.size(), panel.screen()->availableGeometry());
    for (std::size_t i = 0; i < windows.size(); ++i) {
        windows[i]->setWindowState(Qt::WindowNoState);
        PlaceFrame(*windows[i], places[i]);
        windows[i]->raise();
    }
}

void ZoomWindows::CloseAll()
{
    shownLast = -1;
    for (ToviMultiDlg* window : std::exchange(windows, {})) {
        Remember(*window);
        window->disconnect(this);
        Discard(*window);
    }
}

void ZoomWindows::Close(ToviMultiDlg& window)
{
    Remember(window);
    std::erase(windows, &window);
    Discard(window);
}

/// \p window may be amid one of its own events, and outlive the document.
void ZoomWindows::Discard(ToviMultiDlg& window)
{
    window.hide();
    window.ClearPhoto();
    window.deleteLater();
    std::erase_if(closed, [](const QPointer<ToviMultiDlg>& gone) { return gone.isNull(); });
    closed.emplace_back(&window);
}

void ZoomWindows::Remember(const ToviMultiDlg& window)
{
    memory.dlgZoom = window.isMaximized();
    if (!memory.dlgZoom) {
        memory.dlgWidth = window.width();
        memory.dlgHeight = window.height();
        memory.dlgSplPos = window.GetSplitterPos();
    }
    memory.dlgTabIndex = window.GetTabIndex();
    memory.Save();
}

void ZoomWindows::ActivateNext()
{
    const auto current = std::ranges::find(windows, QApplication::activeWindow());
    const bool isOurs = current != windows.end();
    const auto next = isOurs ? current + 1 : windows.begin();
    QWidget* const target = next == windows.end() ? panel.window() : *next;
    target->raise();
    target->activateWindow();
}
