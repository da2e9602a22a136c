#include "platform/exif/ExifFileValues.h"

#include <libexif/exif-utils.h>

namespace
{
constexpr ExifIfd imageFolders[] = {EXIF_IFD_0, EXIF_IFD_EXIF};
constexpr ExifIfd gpsFolder[] = {EXIF_IFD_GPS};

std::string_view BytesOf(const ExifEntry& entry)
{
    return {reinterpret_cast<const char*>(entry.data), entry.size};
}
} // namespace

ExifFileValues::ExifFileValues(const std::string& block)
{
    if (block.empty()) return;
    data.reset(exif_data_new());
    if (!data) return;
    // Otherwise fields that the standard demands would be made up where the file has none.
    exif_data_unset_option(data.get(), EXIF_DATA_OPTION_FOLLOW_SPECIFICATION);
    exif_data_load_data(data.get(), reinterpret_cast<const unsigned char*>(block.data()),
                        static_cast<unsigned>(block.size()));
}

bool ExifFileValues::IsEmpty() const
{
    if (!data) return true;
    for (const ExifIfd folder : {EXIF_IFD_0, EXIF_IFD_EXIF, EXIF_IFD_GPS}) {
        if (data->ifd[folder]->count > 0) return false;
    }
    return true;
}

const ExifEntry* ExifFileValues::Find(ExifPlace place) const
{
    if (!data) return nullptr;
    const auto find = [&](const auto& folders) -> const ExifEntry* {
        for (const ExifIfd folder : folders) {
            const ExifEntry* entry =
                exif_content_get_entry(data->ifd[folder], static_cast<ExifTag>(place.tag));
            if (entry != nullptr && entry->data != nullptr) return entry;
        }
        return nullptr;
    };
    return place.isGps ? find(gpsFolder) : find(imageFolders);
}

std::optional<std::string_view> ExifFileValues::Text(ExifPlace place) const
{
    const ExifEntry* entry = Find(place);
    if (entry == nullptr || entry->format != EXIF_FORMAT_ASCII) return std::nullopt;
    return BytesOf(*entry);
}

std::optional<std::string_view> ExifFileValues::Bytes(ExifPlace place) const
{
    const ExifEntry* entry = Find(place);
    if (entry == nullptr || exif_format_get_size(entry->format) != 1) return std::nullopt;
    return BytesOf(*entry);
}

std::optional<unsigned> ExifFileValues::Whole(ExifPlace place) const
{
    const ExifEntry* entry = Find(place);
    if (entry == nullptr || entry->components != 1 ||
        entry->size < exif_format_get_size(entry->format)) {
        return std::nullopt;
    }
    const ExifByteOrder order = exif_data_get_byte_order(data.get());
    switch (entry->format) {
    case EXIF_FORMAT_BYTE:
        return entry->data[0];
    case EXIF_FORMAT_SHORT:
        return exif_get_short(entry->data, order);
    case EXIF_FORMAT_LONG:
        return exif_get_long(entry->data, order);
    default:
        return std::nullopt;
    }
}

std::optional<double> ExifFileValues::Fraction(ExifPlace place, unsigned index,
                                               unsigned count) const
{
    constexpr unsigned fractionSize = 8;
    const ExifEntry* entry = Find(place);
    if (entry == nullptr || entry->components != count || entry->size < count * fractionSize) {
        return std::nullopt;
    }
    const ExifByteOrder order = exif_data_get_byte_order(data.get());
    const unsigned char* bytes = entry->data + index * fractionSize;
    if (entry->format == EXIF_FORMAT_RATIONAL) {
        const ExifRational value = exif_get_rational(bytes, order);
        if (value.denominator == 0) return std::nullopt;
        return static_cast<double>(value.numerator) / value.denominator;
    }
    if (entry->format == EXIF_FORMAT_SRATIONAL) {
        const ExifSRational value = exif_get_srational(bytes, order);
        if (value.denominator == 0) return std::nullopt;
        return static_cast<double>(value.numerator) / value.denominator;
    }
    return std::nullopt;
}
