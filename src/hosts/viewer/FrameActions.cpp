#include "hosts/viewer/FrameActions.h"

#include "platform/text/QtText.h"
#include "review/LabelCaption.h"
#include "windows/keys/KeySet.h"
#include "windows/pictures/Pictures.h"

#include <QActionGroup>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolBar>

#include <initializer_list>
#include <optional>
#include <span>

namespace
{
/// What a command needs.
enum Kind
{
    Plain,
    /// An open delivery.
    OnDelivery,
    /// The same, and it is on or off.
    CheckedOnDelivery,
    /// On or off at any time.
    Checked
};

struct Row
{
    FrameCommand command;
    std::optional<PictureName> picture;
    Kind kind;
    /// A shorter name for the tool bar.
    const char* shortText = nullptr;
};

using enum FrameCommand;

consteval std::optional<PictureName> Picture(const char* name)
{
    return PictureName(name);
}

const Row rows[] = {
    {Open, Picture("open"), Plain, "開く"},
    {OpenWithFamily, {}, Plain},
    {OpenDiscs, {}, Plain},
    {OpenRecord, Picture("record-open"), OnDelivery},
    {Save, Picture("save"), OnDelivery, "保存"},
    {SaveAs, Picture("save-as"), OnDelivery},
    {WriteReport, {}, OnDelivery},
    {SavePhoto, {}, OnDelivery},
    {SaveShownPhotos, {}, OnDelivery},
    {ShowIndex, {}, OnDelivery},
    {CloseDelivery, {}, OnDelivery},
    {Quit, Picture("quit"), Plain},
    {Undo, {}, OnDelivery},
    {Redo, {}, OnDelivery},
    {FirstPhoto, {}, OnDelivery},
    {PreviousPhoto, {}, OnDelivery},
    {NextPhoto, {}, OnDelivery},
    {LastPhoto, {}, OnDelivery},
    {FirstPage, Picture("page-first"), OnDelivery, "最初"},
    {PreviousPage, Picture("page-previous"), OnDelivery, "前"},
    {NextPage, Picture("page-next"), OnDelivery, "次"},
    {LastPage, Picture("page-last"), OnDelivery, "最後"},
    {Mode1, Picture("mode-1"), CheckedOnDelivery, "1枚"},
    {Mode2, Picture("mode-2"), CheckedOnDelivery, "2枚"},
    {Mode3, Picture("mode-3"), CheckedOnDelivery, "3枚"},
    {Mode4, Picture("mode-4"), CheckedOnDelivery, "4枚"},
    {Mode6, Picture("mode-6"), CheckedOnDelivery, "6枚"},
    {ModeThumbnails, Picture("mode-thumbnails"), CheckedOnDelivery, "サムネイル"},
    {ModeList, Picture("mode-list"), CheckedOnDelivery, "リスト"},
    {TreeWorkTypeFull, {}, CheckedOnDelivery},
    {TreePlace, {}, CheckedOnDelivery},
    {TreeWorkType, {}, CheckedOnDelivery},
    {TitleFileName, {}, CheckedOnDelivery},
    {TitleJapaneseFileName, {}, CheckedOnDelivery},
    {TitlePhotoTitle, {}, CheckedOnDelivery},
    {ShowInfoList, {}, CheckedOnDelivery},
    {ShowComments, Picture("comment-show"), CheckedOnDelivery},
    {CheckTampering, {}, CheckedOnDelivery},
    {Search, Picture("search"), OnDelivery, "検索"},
    {ShowExtraction, Picture("extract"), OnDelivery, "抽出"},
    {EndExtraction, {}, Plain},
    {SetUp, Picture("settings"), OnDelivery, "設定"},
    {ZoomPhoto, Picture("zoom"), OnDelivery, "拡大"},
    {NextZoom, {}, OnDelivery},
    {ArrangeZooms, Picture("arrange"), OnDelivery},
    {CloseZooms, Picture("close-all"), OnDelivery},
    {SlideMode, Picture("slide-show"), OnDelivery},
    {LabelOk, Picture("label-ok-on"), OnDelivery},
    {LabelNg1, Picture("label-ng1-on"), OnDelivery},
    {LabelNg2, Picture("label-ng2-on"), OnDelivery},
    {LabelNg3, Picture("label-ng3-on"), OnDelivery},
    {LabelFree, Picture("label-free-on"), OnDelivery},
    {LabelComment, Picture("label-comment-on"), OnDelivery},
    {CommentDialog, {}, OnDelivery},
    {RemoveLabels, Picture("labels-clear"), OnDelivery},
    {CorrectLabels, Picture("labels-correct"), OnDelivery},
    {StepAfterLabel, {}, Checked},
    {NextUnchecked, Picture("next-unchecked"), OnDelivery, "次の未検査"},
    {ShowPosition, Picture("location"), OnDelivery},
    {ShowManual, {}, Plain},
    {ShowKeys, {}, Plain},
    {ChangeKeys, {}, Plain},
    {About, {}, Plain},
};

constexpr FrameCommand modes[] = {Mode1, Mode2, Mode3, Mode4, Mode6, ModeThumbnails, ModeList};
constexpr FrameCommand trees[] = {TreeWorkTypeFull, TreePlace, TreeWorkType};
constexpr FrameCommand titles[] = {TitleFileName, TitleJapaneseFileName, TitlePhotoTitle};

QString Text(const char* text)
{
    return QString::fromUtf8(text);
}

QAction* MakeAction(const Row& row, QMainWindow* frame)
{
    auto* action = new QAction(Text(KeyRowOf(row.command).text), frame);
    action->setData(static_cast<int>(row.command));
    if (row.picture) action->setIcon(PictureIcon(*row.picture));
    if (row.shortText != nullptr) action->setIconText(Text(row.shortText));
    action->setCheckable(row.kind == CheckedOnDelivery || row.kind == Checked);
    action->setStatusTip(QString());
    frame->addAction(action);
    return action;
}

void SetTip(QAction& action, FrameCommand command)
{
    action.setToolTip(WithKey(MenuWords(action.text()), command));
}
} // namespace

