#include "hosts/viewer/FrameActions.h"

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
    CheckedOnDelivery
};

struct Row
{
    FrameCommand command;
    const char* text;
    const char* shortcut;
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
    {Open, "開く(&O)...", "Ctrl+O", Picture("open"), Plain, "開く"},
    {OpenWithFamily, "要領を指定して開く(&F)...", "Ctrl+Shift+O", {}, Plain},
    {OpenDiscs, "複数のメディアから開く(&D)...", "", {}, Plain},
    {OpenRecord, "検査状況を開く(&R)...", "Ctrl+R", Picture("record-open"), OnDelivery},
    {Save, "上書き保存(&S)", "Ctrl+S", Picture("save"), OnDelivery, "保存"},
    {SaveAs, "名前を付けて保存(&A)...", "Ctrl+Shift+S", Picture("save-as"), OnDelivery},
    {WriteReport, "検査結果の出力(&P)...", "Ctrl+E", {}, OnDelivery},
    {SavePhoto, "選択中の写真を保存(&H)...", "", {}, OnDelivery},
    {SaveShownPhotos, "表示中の写真を保存(&W)...", "", {}, OnDelivery},
    {ShowIndex, "工事の概要をブラウザで表示(&I)", "", {}, OnDelivery},
    {CloseDelivery, "閉じる(&C)", "Ctrl+W", {}, OnDelivery},
    {Quit, "終了(&X)", "Ctrl+Q", Picture("quit"), Plain},
    {Undo, "元に戻す(&U)", "Ctrl+Z", {}, OnDelivery},
    {Redo, "やり直す(&R)", "Ctrl+Shift+Z", {}, OnDelivery},
    {FirstPage, "最初のページ(&F)", "Ctrl+Home", Picture("page-first"), OnDelivery, "最初"},
    {PreviousPage, "前のページ(&P)", "PgUp", Picture("page-previous"), OnDelivery, "前"},
    {NextPage, "次のページ(&N)", "PgDown", Picture("page-next"), OnDelivery, "次"},
    {LastPage, "最後のページ(&L)", "Ctrl+End", Picture("page-last"), OnDelivery, "最後"},
    {Mode1, "1枚表示(&1)", "Ctrl+1", Picture("mode-1"), CheckedOnDelivery, "1枚"},
    {Mode2, "2枚表示(&2)", "Ctrl+2", Picture("mode-2"), CheckedOnDelivery, "2枚"},
    {Mode3, "3枚表示(&3)", "Ctrl+3", Picture("mode-3"), CheckedOnDelivery, "3枚"},
    {Mode4, "4枚表示(&4)", "Ctrl+4", Picture("mode-4"), CheckedOnDelivery, "4枚"},
    {Mode6, "6枚表示(&6)", "Ctrl+5", Picture("mode-6"), CheckedOnDelivery, "6枚"},
    {ModeThumbnails, "サムネイル表示(&T)", "Ctrl+6", Picture("mode-thumbnails"), CheckedOnDelivery,
     "サムネイル"},
    {ModeList, "リスト表示(&L)", "Ctrl+7", Picture("mode-list"), CheckedOnDelivery, "リスト"},
    {TreeWorkTypeFull, "大分類・写真区分・工種(&K)", "", {}, CheckedOnDelivery},
    {TreePlace, "撮影箇所(&S)", "", {}, CheckedOnDelivery},
    {TreeWorkType, "工種(&W)", "", {}, CheckedOnDelivery},
    {TitleFileName, "写真ファイル名(&F)", "", {}, CheckedOnDelivery},
    {TitleJapaneseFileName, "写真ファイル日本語名(&J)", "", {}, CheckedOnDelivery},
    {TitlePhotoTitle, "写真タイトル(&T)", "", {}, CheckedOnDelivery},
    {ShowInfoList, "写真情報リスト(&I)", "Ctrl+I", {}, CheckedOnDelivery},
    {ShowComments, "コメント(&C)", "Ctrl+M", Picture("comment-show"), CheckedOnDelivery},
    {CheckTampering, "画像加工検知を行う(&D)", "", {}, CheckedOnDelivery},
    {Search, "写真を検索(&F)...", "Ctrl+F", Picture("search"), OnDelivery, "検索"},
    {ShowExtraction, "抽出の条件(&T)...", "Ctrl+Shift+E", Picture("extract"), OnDelivery, "抽出"},
    {EndExtraction, "抽出と検索を解除(&U)", "Ctrl+Shift+F", {}, Plain},
    {SetUp, "設定(&S)...", "Ctrl+,", Picture("settings"), OnDelivery, "設定"},
    {ZoomPhoto, "写真拡大[情報](&Z)", "Z", Picture("zoom"), OnDelivery, "拡大"},
    {NextZoom, "次の拡大写真へ移る(&U)", "F6", {}, OnDelivery},
    {ArrangeZooms, "拡大写真の整列(&A)", "Ctrl+T", Picture("arrange"), OnDelivery},
    {CloseZooms, "拡大写真の全閉(&Q)", "Ctrl+Shift+W", Picture("close-all"), OnDelivery},
    {SlideMode, "スライドモード(&S)", "F5", Picture("slide-show"), OnDelivery},
    {LabelOk, "OK", "1", Picture("label-ok-on"), OnDelivery},
    {LabelNg1, "NG1", "2", Picture("label-ng1-on"), OnDelivery},
    {LabelNg2, "NG2", "3", Picture("label-ng2-on"), OnDelivery},
    {LabelNg3, "NG3", "4", Picture("label-ng3-on"), OnDelivery},
    {LabelFree, "任意", "5", Picture("label-free-on"), OnDelivery},
    {LabelComment, "コメントの記入(&C)...", "C", Picture("label-comment-on"), OnDelivery},
    {RemoveLabels, "すべての付箋を削除(&D)", "0", Picture("labels-clear"), OnDelivery},
    {CorrectLabels, "付箋の一括訂正・削除(&A)...", "", Picture("labels-correct"), OnDelivery},
    {NextUnchecked, "次の未検査の写真(&N)", "N", Picture("next-unchecked"), OnDelivery,
     "次の未検査"},
    {ShowPosition, "写真格納位置の確認(&P)", "Ctrl+L", Picture("location"), OnDelivery},
    {About, "バージョン情報(&A)", "", {}, Plain},
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
    auto* action = new QAction(Text(row.text), frame);
    action->setData(static_cast<int>(row.command));
    if (*row.shortcut != '\0') action->setShortcut(QKeySequence(Text(row.shortcut)));
    if (row.picture) action->setIcon(PictureIcon(*row.picture));
    if (row.shortText != nullptr) action->setIconText(Text(row.shortText));
    action->setCheckable(row.kind == CheckedOnDelivery);
    QString tip = Text(row.text).remove(QStringLiteral("..."));
    if (const auto mnemonic = tip.indexOf(QStringLiteral("(&")); mnemonic >= 0)
        tip.truncate(mnemonic);
    if (*row.shortcut != '\0') tip += QStringLiteral("（%1）").arg(Text(row.shortcut));
    action->setToolTip(tip);
    action->setStatusTip(QString());
    frame->addAction(action);
    return action;
}
} // namespace

