#pragma once

#include "platform/exif/LumCMNT.h"

#include <memory>

/// The file formats that LumImage writes.
enum LumImageType
{
    LumBitmap = 1,
    LumJpeg = 2,
    LumTiff = 3,
    LumPng = 4
};

/// A decoded picture, or none. JPEG, TIFF, PNG, BMP and GIF files are read, and the main picture of
/// an SVG photograph. A picture stands as its Exif orientation wants to be looked at; the file
/// itself is never touched. Copies share their pixels until one of them changes.
class TOVI_EXPORT LumImage
{
public:
    /// The longer side of a thumbnail, in pixels.
    static constexpr int thumbSide = 320;

    LumImage();
    LumImage(const LumImage& other);
    LumImage& operator=(const LumImage& other);
    LumImage(LumImage&&) noexcept;
    LumImage& operator=(LumImage&&) noexcept;
    ~LumImage();

    /// Decodes the whole file \p path. False leaves the image empty: the file is missing, cut off,
    /// no picture, or larger than the limits that keep a hostile file from exhausting the memory.
    bool Load(const char* path);

    /// Decodes the file \p path reduced to at most thumbSide pixels a side; a smaller picture keeps
    /// its size. Made from the picture itself, never from the preview inside Exif. False as in
    /// Load.
    bool LoadThumb(const char* path);

    /// As Load, also for pictures that are too large to be shown whole. They take four bytes a
    /// pixel: it is for what is saved and let go of.
    bool LoadWhole(const char* path);

    bool IsValid() const;
    void Clear();
    /// Width and height in pixels, 0 without a picture.
    int GetWidth() const;
    int GetHeight() const;

    /// Reduces the picture so that it fits into \p width by \p height pixels, both at least 1.
    void FitInto(int width, int height);

    /// Turns the picture clockwise by \p angle degrees. The corners that a turn by no multiple of
    /// 90 leaves open get \p backColor (0x00BBGGRR). With \p keepSize the picture is cut to the
    /// size it had, else it grows; \p smooth interpolates.
    void Rotate(int angle, unsigned long backColor, bool keepSize, bool smooth);

    /// Makes the picture lighter or darker (see ContrastCurve).
    void SetContrast(int amount);

    /// Turns a bi-level picture into a grey one, so that it is drawn smoothly when reduced. False
    /// when the picture isn't bi-level.
    bool ConvGrayScaleFromMono();

    /// The bytes of a file with the picture; nothing without a picture or when that fails. \p
    /// quality is 0 (small), 1 or 2 (best).
    std::optional<std::string> Encode(LumImageType type, unsigned quality) const;
    /// The bytes of a JPEG file with the picture, which was made of the one in the file \p
    /// original, and with the Exif data of that file (see ExifOfCopy). Nothing as above.
    std::optional<std::string> EncodeCopy(const char* original) const;
    /// Writes these bytes to \p path, whole or not at all.
    bool Save(const char* path, LumImageType type, unsigned quality) const;

    /// The dimensions that the header of the file \p path tells, before any turning. False when it
    /// has none.
    static bool GetCommentImageSize(const char* path, int& width, int& height);

    /// Puts the text of one Exif field of the JPEG or TIFF file \p path into \p out, ready to be
    /// shown. False, with \p out left alone, when the file can't be read, has no Exif data or no
    /// such field, or one that makes no sense. A file without Exif data has no size here either.
    static bool GetComment(const char* path, LumCMNT code, CString& out);

    /// What GetComment gives for every field, with one opening of the file.
    static LumComments GetComments(const char* path);

    /// Writes the complete JPEG file inside the SVG photograph \p svgPath to \p outPath. False when
    /// there is none or it can't be written: then no file is at \p outPath afterwards.
    static bool GetMainImageFromSvg(const char* svgPath, const char* outPath);

private:
    friend struct LumPixels;
    struct Picture;

    bool LoadReduced(const char* path, int longestSide);

    std::unique_ptr<Picture> picture;
};
