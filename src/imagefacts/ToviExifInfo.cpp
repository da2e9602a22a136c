#include "imagefacts/ToviExifInfo.h"

#include "platform/files/MibFile.h"
#include "work/RunWorkFile.h"

struct ToviExifInfo::Group
{
    struct Row
    {
        LumCMNT code;
        const char* title;
    };

    ToviTextPairArray ToviExifInfo::*pairs;
    std::span<const Row> rows;

    static std::span<const Group> All();
};

std::span<const ToviExifInfo::Group> ToviExifInfo::Group::All()
{
    static constexpr Row dateRows[] = {
        {LumCmntDateTime, "ファイル変更日時"},
        {LumCmntDateTimeOriginal, "撮影日時"},
        {LumCmntDateTimeDigitized, "ディジタルデータの作成日時"},
    };
    static constexpr Row imageRows[] = {
        {LumCmntImageSize, "大きさ"},
        {LumCmntTotalPixels, "総画素数"},
    };
    static constexpr Row makerRows[] = {
        {LumCmntMake, "画像入力機器のメーカー名"},       {LumCmntModel, "画像入力機器のモデル名"},
        {LumCmntSoftware, "使用ソフトウェア名"},         {LumCmntArtist, "作者名"},
        {LumCmntCopyright, "撮影著作権者/編集著作権者"},
    };
    static constexpr Row formatRows[] = {
        {LumCmntExifVersion, "Exifバージョン"},
    };
    static constexpr Row shootRows[] = {
        {LumCmntExposureTime, "露出時間"},     {LumCmntShutterSpeed, "シャッタースピード"},
        {LumCmntAperture, "絞り値"},           {LumCmntExposureBias, "露光補正値"},
        {LumCmntMaxAperture, "レンズ最小F値"}, {LumCmntMeteringMode, "測光方式"},
        {LumCmntFlash, "フラッシュ"},          {LumCmntFocalLength, "レンズの焦点距離"},
        {LumCmntFNumber, "Fナンバー"},
    };
    static constexpr Row gpsRows[] = {
        {LumCmntGpsLatitude, "緯度"},
        {LumCmntGpsLongitude, "経度"},
        {LumCmntGpsAltitude, "高度"},
    };
    static constexpr Group groups[] = {
        {&ToviExifInfo::date, dateRows},   {&ToviExifInfo::image, imageRows},
        {&ToviExifInfo::maker, makerRows}, {&ToviExifInfo::format, formatRows},
        {&ToviExifInfo::shoot, shootRows}, {&ToviExifInfo::gps, gpsRows},
    };
    return groups;
}

ToviExifInfo::ToviExifInfo(const ToviExifInfo& other)
{
    *this = other;
}

ToviExifInfo& ToviExifInfo::operator=(const ToviExifInfo& other)
{
    if (this == &other) return *this;
    path = other.path;
    loaded = other.loaded;
    date = other.date;
    maker = other.maker;
    format = other.format;
    shoot = other.shoot;
    gps = other.gps;
    mainImagePath = other.mainImagePath;
    return *this;
}

void ToviExifInfo::Clear()
{
    path.clear();
    loaded = false;
    for (ToviTextPairArray* group : {&date, &maker, &format, &shoot, &gps}) group->RemoveAll();
    mainImagePath.clear();
}

bool ToviExifInfo::IsSvg(const CString& path)
{
    return EqualNoCase(MibGetExt(path), ".svg");
}

void ToviExifInfo::Load(const char* photoPath)
{
    // The argument may be the text that Clear empties.
    const CString source = photoPath == nullptr ? "" : photoPath;
    Clear();
    if (IsSvg(source)) {
        SetMainImagePath(source);
        path = mainImagePath;
    } else {
        path = source;
    }
    if (path.empty()) return;
    const LumComments comments = LumImage::GetComments(path.c_str());
    for (const Group& group : Group::All()) {
        Packs packs;
        for (const Group::Row& row : group.rows) {
            packs.Add(std::make_unique<Pack>(row.code, row.title));
        }
        Load(comments, packs, this->*group.pairs);
    }
    loaded = true;
}

void ToviExifInfo::Load(const LumComments& comments, const Packs& packs, ToviTextPairArray& out)
{
    out.RemoveAll();
    out.Reserve(packs.GetSize());
    for (const std::unique_ptr<Pack>& pack : packs) {
        const auto& comment = comments[static_cast<std::size_t>(pack->code)];
        out.Add(ToviTextPair(pack->title.c_str(), comment ? comment->c_str() : unknownValue));
    }
}

void ToviExifInfo::SetMainImagePath(const CString& svgPath)
{
    if (IsSvg(svgPath)) mainImagePath = RunWorkFile(svgPath, svgPictureEnd);
}

void ToviExifInfo::MakeMainImageFromSvg(const CString& svgPath)
{
    if (!IsSvg(svgPath)) return;
    SetMainImagePath(svgPath);
    // A work file's name tells which content of which file it was made from.
    if (!mainImagePath.empty() && !MibIsFileExist(mainImagePath)) {
        LumImage::GetMainImageFromSvg(svgPath.c_str(), mainImagePath.c_str());
    }
}
