#pragma once

#include "items/ToviTextPair.h"
#include "platform/pictures/LumImage.h"

#include <memory>
#include <span>

/// What the Exif data of one photograph say, as titles with values in six groups. Read on the first
/// need and kept from then on: a later change of the file isn't noticed. A group is either empty or
/// has all its rows.
class TOVI_EXPORT ToviExifInfo
{
public:
    /// The value of a row whose field can't be read.
    static constexpr const char* unknownValue = "(不明)";
    /// True for the name of an SVG photograph, in any letter case.
    static bool IsSvg(const CString& path);

    ToviExifInfo() = default;
    /// The copy has no image group: its rows stay those that the object had before. Whoever shows a
    /// copied photograph shows no size.
    ToviExifInfo(const ToviExifInfo& other);
    ToviExifInfo& operator=(const ToviExifInfo& other);
    virtual ~ToviExifInfo() = default;

    /// Reads all groups of the photograph \p path. Those of an SVG photograph come from the work
    /// file that MakeMainImageFromSvg must have made before. An empty path leaves the object not
    /// loaded; any other loads it, with unknownValue for what can't be read.
    void Load(const char* path);
    /// Forgets everything but the image group.
    void Clear();
    bool IsLoaded() const { return loaded; }

    /// The file that the values were read from: the photograph, or the work file of an SVG one.
    const CString& GetPath() const { return path; }
    /// The work file with the main image of an SVG photograph; empty for any other.
    const CString& GetMainImagePath() const { return mainImagePath; }

    const ToviTextPairArray& GetDate() const { return date; }
    const ToviTextPairArray& GetImage() const { return image; }
    const ToviTextPairArray& GetMaker() const { return maker; }
    const ToviTextPairArray& GetFormat() const { return format; }
    const ToviTextPairArray& GetShoot() const { return shoot; }
    const ToviTextPairArray& GetGPS() const { return gps; }

    /// Makes sure that the work file with the main image of the SVG photograph \p svgPath is there
    /// (see RunWorkFile); nothing for any other. A failure shows in the work file being absent.
    void MakeMainImageFromSvg(const CString& svgPath);

private:
    /// A field to ask for, with the title of its row.
    class Pack
    {
    public:
        Pack(int commentCode, const char* rowTitle) : code(commentCode), title(rowTitle) {}
        virtual ~Pack() = default;

        int code;
        CString title;
    };
    using Packs = CArray<std::unique_ptr<Pack>>;

    /// One group: where its rows go, and which they are.
    struct Group;

    static void Load(const LumComments& comments, const Packs& packs, ToviTextPairArray& out);
    void SetMainImagePath(const CString& svgPath);

    CString path;
    bool loaded = false;
    ToviTextPairArray date;
    ToviTextPairArray image;
    ToviTextPairArray maker;
    ToviTextPairArray format;
    ToviTextPairArray shoot;
    ToviTextPairArray gps;
    CString mainImagePath;
};