FrameActions::FrameActions(QMainWindow* frame)
{
    for (const Row& row : rows) actions[row.command] = MakeAction(row, frame);
    for (const auto& group :
         {std::span<const FrameCommand>(modes), std::span<const FrameCommand>(trees),
          std::span<const FrameCommand>(titles)}) {
        auto* exclusive = new QActionGroup(frame);
        for (const FrameCommand command : group) exclusive->addAction(actions[command]);
    }
}

void FrameActions::EnableForDelivery(bool isOpen)
{
    for (const Row& row : rows) {
        if (row.kind != Plain) actions[row.command]->setEnabled(isOpen);
    }
}

void FrameActions::FillMenus(QMainWindow* frame, QMenu* recent,
                             const QList<QAction*>& windows) const
{
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
    fill(move, {FirstPage, PreviousPage, NextPage, LastPage});
    move->addSeparator();
    fill(move, {NextUnchecked});

    QMenu* review = add("検査(&E)");
    fill(review, {LabelOk, LabelNg1, LabelNg2, LabelNg3, LabelFree, LabelComment});
    review->addSeparator();
    fill(review, {RemoveLabels, CorrectLabels});
    review->addSeparator();
    fill(review, {FrameCommand::Search, ShowExtraction, EndExtraction});
    review->addSeparator();
    fill(review, {CheckTampering, SetUp});

    fill(add("ヘルプ(&H)"), {About});
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
