#include "photos/ToviPhoto.h"

#include "imagefacts/ControlValueParser.h"
#include "imagefacts/FactsByTitle.h"
#include "imagefacts/ToviControlValueArray.h"
#include "items/ToviItemDef.h"
#include "items/ToviItemShowSettings.h"
#include "photos/PhotoHome.h"
#include "photos/PhotoPaths.h"
#include "platform/files/MibFile.h"

#include <algorithm>

namespace
{
constexpr const char* exifVersionTitle = "Exifバージョン";
} // namespace

ToviPhoto::ToviPhoto(PhotoHome* owner, const ToviItemArray& values)
    : ToviPhoto(owner, ToviItemArray(values))
{}

ToviPhoto::ToviPhoto(PhotoHome* owner, ToviItemArray&& values)
    : items(std::move(values)), home(owner)
{
    MakePath();
}

ToviPhoto::ToviPhoto(const ToviPhoto& other)
{
    *this = other;
}

ToviPhoto& ToviPhoto::operator=(const ToviPhoto& other)
{
    if (this == &other) return *this;
    imagePath = other.imagePath;
    picturePaths = other.picturePaths;
    fileExists = false;
    exif.reset();
    items = other.items;
    exifState = other.exifState;
    labels = other.labels;
    selected = other.selected;
    home = other.home;
    comment = other.comment;
    editResult = other.editResult;
    ReleaseImage();
    return *this;
}

const char* ToviPhoto::GetImagePath()
{
    if (imagePath.empty()) MakePath();
    return imagePath.c_str();
}

void ToviPhoto::GetImagePath(CString& path)
{
    path = GetImagePath();
}

void ToviPhoto::MakePath()
{
    MakePaths(imagePath, picturePaths);
}

void ToviPhoto::MakePaths(CString& photograph, CStringArray& drawings) const
{
    if (home == nullptr) return;
    if (home->IsStandAlone()) {
        MakeRelativePaths(items, home->GetPathItems(), home->RootPath(), photograph, drawings);
    } else {
        TakeFullPaths(items, home->GetPathItems(), photograph, drawings);
    }
}

void ToviPhoto::UpdateImagePath()
{
    if (home != nullptr && home->IsStandAlone()) {
        RebuildRelativePaths(items, home->GetPathItems(), home->RootPath(), imagePath,
                             picturePaths);
    } else {
        MakePath();
    }
    const auto isThere = [this](const CString& path) { return IsReadableFile(path); };
    fileExists =
        isThere(imagePath) && std::all_of(picturePaths.begin(), picturePaths.end(), isThere);
}

void ToviPhoto::GetPicturePath(CStringArray& out, int index)
{
    out.RemoveAll();
    if (imagePath.empty()) MakePath();
    if (!picturePaths.IsEmpty() && index >= 0) out.Add(picturePaths[index]);
}

CString ToviPhoto::ReadablePicturePath(int index)
{
    CStringArray paths;
    GetPicturePath(paths, index);
    return !paths.IsEmpty() && IsReadableFile(paths[0]) ? paths[0] : CString();
}

const CStringArray& ToviPhoto::GetPicturePaths()
{
    if (imagePath.empty()) MakePath();
    return picturePaths;
}

void ToviPhoto::GetOutputFilename(CStringArray& names) const
{
    if (home == nullptr) return;
    FindMissingNames(items, FindPhotoPathItems(*home->GetItemDef(), true), imagePath, picturePaths,
                     names, [this](const CString& path) { return IsReadableFile(path); });
}

const ToviItem* ToviPhoto::FindItem(int defIndex) const
{
    const auto found = std::find_if(items.begin(), items.end(), [defIndex](const ToviItem& item) {
        return item.GetDefIndex() == defIndex;
    });
    return found == items.end() ? nullptr : &*found;
}

