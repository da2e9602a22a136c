#include "hosts/viewer/FrameSession.h"

#include "hosts/viewer/FrameExtraction.h"
#include "hosts/viewer/ViewerDocument.h"
#include "windows/page/ToviMpiPanel.h"
#include "windows/trees/ToviFolderTreePanel.h"
#include "windows/trees/ToviLabelTreePanel.h"
#include "windows/zoom/ToviMultiDlg.h"

#include <QTabWidget>
#include <QTimer>

#include <chrono>
#include <cstdlib>
#include <sstream>

namespace
{
constexpr std::chrono::seconds interval(2);

constexpr const char* photoEntry = "photo";
constexpr const char* nodeEntry = "node";
constexpr const char* labelEntry = "label";
constexpr const char* zoomsEntry = "zooms";
/// In front of the photograph of a zoom window that doesn't follow the selection.
constexpr char fixedMark = '!';

/// The titles on the way to \p node, a line each.
CString PathOf(const ToviNode& node)
{
    const ToviNode* const above = node.Parent();
    return above == nullptr ? CString() : PathOf(*above) + node.Title() + '\n';
}

/// The node that \p path leads to from \p root; null when there is none.
ToviNode* NodeAt(ToviNode& root, const CString& path)
{
    ToviNode* node = &root;
    std::istringstream lines(path);
    for (CString title; std::getline(lines, title);) {
        const ToviNodeArray& children = node->Items();
        const auto child = std::ranges::find_if(
            children, [&title](const ToviNode* one) { return one->Title() == title; });
        if (child == children.end()) return nullptr;
        node = *child;
    }
    return node;
}

CString ZoomsOf(const ToviMpiPanel& panel)
{
    CString text;
    for (const ToviMultiDlg* zoom : panel.Zooms().All()) {
        if (zoom->GetPhotoIndex() < 0) continue;
        if (zoom->IsFixed()) text += fixedMark;
        text += std::to_string(zoom->GetPhotoIndex()) + ' ';
    }
    return text;
}

int NumberOf(const SessionEntries& entries, const char* name)
{
    const auto found = entries.find(name);
    return found == entries.end() ? -1 : std::atoi(found->second.c_str());
}
} // namespace

FrameSession::FrameSession(QObject* frame, ViewerDocument& theDocument, SessionViews theViews)
    : QObject(frame), document(theDocument), views(theViews)
{
    auto* const timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &FrameSession::Keep);
    connect(timer, &QTimer::timeout, this, &FrameSession::KeepDue);
    timer->start(interval);
    connect(&document, &ViewerDocument::Closing, this, &FrameSession::Keep);
}

void FrameSession::Keep()
{
    if (document.Data() == nullptr) return;
    const ToviData& data = *document.Data();
    SessionEntries entries = views.extraction->Keep();
    entries[photoEntry] = std::to_string(data.GetIndexPhotoArray(data.GetSelectCurIndex()));
    entries[zoomsEntry] = ZoomsOf(*views.photos);
    if (data.GetSelectedNode() != nullptr) entries[nodeEntry] = PathOf(*data.GetSelectedNode());
    if (views.trees->currentWidget() == views.labels) {
        entries[labelEntry] = std::to_string(data.GetSelectedIndex());
    }
    document.History()->KeepSession(entries);
}

void FrameSession::Restore()
{
    const SessionEntries& entries = document.Session();
    if (entries.empty()) return;
    ToviData& data = *document.Data();
    // As long as all photographs are on show.
    if (const auto zooms = entries.find(zoomsEntry); zooms != entries.end()) {
        RestoreZooms(zooms->second);
    }
    if (const auto path = entries.find(nodeEntry); path != entries.end()) {
        ToviNode* const node = NodeAt(data, path->second);
        if (node != nullptr) data.SetSelected(node, false);
        views.folders->ChangeSelCompulsion();
    }
    views.extraction->Resume(entries);
    if (entries.contains(labelEntry)) {
        views.trees->setCurrentWidget(views.labels);
        views.labels->SelectLabel(NumberOf(entries, labelEntry));
    }
    views.photos->ShowPhoto(NumberOf(entries, photoEntry));
}

void FrameSession::RestoreZooms(const CString& photos)
{
    std::istringstream words(photos);
    for (CString word; words >> word;) {
        const bool isFixed = word.front() == fixedMark;
        const int photo = std::atoi(word.c_str() + (isFixed ? 1 : 0));
        if (document.Data()->GetCurrentArray().Find(photo) < 0) continue;
        views.photos->ShowPhoto(photo);
        views.photos->ShowMultiDlg();
        for (ToviMultiDlg* zoom : views.photos->Zooms().All()) {
            if (isFixed && zoom->GetPhotoIndex() == photo) zoom->SetFixed(true);
        }
    }
}
