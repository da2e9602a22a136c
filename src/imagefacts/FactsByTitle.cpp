#include "imagefacts/FactsByTitle.h"

#include "imagefacts/ToviExifInfo.h"
#include "platform/exif/PictureSize.h"
#include "platform/files/FileStatus.h"

#include <algorithm>

namespace
{
struct ExifFact
{
    std::string_view title;
    const ToviTextPairArray& (ToviExifInfo::*group)() const;
    int row;
};

// Some titles differ from those of the groups, and "作者名", which the settings offer, is missing:
// its value always shows empty.
constexpr ExifFact exifFacts[] = {
    {"ファイル変更日時", &ToviExifInfo::GetDate, 0},
    {"撮影日時", &ToviExifInfo::GetDate, 1},
    {"ディジタルデータの作成日時", &ToviExifInfo::GetDate, 2},
    {"幅×高さ(Exif)", &ToviExifInfo::GetImage, 0},
    {"総画素数(Exif)", &ToviExifInfo::GetImage, 1},
    {"画像入力機器のメーカー名", &ToviExifInfo::GetMaker, 0},
    {"画像入力機器のモデル名", &ToviExifInfo::GetMaker, 1},
    {"使用ソフトウェア名", &ToviExifInfo::GetMaker, 2},
    {"作成者", &ToviExifInfo::GetMaker, 3},
    {"撮影著作権者/編集著作権者", &ToviExifInfo::GetMaker, 4},
    {"Exifバージョン", &ToviExifInfo::GetFormat, 0},
    {"露出時間", &ToviExifInfo::GetShoot, 0},
    {"シャッタースピード", &ToviExifInfo::GetShoot, 1},
    {"絞り値", &ToviExifInfo::GetShoot, 2},
    {"露光補正値", &ToviExifInfo::GetShoot, 3},
    {"レンズ最少F値", &ToviExifInfo::GetShoot, 4},
    {"測光方式", &ToviExifInfo::GetShoot, 5},
    {"フラッシュ", &ToviExifInfo::GetShoot, 6},
    {"レンズの焦点距離", &ToviExifInfo::GetShoot, 7},
    {"Fナンバー", &ToviExifInfo::GetShoot, 8},
    {"緯度", &ToviExifInfo::GetGPS, 0},
    {"経度", &ToviExifInfo::GetGPS, 1},
    {"高度", &ToviExifInfo::GetGPS, 2},
};

CString InWords(const FileFacts::Size& size, CString (*words)(int width, int height))
{
    return size.known ? words(size.width, size.height) : CString();
}

struct FileFact
{
    std::string_view title;
    CString (*value)(FileFacts& facts, const FileStatus& status);
};

constexpr FileFact fileFacts[] = {
    {"幅×高さ",
     [](FileFacts& facts, const FileStatus&) { return InWords(facts.PictureSize(), &SizeText); }},
    {"総画素数", [](FileFacts& facts,
                    const FileStatus&) { return InWords(facts.PictureSize(), &TotalPixelsText); }},
    {"作成日時",
     [](FileFacts&, const FileStatus& status) { return LocalTimeText(status.created); }},
    {"最終更新日時",
     [](FileFacts&, const FileStatus& status) { return LocalTimeText(status.lastWritten); }},
    {"ファイルサイズ",
     [](FileFacts&, const FileStatus& status) {
         return std::to_string(status.size >> 10) + " KB";
     }},
    {"読み取り専用",
     [](FileFacts&, const FileStatus& status) {
         return CString(status.isReadOnly && !status.isHidden ? "Yes" : "No");
     }},
};
} // namespace

CString ExifFactByTitle(const ToviExifInfo& exif, const CString& title)
{
    const auto* fact = std::find_if(std::begin(exifFacts), std::end(exifFacts),
                                    [&](const ExifFact& known) { return known.title == title; });
    if (fact == std::end(exifFacts)) return {};
    const ToviTextPairArray& group = (exif.*fact->group)();
    if (group.IsEmpty()) return {};
    const CString& value = group[fact->row].GetValue();
    return value == ToviExifInfo::unknownValue ? CString() : value;
}

const FileFacts::Size& FileFacts::PictureSize()
{
    if (!size) {
        size = Size{};
        size->known = LumImage::GetCommentImageSize(path.c_str(), size->width, size->height);
    }
    return *size;
}

CString FileFacts::ByTitle(const CString& title)
{
    const auto* fact = std::find_if(std::begin(fileFacts), std::end(fileFacts),
                                    [&](const FileFact& known) { return known.title == title; });
    if (fact == std::end(fileFacts)) return {};
    if (!status) status = ReadFileStatus(path);
    return *status ? fact->value(*this, **status) : CString();
}

ToviTextPairArray FileFacts::All()
{
    ToviTextPairArray all;
    for (const FileFact& fact : fileFacts) {
        const CString title(fact.title);
        all.Add(ToviTextPair(title.c_str(), ByTitle(title).c_str()));
    }
    return all;
}
