#pragma once

/// What the reading of a PHOTO.XML has met.
struct ReadingCounts
{
    /// The elements 写真情報 in the file: more than there are photographs when some stand where
    /// none are read.
    int photoElements = 0;
    /// The values of photographs that stand in another place than the standard says.
    int adoptedValues = 0;
};
