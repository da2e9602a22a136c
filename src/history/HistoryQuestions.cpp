#include "history/HistoryQuestions.h"

#include "platform/files/FileStatus.h"
#include "platform/files/FileVersion.h"
#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"

#include <cstdlib>

namespace
{
/// An option and what it means.
struct Way
{
    Choice::Option option;
    InspectionStart start;
};

CString TimeText(std::int64_t time)
{
    // YYYY/MM/DD HH:MM:SS
    const CString text = LocalTimeText(time);
    if (text.size() != 19) return {};
    return Format("%d月%d日 %s", std::atoi(text.substr(5, 2).c_str()),
                  std::atoi(text.substr(8, 2).c_str()), text.substr(11, 5).c_str());
}

/// How the record of \p past stands to it, in a sentence.
CString RecordWords(const PastInspection& past)
{
    if (!past.record) return "検査状況はまだ保存していません。";
    const CString name = MibGetFileName(past.record->mark.path);
    if (past.position == past.record->steps) return "検査状況 " + name + " に保存済みです。";
    return "検査状況 " + name + " に保存した後の変更を含みます。";
}

/// What may be taken up of the record of \p past, if that says anything else than it does.
std::optional<Way> WayOfRecord(const PastInspection& past)
{
    if (!past.record) return std::nullopt;
    const CString& path = past.record->mark.path;
    const CString version = FileVersion(path);
    const bool isChanged = version != past.record->mark.version;
    if (version.empty() || (!isChanged && past.position == past.record->steps)) return std::nullopt;
    const CString text = "保存した検査状況 " + MibGetFileName(path) + " を開く";
    const CString facts = isChanged ? CString("保存した後に、ほかのプログラムで変更されています。")
                                    : FactsOf(past.record->mark.reviews, past.worked);
    return Way{{text, path + "\n" + facts}, {-1, path}};
}

std::vector<Way> WaysOn(const std::vector<PastInspection>& past, const CString& named)
{
    std::vector<Way> ways;
    for (std::size_t at = 0; at < past.size(); ++at) {
        const PastInspection& one = past[at];
        // Those of the last one stand above all ways.
        const CString facts = at == 0 ? "" : FactsOf(ReviewsAfter(one), one.worked) + "。";
        ways.push_back(
            {{at == 0 ? "前回の続きを開く" : "その前の検査の続きを開く", facts + RecordWords(one)},
             {static_cast<int>(at), {}}});
        if (at > 0 || !named.empty()) continue;
        if (std::optional<Way> way = WayOfRecord(one)) ways.push_back(std::move(*way));
    }
    if (named.empty()) {
        ways.push_back(
            {{"付箋の付いていない状態から始める", "前回の検査も残ります。次に開くときに選べます。"},
             {}});
    } else {
        ways.push_back({{"指定した検査状況 " + MibGetFileName(named) + " を開く",
                         "前回の検査も残ります。次に開くときに選べます。"},
                        {-1, named}});
    }
    return ways;
}
} // namespace

CString FactsOf(const PhotoReviews& reviews, std::int64_t time)
{
    int ok = 0;
    int ng = 0;
    int unchecked = 0;
    for (const PhotoReview& review : reviews) {
        const bool isNG =
            review.labels[LabelNg1] || review.labels[LabelNg2] || review.labels[LabelNg3];
        ok += review.labels[LabelOk];
        ng += isNG;
        unchecked += !isNG && !review.labels[LabelOk];
    }
    return Format("OK %d、NG %d、未検査 %d、", ok, ng, unchecked) + TimeText(time);
}

OthersInspection AskAboutOthers(const LockHolder& holder)
{
    UserInterface* const user = GetHostServices().userInterface;
    if (user == nullptr) return OthersInspection::Look;
    Choice choice;
    choice.title = "検査中の納品データ";
    choice.accept = "開く";
    choice.enterAccepts = true;
    choice.notes.Add("この納品データは別のプログラム（" + holder.program + "、プロセス番号 " +
                     holder.process + "、利用者 " + holder.user + "、コンピュータ " + holder.host +
                     "）で検査中です。");
    choice.options.Add({"見るだけで開く", "付箋とコメントは変えられません。"});
    choice.options.Add(
        {"ここに引き継ぐ",
         "検査の続きはここで行います。向こうは見るだけになり、まだ記録されていない変更は向こうだけ"
         "に残ります。"});
    int option = 0;
    const bool takesOver = user->Choose(choice, option) && option == 1;
    return takesOver ? OthersInspection::TakeOver : OthersInspection::Look;
}

InspectionStart AskAboutPast(const std::vector<PastInspection>& past, const CString& named)
{
    UserInterface* const user = GetHostServices().userInterface;
    if (user == nullptr) return {-1, named};
    Choice choice;
    choice.title = "前回の検査";
    choice.accept = "開く";
    choice.enterAccepts = true;
    const PastInspection& last = past.front();
    choice.notes.Add("前回の続き（" + FactsOf(ReviewsAfter(last), last.worked) +
                     "）を開きますか。");
    const std::vector<Way> ways = WaysOn(past, named);
    for (const Way& way : ways) choice.options.Add(way.option);
    int option = 0;
    // Whoever gives up refuses.
    if (!user->Choose(choice, option)) return ways.back().start;
    return ways[static_cast<std::size_t>(option)].start;
}
