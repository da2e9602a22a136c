#include "windows/keys/KeyTable.h"

#include "photos/LabelSlots.h"
#include "platform/text/Text.h"

#include <algorithm>

namespace
{
using enum KeyPlace;
using Command = FrameCommand;
using Group = KeyGroup;

/// Group by group, as the groups are listed.
constexpr KeyRow rows[] = {
    {Command::Open, "Open", Group::File, "開く(&O)...", "Ctrl+O"},
    {Command::OpenWithFamily, "OpenWithFamily", Group::File, "要領を指定して開く(&F)...",
     "Ctrl+Shift+O"},
    {Command::OpenDiscs, "OpenDiscs", Group::File, "複数のメディアから開く(&D)..."},
    {Command::OpenRecord, "OpenRecord", Group::File, "検査状況を開く(&R)...", "Ctrl+R"},
    {Command::Save, "Save", Group::File, "上書き保存(&S)", "Ctrl+S"},
    {Command::SaveAs, "SaveAs", Group::File, "名前を付けて保存(&A)...", "Ctrl+Shift+S"},
    {Command::WriteReport, "WriteReport", Group::File, "検査結果の出力(&P)...", "Ctrl+E"},
    {Command::SavePhoto, "SavePhoto", Group::File, "選択中の写真を保存(&H)..."},
    {Command::SaveShownPhotos, "SaveShownPhotos", Group::File, "表示中の写真を保存(&W)..."},
    {Command::ShowIndex, "ShowIndex", Group::File, "工事の概要をブラウザで表示(&I)"},
    {Command::CloseDelivery, "CloseDelivery", Group::File, "閉じる(&C)", "Ctrl+W"},
    {Command::Quit, "Quit", Group::File, "終了(&X)", "Ctrl+Q"},
    {Command::Mode1, "Mode1", Group::View, "1枚表示(&1)", "Ctrl+1"},
    {Command::Mode2, "Mode2", Group::View, "2枚表示(&2)", "Ctrl+2"},
    {Command::Mode3, "Mode3", Group::View, "3枚表示(&3)", "Ctrl+3"},
    {Command::Mode4, "Mode4", Group::View, "4枚表示(&4)", "Ctrl+4"},
    {Command::Mode6, "Mode6", Group::View, "6枚表示(&6)", "Ctrl+5"},
    {Command::ModeThumbnails, "ModeThumbnails", Group::View, "サムネイル表示(&T)", "Ctrl+6"},
    {Command::ModeList, "ModeList", Group::View, "リスト表示(&L)", "Ctrl+7"},
    {Command::ShowInfoList, "ShowInfoList", Group::View, "写真情報リスト(&I)", "Ctrl+I"},
    {Command::ShowComments, "ShowComments", Group::View, "コメント(&C)", "Ctrl+M"},
    {Command::TitleFileName, "TitleFileName", Group::View, "写真ファイル名(&F)"},
    {Command::TitleJapaneseFileName, "TitleJapaneseFileName", Group::View,
     "写真ファイル日本語名(&J)"},
    {Command::TitlePhotoTitle, "TitlePhotoTitle", Group::View, "写真タイトル(&T)"},
    {Command::TreeWorkTypeFull, "TreeWorkTypeFull", Group::View, "大分類・写真区分・工種(&K)"},
    {Command::TreePlace, "TreePlace", Group::View, "撮影箇所(&S)"},
    {Command::TreeWorkType, "TreeWorkType", Group::View, "工種(&W)"},
    {Command::ZoomPhoto, "ZoomPhoto", Group::View, "写真拡大[情報](&Z)", "Z"},
    {Command::NextZoom, "NextZoom", Group::View, "次の拡大写真へ移る(&U)", "F6", nullptr,
     Everywhere},
    {Command::ArrangeZooms, "ArrangeZooms", Group::View, "拡大写真の整列(&A)", "Ctrl+T"},
    {Command::CloseZooms, "CloseZooms", Group::View, "拡大写真の全閉(&Q)", "Ctrl+Shift+W"},
    {Command::SlideMode, "SlideMode", Group::View, "スライドモード(&S)", "F5"},
    {Command::Fixed, "", Group::View, "スライドモードを終える", "Esc"},
    {Command::ShowDetail, "ShowDetail", Group::View, "詳細(&D)", "Ctrl+D"},
    {Command::ShowPosition, "ShowPosition", Group::View, "写真格納位置の確認(&P)", "Ctrl+L"},
    {Command::FirstPhoto, "FirstPhoto", Group::Move, "最初の写真(&H)", "Home"},
    {Command::PreviousPhoto, "PreviousPhoto", Group::Move, "前の写真(&B)", "Backspace"},
    {Command::NextPhoto, "NextPhoto", Group::Move, "次の写真(&S)", "Space"},
    {Command::LastPhoto, "LastPhoto", Group::Move, "最後の写真(&E)", "End"},
    {Command::FirstPage, "FirstPage", Group::Move, "最初のページ(&F)", "Ctrl+Home"},
    {Command::PreviousPage, "PreviousPage", Group::Move, "前のページ(&P)", "PgUp"},
    {Command::NextPage, "NextPage", Group::Move, "次のページ(&N)", "PgDown"},
    {Command::LastPage, "LastPage", Group::Move, "最後のページ(&L)", "Ctrl+End"},
    {Command::NextUnchecked, "NextUnchecked", Group::Move, "次の未検査の写真(&U)", "N"},
    {Command::Fixed, "", Group::Move, "隣の写真", "Left; Right; Up; Down"},
    {Command::Fixed, "", Group::Move, "続けて選ぶ（サムネイル、リスト）",
     "Shift+Left; Shift+Right; Shift+Up; Shift+Down"},
    {Command::Fixed, "", Group::Move, "すべて選ぶ（サムネイル、リスト）", "Ctrl+A"},
    {Command::LabelOk, "LabelOk", Group::Review, "OK", "O", "1", Everywhere},
    {Command::LabelNg1, "LabelNg1", Group::Review, "NG1", "1", "2", Everywhere},
    {Command::LabelNg2, "LabelNg2", Group::Review, "NG2", "2", "3", Everywhere},
    {Command::LabelNg3, "LabelNg3", Group::Review, "NG3", "3", "4", Everywhere},
    {Command::LabelFree, "LabelFree", Group::Review, "任意", "F", "5", Everywhere},
    {Command::LabelComment, "LabelComment", Group::Review, "コメントの記入(&C)", "C", nullptr,
     Everywhere},
    {Command::CommentDialog, "CommentDialog", Group::Review, "ウィンドウでコメントを記入(&M)..."},
    {Command::RemoveLabels, "RemoveLabels", Group::Review, "すべての付箋を削除(&D)", "Del", "0",
     Everywhere},
    {Command::CorrectLabels, "CorrectLabels", Group::Review, "付箋の一括訂正・削除(&A)..."},
    {Command::StepAfterLabel, "StepAfterLabel", Group::Review, "付けたら次へ(&N)"},
    {Command::Undo, "Undo", Group::Review, "元に戻す(&U)", "Ctrl+Z"},
    {Command::Redo, "Redo", Group::Review, "やり直す(&R)", "Ctrl+Shift+Z"},
    {Command::Search, "Search", Group::Review, "写真を検索(&F)...", "Ctrl+F"},
    {Command::ShowExtraction, "ShowExtraction", Group::Review, "抽出の条件(&T)...", "Ctrl+Shift+E"},
    {Command::EndExtraction, "EndExtraction", Group::Review, "抽出と検索を解除(&U)",
     "Ctrl+Shift+F"},
    {Command::CheckTampering, "CheckTampering", Group::Review, "画像加工検知を行う(&G)"},
    {Command::SetUp, "SetUp", Group::Review, "設定(&S)...", "Ctrl+,"},
    {Command::Fixed, "", Group::Review, "コメントの欄で定型文を使う",
     "Alt+1; Alt+2; Alt+3; Alt+4; Alt+5; Alt+6; Alt+7; Alt+8; Alt+9"},
    {Command::ShowManual, "ShowManual", Group::Help, "使い方(&M)", "F1", nullptr, Everywhere},
    {Command::ShowKeys, "ShowKeys", Group::Help, "キーの一覧(&K)", "?"},
    {Command::ChangeKeys, "ChangeKeys", Group::Help, "キーの変更(&C)..."},
    {Command::About, "About", Group::Help, "バージョン情報(&A)"},
    {Command::ZoomPrevious, "ZoomPrevious", Group::Zoom, "前の写真", "PgUp", nullptr, Zoom},
    {Command::ZoomNext, "ZoomNext", Group::Zoom, "次の写真", "PgDown", nullptr, Zoom},
    {Command::ZoomRotateLeft, "ZoomRotateLeft", Group::Zoom, "左回転", "Ctrl+L", nullptr, Zoom},
    {Command::ZoomRotateRight, "ZoomRotateRight", Group::Zoom, "右回転", "Ctrl+R", nullptr, Zoom},
    {Command::ZoomBrighter, "ZoomBrighter", Group::Zoom, "明るく", "Ctrl+Up", nullptr, Zoom},
    {Command::ZoomDarker, "ZoomDarker", Group::Zoom, "暗く", "Ctrl+Down", nullptr, Zoom},
    {Command::ZoomRevert, "ZoomRevert", Group::Zoom, "回転と明るさを戻す", "Ctrl+Z", nullptr, Zoom},
    {Command::ZoomInformation, "ZoomInformation", Group::Zoom, "写真情報を出す、隠す", "Ctrl+I",
     nullptr, Zoom},
    {Command::ZoomSave, "ZoomSave", Group::Zoom, "写真を保存", "Ctrl+S", nullptr, Zoom},
    {Command::ZoomFix, "ZoomFix", Group::Zoom, "このウィンドウの写真を固定", "Ctrl+F", nullptr,
     Zoom},
    {Command::ZoomArrange, "ZoomArrange", Group::Zoom, "ウィンドウを並べる", "Ctrl+T", nullptr,
     Zoom},
    {Command::ZoomClose, "ZoomClose", Group::Zoom, "ウィンドウを閉じる", "Ctrl+W", nullptr, Zoom},
    {Command::ZoomCloseAll, "ZoomCloseAll", Group::Zoom, "すべて閉じる", "Ctrl+Shift+W", nullptr,
     Zoom},
    {Command::Fixed, "", Group::Zoom, "拡大、縮小", "+; -", nullptr, Zoom},
    {Command::Fixed, "", Group::Zoom, "等倍、全体", "*; /", nullptr, Zoom},
    {Command::Fixed, "", Group::Zoom, "閉じる", "Esc", nullptr, Zoom}};

/// By slot.
constexpr FrameCommand labelCommands[labelCount] = {Command::LabelOk,      Command::LabelNg1,
                                                    Command::LabelNg2,     Command::LabelNg3,
                                                    Command::LabelComment, Command::LabelFree};
} // namespace

