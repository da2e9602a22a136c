#pragma once

#include "platform/text/Text.h"

#include <libexif/exif-data.h>

#include <memory>
#include <optional>

/// The place of a field: GPS fields have a directory of their own, with tags that mean something
/// else in the others. Some writers take the one of the other two directories for the other, so
/// they count as one.
struct ExifPlace
{
    int tag;
    bool isGps = false;
};

/// The values in an Exif block. Each is handed out only if its type, its number and the bytes
/// behind it are as asked for.
class ExifFileValues
{
public:
    /// Reads \p block: the mark "Exif\0\0" and what follows it. Anything else holds no values.
    explicit ExifFileValues(const std::string& block);

    /// True when there is not a single value.
    bool IsEmpty() const;
    /// The bytes of a text, with whatever NULs stand in it.
    std::optional<std::string_view> Text(ExifPlace place) const;
    /// The bytes of a value whose form is its own matter.
    std::optional<std::string_view> Bytes(ExifPlace place) const;
    /// The only number of a field of whole numbers.
    std::optional<unsigned> Whole(ExifPlace place) const;
    /// Fraction number \p index (from 0) of a field that has \p count of them; none with the
    /// denominator 0.
    std::optional<double> Fraction(ExifPlace place, unsigned index = 0, unsigned count = 1) const;

private:
    struct Unref
    {
        void operator()(ExifData* loaded) const { exif_data_unref(loaded); }
    };

    const ExifEntry* Find(ExifPlace place) const;

    std::unique_ptr<ExifData, Unref> data;
};
