#pragma once

#include "platform/files/Sha256.h"
#include "platform/text/Text.h"

#include <cstdint>
#include <optional>
#include <vector>

/// What the first bytes of a file say that it is.
enum class PictureForm
{
    Unknown,
    Jpeg,
    Tiff,
    Svg,
    Png,
    Gif,
    Bitmap,
    Movie,
    Pdf
};

/// How the bytes of a picture file hold together.
enum class PictureState
{
    /// The file isn't there or can't be read.
    Unreadable,
    Empty,
    /// It ends before its picture does.
    CutOff,
    /// Its picture can't be decoded whole.
    Damaged,
    Whole,
    /// It is of a form that is not decoded here, or larger than any picture.
    NotExamined
};

/// A picture in light alone, row by row from above.
struct GreyPicture
{
    int width = 0;
    int height = 0;
    std::vector<unsigned char> pixels;
};

struct PictureExamination
{
    PictureForm form = PictureForm::Unknown;
    PictureState state = PictureState::Unreadable;
    std::uint64_t bytes = 0;
    /// The dimensions of the picture, before any turning; of an SVG photograph those of its main
    /// picture. 0 where they can't be told.
    int width = 0;
    int height = 0;
};

/// What is wanted beside the examination.
struct ExaminationExtras
{
    /// By how much the picture is reduced: 8, 4, 2 or 1.
    int reduction = 8;
    /// Nothing of one that can't be decoded whole.
    GreyPicture picture;
    /// Of the file's bytes; nothing of one that can't be read.
    std::optional<Sha256> digest;
};

/// Reads the file \p path once, whole, and decodes its picture reduced: nothing in it that can't be
/// read stays unnoticed. Any thread may call it. \p extras may be null.
PictureExamination ExaminePicture(const CString& path, ExaminationExtras* extras = nullptr);