std::span<const KeyRow> KeyTable()
{
    return rows;
}

const KeyRow& KeyRowOf(FrameCommand command)
{
    const auto* const row = std::ranges::find(rows, command, &KeyRow::command);
    if (row == std::end(rows)) throw InvalidArgument("a command without keys");
    return *row;
}

QString MenuWords(QString text)
{
    text.remove(QStringLiteral("..."));
    if (const auto mnemonic = text.lastIndexOf(QStringLiteral("(&")); mnemonic >= 0)
        text.truncate(mnemonic);
    return text.replace(QStringLiteral("&&"), QStringLiteral("&"));
}

QString GroupTitle(KeyGroup group)
{
    switch (group) {
    case KeyGroup::File:
        return QStringLiteral("ファイル");
    case KeyGroup::View:
        return QStringLiteral("表示");
    case KeyGroup::Move:
        return QStringLiteral("移動");
    case KeyGroup::Review:
        return QStringLiteral("検査");
    case KeyGroup::Help:
        return QStringLiteral("ヘルプ");
    case KeyGroup::Zoom:
        break;
    }
    return QStringLiteral("拡大写真のウィンドウ");
}

FrameCommand LabelCommandOf(unsigned int slot)
{
    return labelCommands[slot];
}

std::optional<unsigned int> LabelOfCommand(FrameCommand command)
{
    const auto* const found = std::ranges::find(labelCommands, command);
    if (found == std::end(labelCommands)) return {};
    return static_cast<unsigned int>(found - std::begin(labelCommands));
}