const char* ToviPhoto::GetTitle(int defIndex) const
{
    const ToviItem* item = FindItem(defIndex);
    return item == nullptr ? "" : item->GetValue().c_str();
}

bool ToviPhoto::GetTitle(int defIndex, CString& value) const
{
    value = GetTitle(defIndex);
    return true;
}

void ToviPhoto::GetTitleFromIndex(int defIndex, CStringArray& values) const
{
    values.RemoveAll();
    for (const ToviItem& item : items) {
        if (item.GetDefIndex() == defIndex) values.Add(item.GetValue());
    }
}

void ToviPhoto::GetTitleFromIndex(const CArray<int>& defIndexes, CStringArray& values) const
{
    values.RemoveAll();
    for (const int defIndex : defIndexes) {
        if (const ToviItem* item = FindItem(defIndex)) values.Add(item->GetValue());
    }
}

bool ToviPhoto::GetTextPairs(ToviItemDef* def, ToviTextPairArray& pairs) const
{
    pairs.RemoveAll();
    if (def == nullptr) return false;
    for (const ToviItem& item : items) {
        const Definition& definition = def->GetDef(item.GetDefIndex());
        if (definition.show == ShowMainList || definition.show == ShowZoomDlg) {
            pairs.Add(ToviTextPair(definition.title.c_str(), item.GetValue().c_str()));
        }
    }
    return !pairs.IsEmpty();
}

bool ToviPhoto::GetTextPairs(const ToviItemDef* def, const ToviItemShowSettings& settings,
                             ToviTextPairArray& pairs) const
{
    std::optional<FileFacts> fileFacts;
    return GetTextPairs(def, settings, pairs, [&](const ToviItemShowSetting& setting) {
        CString fact;
        if (setting.infoType == InfoFile) {
            if (!fileFacts) fileFacts = GetFileFacts();
            fact = fileFacts->ByTitle(setting.title);
        } else {
            GetExifInfoFromTitle(setting.title, fact);
        }
        return fact;
    });
}

bool ToviPhoto::GetTextPairs(const ToviItemDef* def, const ToviItemShowSettings& settings,
                             ToviTextPairArray& pairs,
                             const std::function<CString(const ToviItemShowSetting&)>& factOf) const
{
    pairs.RemoveAll();
    if (def == nullptr) return false;
    for (const ToviItemShowSetting& setting : settings) {
        if (!setting.bold) continue;
        if (setting.infoType == InfoDelivery) {
            AddItemPairs(setting, pairs);
        } else {
            pairs.Add(ToviTextPair(setting.title.c_str(), factOf(setting).c_str()));
        }
    }
    return !pairs.IsEmpty();
}

void ToviPhoto::AddItemPairs(const ToviItemShowSetting& setting, ToviTextPairArray& pairs) const
{
    const bool isDate = setting.title == "撮影年月日";
    for (const ToviItem& item : items) {
        if (item.GetDefIndex() != setting.index) continue;
        const CString& value = item.GetValue();
        pairs.Add(ToviTextPair(setting.title.c_str(),
                               isDate ? ReplaceAll(value, "-", "/").c_str() : value.c_str()));
    }
}

bool ToviPhoto::GetControlValueArray(ToviControlValueArray& out) const
{
    ToviControlValues values;
    if (home != nullptr) {
        const int defIndex = home->GetItemDef()->GetIndexFromTitle(controlValueTitle);
        ParseControlValues(GetTitle(defIndex), values);
    }
    if (!values.IsValid()) return false;
    out.RemoveAll();
    out.Reserve(values.GetSize());
    for (const auto& value : values) {
        out.Add({value->GetName(), value->GetDesign(), value->GetActual(), value->GetDifference()});
    }
    return true;
}

bool ToviPhoto::IsLabelPasted(unsigned int slot) const
{
    return slot < labels.size() && labels[slot];
}

void ToviPhoto::PasteLabel(unsigned int slot)
{
    if (slot < labels.size()) labels[slot] = true;
}

