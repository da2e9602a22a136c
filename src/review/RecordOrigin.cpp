#include "review/RecordOrigin.h"

#include "items/ToviItemDef.h"
#include "photos/PhotoPaths.h"
#include "photos/ToviPhotoArray.h"
#include "platform/files/Digest.h"
#include "platform/files/MibFile.h"

#include <algorithm>
#include <charconv>

namespace
{
/// Enough to tell any two works apart, and few enough for a slow drive.
constexpr int mostSizes = 64;
constexpr std::string_view missing = "-";

/// A line for each photograph that is the same wherever the delivery lies.
CString NamesIn(const ToviPhotoArray& photos, const ToviItemDef& definitions, int file)
{
    const int serial = definitions.GetIndexFromTitle("シリアル番号");
    CString names;
    for (const ToviPhoto* photo : photos) {
        const CString path = ReplaceAll(photo->GetTitle(file), "\\", "/");
        names += FoldCase(MibGetFileName(path)) + '\t' + photo->GetTitle(serial) + '\n';
    }
    return names;
}

/// The value of \p key in \p text, which looks like: key="value" other="value".
std::string_view ValueOf(std::string_view key, std::string_view text)
{
    const CString start = CString(key) + "=\"";
    const std::size_t at = text.find(start);
    if (at == std::string_view::npos) return {};
    text.remove_prefix(at + start.size());
    return text.substr(0, text.find('"'));
}

std::optional<std::uint64_t> SizeFrom(std::string_view text)
{
    std::uint64_t size = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), size);
    return error == std::errc() ? std::optional(size) : std::nullopt;
}
} // namespace

CString RecordOrigin::DigestNames(const ToviPhotoArray& photos, const ToviItemDef& definitions,
                                  int file)
{
    return TextDigest(NamesIn(photos, definitions, file));
}

RecordOrigin::RecordOrigin(const ToviPhotoArray& photos, CString namesDigest)
    : names(std::move(namesDigest))
{
    const int count = std::min(photos.GetSize(), mostSizes);
    for (int number = 0; number < count; ++number) {
        const auto index = static_cast<std::int64_t>(number) * photos.GetSize() / count;
        const CString path = photos[static_cast<int>(index)]->ReadablePath();
        sizes.push_back(path.empty() ? std::nullopt : std::optional(MibFileSize(path)));
    }
}

RecordOrigin::RecordOrigin(const CString& text) : names(ValueOf("names", text))
{
    std::string_view rest = ValueOf("sizes", text);
    while (!rest.empty()) {
        const std::string_view size = rest.substr(0, rest.find(' '));
        sizes.push_back(SizeFrom(size));
        rest.remove_prefix(std::min(size.size() + 1, rest.size()));
    }
}

CString RecordOrigin::Text() const
{
    CString text = "names=\"" + names + "\" sizes=\"";
    for (const std::optional<std::uint64_t>& size : sizes) {
        if (!text.ends_with('"')) text += ' ';
        text += size ? std::to_string(*size) : CString(missing);
    }
    return text + '"';
}

CString RecordOrigin::DifferenceFrom(const RecordOrigin& other) const
{
    if (names.empty() || other.names.empty()) return {};
    if (names != other.names) return "写真のファイル名かシリアル番号が違います。";
    int compared = 0;
    int different = 0;
    for (std::size_t i = 0; i < std::min(sizes.size(), other.sizes.size()); ++i) {
        if (!sizes[i] || !other.sizes[i]) continue;
        ++compared;
        different += *sizes[i] != *other.sizes[i];
    }
    if (different == 0) return {};
    return Format("大きさを比べた写真ファイル%d個のうち%d個で大きさが違います。", compared,
                  different);
}
