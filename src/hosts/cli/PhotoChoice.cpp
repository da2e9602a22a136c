#include "hosts/cli/PhotoChoice.h"

#include <charconv>
#include <optional>
#include <sstream>

namespace
{
struct Range
{
    int first;
    int last;
};

/// "7" or "5-9".
std::optional<Range> ParseRange(const std::string& text)
{
    Range range{};
    const char* const end = text.data() + text.size();
    const auto first = std::from_chars(text.data(), end, range.first);
    if (first.ec != std::errc() || range.first < 0) return std::nullopt;
    range.last = range.first;
    if (first.ptr == end) return range;
    if (*first.ptr != '-') return std::nullopt;
    const auto last = std::from_chars(first.ptr + 1, end, range.last);
    if (last.ec != std::errc() || last.ptr != end || range.last < range.first) return std::nullopt;
    return range;
}

bool AddIndexes(const ToviData& document, const std::string& at, ToviPhotoRef& chosen)
{
    const int total = document.GetTotalCountPhoto();
    std::istringstream pieces(at);
    for (std::string piece; std::getline(pieces, piece, ',');) {
        const std::optional<Range> range = ParseRange(piece);
        if (!range || range->last >= total) {
            Complain("--at の「" + piece + "」に当たる写真がありません。" +
                     Format("0から%dまでの番号を 0,3,5-9 のように指定してください。", total - 1));
            return false;
        }
        for (int index = range->first; index <= range->last; ++index) chosen.Add(index);
    }
    return true;
}
} // namespace

Option AtOption(PhotoChoice& choice)
{
    return {.name = "--at",
            .help = "写真の番号（0から。例: 0,3,5-9）",
            .target = &choice.at,
            .valueName = "LIST"};
}

bool FindChosen(ToviData& document, const PhotoChoice& choice, ToviPhotoRef& chosen)
{
    chosen.RemoveAll();
    if (!choice.at.empty() && !AddIndexes(document, choice.at, chosen)) return false;
    if (!choice.nodes.empty()) {
        if (!SelectNode(document, choice.nodes)) return false;
        chosen.Append(document.GetCurrentArray());
    }
    if (choice.IsEmpty()) {
        for (int index = 0; index < document.GetTotalCountPhoto(); ++index) chosen.Add(index);
    }
    return true;
}
