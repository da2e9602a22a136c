#pragma once

#include "imagefacts/ToviExifInfo.h"
#include "items/ToviItem.h"
#include "items/ToviTextPair.h"
#include "photos/LabelSlots.h"
#include "platform/pictures/LumImage.h"
#include "platform/text/Text.h"

#include <array>
#include <functional>
#include <memory>

class FileFacts;
class PhotoHome;
class ToviControlValueArray;
class ToviItemDef;
class ToviItemShowSettings;
struct ToviItemShowSetting;

/// One photograph of the delivery: what PHOTO.XML says about it, the paths of its files, and the
/// decoded picture while it is shown. What is shown about it is looked up from its items by
/// definition index or title; no item has a field of its own.
class TOVI_EXPORT ToviPhoto
{
public:
    /// What the tamper check (画像加工検知) has found.
    enum EditJPEGCheckResult : int
    {
        /// Not checked since the settings of the check changed.
        EditCheckNone = 0,
        EditCheckUnaltered = 1,
        EditCheckAltered = 2,
        /// No verifier could judge the file.
        EditCheckUnknown = 3
    };

    ToviPhoto() = default;
    /// A loose image file, without items and home.
    explicit ToviPhoto(const char* path) : imagePath(path) {}
    /// A photograph of \p owner, which outlives it. The paths are made at once.
    ToviPhoto(PhotoHome* owner, const ToviItemArray& values);
    ToviPhoto(PhotoHome* owner, ToviItemArray&& values);
    /// The copy has no picture and no Exif data, and says of no file yet that it exists.
    ToviPhoto(const ToviPhoto& other);
    ToviPhoto& operator=(const ToviPhoto& other);

    virtual void Select(bool select) { selected = select; }
    virtual bool IsSelected() const { return selected; }
    /// The full path of the image file, made on the first call after ClearImagePath.
    virtual const char* GetImagePath();
    virtual void GetImagePath(CString& path);
    /// Rebuilds the paths after a change of media, where a file that was found keeps its path, and
    /// looks which files are there.
    virtual void UpdateImagePath();
    /// What the last UpdateImagePath found: the image and all its reference drawings are there.
    virtual bool IsExistFile() { return fileExists; }
    virtual ToviItemArray& GetItems() { return items; }
    virtual const ToviItemArray& GetItems() const { return items; }
    /// Replaces \p out by the path of the reference drawing at \p index; by nothing when there is
    /// no drawing or \p index is negative. An index behind the last one throws InvalidArgument.
    virtual void GetPicturePath(CStringArray& out, int index);
    virtual const LumImage& GetImage() const { return image; }
    virtual int GetPictureCount() const { return picturePaths.GetSize(); }
    /// The label in a slot (see photos/LabelSlots.h) is pasted. One of labelCount or more never is.
    virtual bool IsLabelPasted(unsigned int slot) const;
    virtual ~ToviPhoto() = default;
    virtual void ReleaseImage();
    /// Loads the thumbnail in place of whatever is loaded. A file that failed is not tried again
    /// until ReleaseImage.
    virtual bool LoadThumb();
    /// Loads the full picture, if it isn't there yet.
    virtual bool LoadImage();

    /// Makes the paths from the items (see photos/PhotoPaths.h).
    void MakePath();
    void ClearImagePath() { imagePath.clear(); }
    /// The path of the image file; empty when it isn't there or a link brings it in from outside of
    /// the delivery. Valid until the next change of the photograph.
    const char* ReadablePath();
    /// The same for threads that read the file: nothing is made here or kept. Any number of them
    /// may ask at once, as long as nobody changes the photograph, its items or its delivery.
    CString FindReadablePath() const;
    /// The path of the reference drawing at \p index, as above; empty when it isn't there or a link
    /// brings it in from outside of the delivery.
    CString ReadablePicturePath(int index);
    /// The paths of all reference drawings, in the order of the items.
    const CStringArray& GetPicturePaths();
    /// Appends the names of the files that the user still has to bring.
    void GetOutputFilename(CStringArray& names) const;

