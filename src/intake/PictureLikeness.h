#pragma once

#include "platform/pictures/PictureExamination.h"

#include <array>
#include <optional>

/// How alike two pictures are.

/// The perceptual hash of a picture: the signs of its 8 by 8 lowest frequencies but the first of
/// each direction, against their median, in the cosine transform of the picture at 32 by 32 pixels
/// (pHash: C. Zauner, Implementation and Benchmarking of Perceptual Image Hash Functions, Hagenberg
/// 2010, section 3.2). Pictures that look the same differ in few bits.
using PictureHash = std::uint64_t;

/// The hashes of a whole picture and of what is left of it when three hundredths are cut off on the
/// left, the right, above and below: a cut picture has nearly the hash of one of these.
struct PictureHashes
{
    PictureHash whole = 0;
    std::array<PictureHash, 4> cut{};
};

/// A picture at 48 by 48 pixels, whatever its shape.
inline constexpr int signatureSide = 48;
using PictureSignature = std::array<unsigned char, signatureSide * signatureSide>;

struct PictureMarks
{
    PictureHashes hashes;
    PictureSignature signature{};
};

/// The dimensions of a picture.
struct PictureSize
{
    int width = 0;
    int height = 0;
};

/// The marks of \p picture, which is not empty: a picture of \p size at an eighth of it, where the
/// last row and column may stand for less than eight pixels.
PictureMarks MarksOf(const GreyPicture& picture, PictureSize size);

int BitsApart(PictureHash left, PictureHash right);

/// False when the two signatures show that their pictures are not the same one. \p cut, unless it
/// is negative, is the place among PictureHashes::cut by which \p part came out of \p whole.
bool MayBeSame(const PictureSignature& whole, const PictureSignature& part, int cut);

/// True when they show that the pictures are the same one and were encoded anew at most, for
/// pictures of which nothing else is at hand any more.
bool MustBeSame(const PictureSignature& left, const PictureSignature& right);

/// A picture as the means of its parts, of which its longer side has 96, in 256ths: fine enough to
/// tell a changed word on a blackboard.
using PictureCells = std::vector<std::uint16_t>;

/// Of the whole \p picture, which is not reduced and not empty.
PictureCells CellsOf(const GreyPicture& picture);

/// True when two pictures of one shape are the same but for what another encoding and another size
/// change. Pictures of one place at two times differ more.
bool AreSame(const PictureCells& left, const PictureCells& right);

/// True when the sides of the two have one ratio.
bool HaveOneShape(PictureSize left, PictureSize right);

/// True when the one may be the other cut at its edges by a twentieth at most, by their sizes.
bool MayBeCut(PictureSize left, PictureSize right);

/// True when the one is the other cut so, on whichever sides, and encoded anew or scaled or not.
/// Neither is reduced.
bool IsOneCut(const GreyPicture& left, const GreyPicture& right);