FrameActions::FrameActions(QMainWindow* frame)
{
    using enum FrameCommand;
    for (const Row& row : rows) actions[row.command] = MakeAction(row, frame);
    for (const FrameCommand label :
         {LabelOk, LabelNg1, LabelNg2, LabelNg3, LabelFree, LabelComment, RemoveLabels}) {
        withShift[label] = new QAction(frame);
        frame->addAction(withShift[label]);
    }
    for (const auto& group :
         {std::span<const FrameCommand>(modes), std::span<const FrameCommand>(trees),
          std::span<const FrameCommand>(titles)}) {
        auto* exclusive = new QActionGroup(frame);
        for (const FrameCommand command : group) exclusive->addAction(actions[command]);
    }
    ApplyKeys();
}

void FrameActions::Adopt(FrameCommand command, QAction* action)
{
    actions[command] = action;
    action->setText(Text(KeyRowOf(command).text));
    action->setShortcuts(CurrentKeys().Of(command));
}

void FrameActions::ApplyKeys()
{
    for (const auto& [command, action] : actions) {
        action->setShortcuts(CurrentKeys().Of(command));
        SetTip(*action, command);
    }
    for (const auto& [command, action] : withShift) {
        action->setShortcuts(CurrentKeys().WithShift(command));
    }
}

void FrameActions::ShowLabelNames(const ToviLabelManager& labels)
{
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        const FrameCommand command = LabelCommandOf(slot);
        if (command == FrameCommand::LabelComment) continue;
        // An ampersand of the user's own marks no key.
        actions[command]->setText(
            QtText(LabelCaption(labels, slot)).replace(u'&', QStringLiteral("&&")));
        SetTip(*actions[command], command);
    }
}