void ToviPhoto::RemoveLabel(unsigned int slot)
{
    if (slot < labels.size()) labels[slot] = false;
}

bool ToviPhoto::HasNGLabel() const
{
    return labels[LabelNg1] || labels[LabelNg2] || labels[LabelNg3];
}

bool ToviPhoto::LoadThumb()
{
    if (thumbLoaded && !imageLoaded) return true;
    thumbLoaded = true;
    image.Clear();
    imageLoaded = false;
    return image.LoadThumb(ReadablePath());
}

bool ToviPhoto::LoadImage()
{
    if (!imageLoaded) imageLoaded = image.Load(ReadablePath());
    return imageLoaded;
}

void ToviPhoto::TakeThumb(LumImage picture)
{
    image = std::move(picture);
    thumbLoaded = true;
    imageLoaded = false;
}

void ToviPhoto::TakeImage(LumImage picture)
{
    image = std::move(picture);
    imageLoaded = true;
}

void ToviPhoto::ReleaseImage()
{
    image.Clear();
    thumbLoaded = false;
    imageLoaded = false;
}

bool ToviPhoto::GetImageSize(int& width, int& height)
{
    return LumImage::GetCommentImageSize(ReadablePath(), width, height);
}

CString ToviPhoto::GetFileRenewalDate()
{
    return MibModificationDate(ReadablePath());
}

bool ToviPhoto::CheckExif()
{
    if (exifState == -1) exifState = ReadExifVersion() ? 1 : 0;
    return exifState == 1;
}

bool ToviPhoto::ReadExifVersion()
{
    if (exif && exif->IsLoaded()) return !ExifFactByTitle(*exif, exifVersionTitle).empty();
    CString file = ExifPath();
    if (ToviExifInfo::IsSvg(file)) {
        ExifRoom().MakeMainImageFromSvg(file);
        file = exif->GetMainImagePath();
    }
    CString version;
    return LumImage::GetComment(file.c_str(), LumCmntExifVersion, version);
}

void ToviPhoto::LoadExif()
{
    GetExif();
}

const ToviExifInfo& ToviPhoto::GetExif()
{
    ToviExifInfo& room = ExifRoom();
    if (room.IsLoaded()) return room;
    const CString file = ExifPath();
    room.MakeMainImageFromSvg(file);
    room.Load(file.c_str());
    return room;
}

void ToviPhoto::GetExifInfoFromTitle(const CString& title, CString& value) const
{
    const bool known = exif != nullptr && MibIsFileExist(imagePath);
    value = known ? ExifFactByTitle(*exif, title) : CString();
}

FileFacts ToviPhoto::GetFileFacts() const
{
    return FileFacts(IsReadableFile(imagePath) ? imagePath : CString());
}

void ToviPhoto::GetFileInfoFromTitle(const CString& title, CString& value) const
{
    value = GetFileFacts().ByTitle(title);
}

bool ToviPhoto::IsReadableFile(const CString& path) const
{
    const bool isDelivered = home != nullptr && home->IsStandAlone();
    return isDelivered ? home->IsFileOfDelivery(path) : MibIsFileExist(path);
}

const char* ToviPhoto::ReadablePath()
{
    return IsReadableFile(GetImagePath()) ? imagePath.c_str() : "";
}

CString ToviPhoto::FindReadablePath() const
{
    CString path = imagePath;
    CStringArray drawings;
    if (path.empty()) MakePaths(path, drawings);
    return IsReadableFile(path) ? path : CString();
}

const char* ToviPhoto::ExifPath()
{
    const bool usable = IsReadableFile(GetImagePath()) || !MibIsFileExist(imagePath);
    return usable ? imagePath.c_str() : "";
}

ToviExifInfo& ToviPhoto::ExifRoom()
{
    if (!exif) exif = std::make_unique<ToviExifInfo>();
    return *exif;
}
