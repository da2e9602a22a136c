#include "inspection/RecordConflict.h"

#include "delivery/ToviData.h"
#include "inspection/RecordProblems.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "review/RecordName.h"

namespace
{
constexpr std::size_t mostNamed = 5;

using Answer = RecordConflictAnswer;
using Side = RecordMerge::Side;

/// An option and what it means.
struct Way
{
    Choice::Option option;
    Answer answer;
};

/// The serial number and the file name of \p photo, as far as it has them.
CString NameOf(const ToviPhoto& photo, const ToviItemDef& definitions)
{
    const auto value = [&](const char* title) {
        return CString(photo.GetTitle(definitions.GetIndexFromTitle(title)));
    };
    const CString serial = value("シリアル番号");
    const CString file = value("写真ファイル名");
    if (serial.empty() || file.empty()) return serial + file;
    return serial + "（" + file + "）";
}

CString TellContradictions(ToviData& document, const std::vector<int>& photos)
{
    CString text = Format("両方で違うように変えた写真が%zu枚あります: ", photos.size());
    for (std::size_t i = 0; i < std::min(photos.size(), mostNamed); ++i) {
        if (i > 0) text += "、";
        text += NameOf(*document.GetPhotoActualPhotoArray(photos[i]), *document.GetItemDef());
    }
    if (photos.size() > mostNamed) text += Format("、ほか%zu枚", photos.size() - mostNamed);
    return text;
}

std::vector<Way> WaysToMerge(const RecordMerge& merge)
{
    const CString counts = Format("ほかのプログラムが変えた%d枚と、ここで変えた%d枚を合わせます。",
                                  merge.CountOf(Side::Theirs), merge.CountOf(Side::Mine));
    if (merge.Contradictions().empty()) {
        return {{{"両方の変更を合わせて保存する。", counts}, {Answer::Merge}}};
    }
    return {{{"合わせて保存し、食い違う写真はここでの変更を残す。", counts},
             {Answer::Merge, {}, Side::Mine}},
            {{"合わせて保存し、食い違う写真はほかのプログラムの変更を残す。", counts},
             {Answer::Merge, {}, Side::Theirs}}};
}

std::vector<Way> WaysOut(const RecordMerge* merge)
{
    std::vector<Way> ways = merge == nullptr ? std::vector<Way>() : WaysToMerge(*merge);
    ways.push_back(
        {{"別の名前で保存する。", "今のファイルはそのまま残ります。"}, {Answer::Elsewhere}});
    return ways;
}

/// A name is empty when the user has thought better of it.
CString ChooseOtherName(UserInterface& user, const CString& record)
{
    const CString proposed = ProposedOtherPath(record);
    CString path;
    user.ChooseSaveFile(
        {FolderOfFile(proposed), MibGetFileName(proposed), "xml", "検査状況(*.xml)", "*.xml"},
        path);
    return path;
}
} // namespace

bool AskAboutOtherDelivery(ToviData& document, const CString& record)
{
    UserInterface* const user = GetHostServices().userInterface;
    if (user == nullptr) return false;
    Choice choice;
    choice.title = "検査状況を開く";
    choice.accept = "開く";
    choice.notes.Add(RecordIsOther(document, record));
    choice.options.Add({"それでもこの納品データの検査状況として開く。",
                        "写真の並び順で対応させます。別の工事の記録なら、付箋とコメントが違う写真"
                        "に付きます。"});
    int chosen = 0;
    return user->Choose(choice, chosen);
}

RecordConflictAnswer AskAboutConflict(ToviData& document, const CString& record,
                                      const RecordMerge* merge)
{
    UserInterface* const user = GetHostServices().userInterface;
    if (user == nullptr) return {};
    Choice choice;
    choice.title = "検査状況の保存";
    choice.accept = "保存";
    choice.notes.Add(MibGetFileName(record) +
                     " は、ここで開いた後にほかのプログラムで変更されています。");
    const std::vector<Way> ways = WaysOut(merge);
    for (const Way& way : ways) choice.options.Add(way.option);
    if (merge == nullptr) {
        choice.notes.Add("この納品データの検査状況として読めないため、合わせることはできません。");
    } else if (!merge->Contradictions().empty()) {
        choice.notes.Add(TellContradictions(document, merge->Contradictions()));
    }
    int chosen = 0;
    if (!user->Choose(choice, chosen)) return {};
    Answer answer = ways[static_cast<std::size_t>(chosen)].answer;
    if (answer.decision != Answer::Elsewhere) return answer;
    answer.path = ChooseOtherName(*user, record);
    return answer.path.empty() ? Answer() : answer;
}