void FrameActions::EnableForDelivery(bool isOpen)
{
    for (const Row& row : rows) {
        if (row.kind == Plain || row.kind == Checked) continue;
        actions[row.command]->setEnabled(isOpen);
    }
    for (const auto& [command, action] : withShift) action->setEnabled(isOpen);
}

void FrameActions::DisableForPhotos()
{
    using Command = FrameCommand;
    for (const Command command :
         {WriteReport, SavePhoto, SaveShownPhotos, ZoomPhoto, SlideMode, Command::LabelOk,
          Command::LabelNg1, Command::LabelNg2, Command::LabelNg3, Command::LabelFree,
          Command::LabelComment, RemoveLabels, CorrectLabels, NextUnchecked}) {
        actions[command]->setEnabled(false);
    }
}

void FrameActions::FillMenus(QMainWindow* frame, QMenu* recent,
                             const QList<QAction*>& windows) const
{
    using enum FrameCommand;
    const auto fill = [this](QMenu* menu, std::initializer_list<FrameCommand> commands) {
        for (const FrameCommand command : commands) menu->addAction(actions.at(command));
    };
    const auto add = [frame](const char* title) { return frame->menuBar()->addMenu(Text(title)); };

    QMenu* file = add("ファイル(&F)");
    fill(file, {Open, OpenWithFamily, OpenDiscs});
    file->addMenu(recent);
    file->addSeparator();
    fill(file, {OpenRecord, Save, SaveAs});
    file->addSeparator();
    fill(file, {WriteReport, SavePhoto, SaveShownPhotos, ShowIndex});
    file->addSeparator();
    fill(file, {CloseDelivery, Quit});

    fill(add("編集(&D)"), {Undo, Redo});

    QMenu* view = add("表示(&V)");
    for (const FrameCommand command : modes) view->addAction(actions.at(command));
    view->addSeparator();
    fill(view, {ShowInfoList, ShowComments});
    QMenu* title = view->addMenu(Text("写真タイトル表示(&Y)"));
    for (const FrameCommand command : titles) title->addAction(actions.at(command));
    QMenu* tree = view->addMenu(Text("分類の木(&K)"));
    for (const FrameCommand command : trees) tree->addAction(actions.at(command));
    view->addSeparator();
    fill(view, {ZoomPhoto, NextZoom, ArrangeZooms, CloseZooms});
    view->addSeparator();
    fill(view, {SlideMode});
    view->addSeparator();
    view->addActions(windows);

    QMenu* move = add("移動(&G)");
    fill(move, {FirstPhoto, PreviousPhoto, NextPhoto, LastPhoto});
    move->addSeparator();
    fill(move, {FirstPage, PreviousPage, NextPage, LastPage});
    move->addSeparator();
    fill(move, {NextUnchecked});

    QMenu* review = add("検査(&E)");
    fill(review, {LabelOk, LabelNg1, LabelNg2, LabelNg3, LabelFree, LabelComment, CommentDialog});
    review->addSeparator();
    fill(review, {RemoveLabels, CorrectLabels, StepAfterLabel});
    review->addSeparator();
    fill(review, {FrameCommand::Search, ShowExtraction, EndExtraction});
    review->addSeparator();
    fill(review, {CheckTampering, SetUp});

    QMenu* help = add("ヘルプ(&H)");
    fill(help, {ShowManual, ShowKeys, ChangeKeys});
    help->addSeparator();
    fill(help, {About});
}

void FrameActions::FillToolBar(QToolBar* toolBar, QWidget* pageLabel) const
{
    const auto fill = [&](std::initializer_list<FrameCommand> commands) {
        for (const FrameCommand command : commands) toolBar->addAction(actions.at(command));
    };
    fill({Open, Save});
    toolBar->addSeparator();
    fill({FirstPage, PreviousPage});
    toolBar->addWidget(pageLabel);
    fill({NextPage, LastPage});
    toolBar->addSeparator();
    for (const FrameCommand command : modes) toolBar->addAction(actions.at(command));
    toolBar->addSeparator();
    fill({ZoomPhoto, NextUnchecked, FrameCommand::Search, ShowExtraction});
}