    /// The value of the first item with this definition index; empty when there is none. Valid
    /// until the next change of the photograph.
    const char* GetTitle(int defIndex) const;
    /// Copies that value; always true.
    bool GetTitle(int defIndex, CString& value) const;
    /// Replaces \p values by every value with this definition index, in file order.
    void GetTitleFromIndex(int defIndex, CStringArray& values) const;
    /// Replaces \p values by the first value of each of \p defIndexes, in their order. An index
    /// without an item adds nothing.
    void GetTitleFromIndex(const CArray<int>& defIndexes, CStringArray& values) const;
    /// Replaces \p pairs by the items that are shown in the main list or the zoom dialog. False
    /// when that leaves none, or \p def is null.
    bool GetTextPairs(ToviItemDef* def, ToviTextPairArray& pairs) const;
    /// Replaces \p pairs by what \p settings show, in their order; of Exif only what is loaded.
    /// False when that is nothing, or \p def is null.
    bool GetTextPairs(const ToviItemDef* def, const ToviItemShowSettings& settings,
                      ToviTextPairArray& pairs) const;
    /// The same with \p factOf for what the file says under the title of a setting.
    bool GetTextPairs(const ToviItemDef* def, const ToviItemShowSettings& settings,
                      ToviTextPairArray& pairs,
                      const std::function<CString(const ToviItemShowSetting&)>& factOf) const;
    /// Replaces \p out by the construction control values (施工管理値), none for a photograph
    /// without that item. False, with \p out as it was, when some part of the text doesn't parse.
    bool GetControlValueArray(ToviControlValueArray& out) const;

    bool IsOK() const { return IsLabelPasted(LabelOk); }
    /// Any of the three NG labels is pasted.
    bool HasNGLabel() const;
    /// 未検査: neither OK nor any NG label is pasted.
    bool IsNotCheck() const { return !IsOK() && !HasNGLabel(); }
    const CString& GetComment() const { return comment; }

    EditJPEGCheckResult GetEditChkResult() const { return editResult; }
    void SetEditChkResult(EditJPEGCheckResult result) { editResult = result; }

    /// Take \p picture, which somebody else has read of the file, in place of what LoadThumb or
    /// LoadImage would load.
    void TakeThumb(LumImage picture);
    void TakeImage(LumImage picture);

    bool IsImageLoaded() const { return imageLoaded; }
    bool IsThumbLoaded() const { return thumbLoaded; }
    bool ConvGrayScaleFromMono() { return image.ConvGrayScaleFromMono(); }

    /// The dimensions in the header of the image file. False when there is none.
    bool GetImageSize(int& width, int& height);
    /// The local date of the image file's last change as YYYY-MM-DD; empty without a file.
    CString GetFileRenewalDate();

    /// The file tells an Exif version, as found on the first call. One that tells none may hold
    /// other Exif data all the same.
    bool CheckExif();
    /// Reads whatever Exif data there are, unless that was done. Whoever shows them calls it first.
    void LoadExif();
    /// The Exif data, read on the first call; those of an SVG photograph by way of a work file. Not
    /// loaded for a photograph without a path, or with one that leads out of the delivery.
    const ToviExifInfo& GetExif();
    /// Replaces \p value by what LoadExif has read under \p title (see imagefacts/FactsByTitle.h);
    /// by nothing when the file isn't there. The path isn't made.
    void GetExifInfoFromTitle(const CString& title, CString& value) const;
    /// What the file system and the header say of the image file as it is now; nothing when it
    /// isn't there. The path isn't made.
    FileFacts GetFileFacts() const;
    /// Replaces \p value by one of these facts (see imagefacts/FactsByTitle.h).
    void GetFileInfoFromTitle(const CString& title, CString& value) const;

private:
    /// The one that changes labels and comments. Nobody else does, so that each change is known.
    friend class LabelEdits;
    virtual void PasteLabel(unsigned int slot);
    virtual void RemoveLabel(unsigned int slot);
    /// Touches no label.
    void SetComment(const CString& text) { comment = text; }

    void AddItemPairs(const ToviItemShowSetting& setting, ToviTextPairArray& pairs) const;
    const ToviItem* FindItem(int defIndex) const;
    /// Replaces the paths by those that the items give; without a home they stay.
    void MakePaths(CString& photograph, CStringArray& drawings) const;
    /// True when \p path is a file of the delivery, and not one that a symbolic link brings in.
    bool IsReadableFile(const CString& path) const;
    /// The path that Exif data may be read from: empty when it leads to a file that a link brings
    /// in.
    const char* ExifPath();
    bool ReadExifVersion();
    /// Room for the Exif data, which few of many photographs ever need.
    ToviExifInfo& ExifRoom();

    CString imagePath;
    CStringArray picturePaths;
    bool fileExists = false;
    ToviItemArray items;
    /// What CheckExif has found: 1 Exif data, 0 none, -1 not asked yet.
    int exifState = -1;
    std::unique_ptr<ToviExifInfo> exif;
    std::array<bool, labelCount> labels{};
    bool selected = false;
    LumImage image;
    bool thumbLoaded = false;
    bool imageLoaded = false;
    PhotoHome* home = nullptr;
    CString comment;
    EditJPEGCheckResult editResult = EditCheckNone;
};
