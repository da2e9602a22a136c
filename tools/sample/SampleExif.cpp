#include "sample/SampleExif.h"

#include <libexif/exif-data.h>
#include <libexif/exif-mem.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace
{
struct Camera
{
    std::string_view maker;
    std::string_view model;
    bool hasGps;
};

constexpr Camera cameras[] = {
    {"KAEDE IMAGING", "GENBA 120", true},
    {"KAEDE IMAGING", "GENBA 80W", false},
    {"Northfield", "SiteShot S2", false},
    {"HOKUTO DIGITAL", "HD-FIELD5", true},
};

/// Collects entries and gives the finished block.
class ExifWriter
{
public:
    ExifWriter() : data(exif_data_new(), &exif_data_unref)
    {
        if (!data) throw std::bad_alloc();
        exif_data_set_byte_order(data.get(), order);
    }

    void PutBytes(ExifIfd ifd, int tag, ExifFormat format, const std::string& bytes);
    void PutText(ExifIfd ifd, int tag, std::string_view text)
    {
        // The terminating NUL belongs to the value.
        PutBytes(ifd, tag, EXIF_FORMAT_ASCII, std::string(text) + '\0');
    }
    /// \p format tells how the numbers are stored; rational ones as fractions of \p denominator.
    void PutNumbers(ExifIfd ifd, int tag, ExifFormat format, std::initializer_list<double> values,
                    int denominator = 1);

    std::string Block() const
    {
        unsigned char* bytes = nullptr;
        unsigned size = 0;
        exif_data_save_data(data.get(), &bytes, &size);
        const std::unique_ptr<unsigned char, decltype(&std::free)> owner(bytes, &std::free);
        return std::string(reinterpret_cast<const char*>(bytes), size);
    }

private:
    static constexpr ExifByteOrder order = EXIF_BYTE_ORDER_INTEL;

    std::unique_ptr<ExifData, decltype(&exif_data_unref)> data;
};

void ExifWriter::PutBytes(ExifIfd ifd, int tag, ExifFormat format, const std::string& bytes)
{
    const std::unique_ptr<ExifMem, decltype(&exif_mem_unref)> memory(exif_mem_new_default(),
                                                                     &exif_mem_unref);
    const std::unique_ptr<ExifEntry, decltype(&exif_entry_unref)> entry(
        exif_entry_new_mem(memory.get()), &exif_entry_unref);
    entry->tag = static_cast<ExifTag>(tag);
    entry->format = format;
    entry->components = bytes.size() / exif_format_get_size(format);
    entry->size = static_cast<unsigned>(bytes.size());
    entry->data = static_cast<unsigned char*>(exif_mem_alloc(memory.get(), entry->size));
    if (entry->data == nullptr) throw std::bad_alloc();
    std::memcpy(entry->data, bytes.data(), bytes.size());
    exif_content_add_entry(data->ifd[ifd], entry.get());
}

void ExifWriter::PutNumbers(ExifIfd ifd, int tag, ExifFormat format,
                            std::initializer_list<double> values, int denominator)
{
    const bool rational = format == EXIF_FORMAT_RATIONAL || format == EXIF_FORMAT_SRATIONAL;
    std::string bytes;
    for (const double value : values) {
        unsigned char number[8];
        // Negative numbers are stored as their two's complement, so that one call does for both.
        const auto whole = static_cast<ExifLong>(std::lround(value * denominator));
        if (format == EXIF_FORMAT_SHORT) {
            exif_set_short(number, order, static_cast<ExifShort>(whole));
        } else {
            exif_set_long(number, order, whole);
        }
        if (rational) exif_set_long(number + 4, order, static_cast<ExifLong>(denominator));
        bytes.append(reinterpret_cast<const char*>(number), exif_format_get_size(format));
    }
    PutBytes(ifd, tag, format, bytes);
}

CString ExifTime(std::chrono::sys_seconds time)
{
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    return Format("%04d:%02u:%02u %02d:%02d:%02d", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()),
                  static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
}

void PutPosition(ExifWriter& exif, const GeoPosition& position)
{
    constexpr auto gps = EXIF_IFD_GPS;
    const auto putAngle = [&](int tag, double angle) {
        const double degrees = std::floor(angle);
        const double minutes = (angle - degrees) * 60;
        const double seconds = (minutes - std::floor(minutes)) * 60;
        exif.PutNumbers(gps, tag, EXIF_FORMAT_RATIONAL, {degrees, std::floor(minutes), seconds},
                        100);
    };
    exif.PutBytes(gps, EXIF_TAG_GPS_VERSION_ID, EXIF_FORMAT_BYTE, std::string("\2\3\0\0", 4));
    exif.PutText(gps, EXIF_TAG_GPS_LATITUDE_REF, "N");
    putAngle(EXIF_TAG_GPS_LATITUDE, position.latitude);
    exif.PutText(gps, EXIF_TAG_GPS_LONGITUDE_REF, "E");
    putAngle(EXIF_TAG_GPS_LONGITUDE, position.longitude);
    exif.PutBytes(gps, EXIF_TAG_GPS_ALTITUDE_REF, EXIF_FORMAT_BYTE, std::string(1, '\0'));
    exif.PutNumbers(gps, EXIF_TAG_GPS_ALTITUDE, EXIF_FORMAT_RATIONAL, {position.altitude}, 10);
    exif.PutText(gps, EXIF_TAG_GPS_MAP_DATUM, "WGS-84");
}

struct NumberRow
{
    ExifIfd ifd;
    ExifTag tag;
    ExifFormat format;
    int denominator;
    double value;
};

void PutNumberRows(ExifWriter& exif, const SampleShot& shot)
{
    constexpr auto image = EXIF_IFD_0;
    constexpr auto shooting = EXIF_IFD_EXIF;
    constexpr auto whole = EXIF_FORMAT_SHORT;
    constexpr auto rational = EXIF_FORMAT_RATIONAL;
    constexpr auto signedRational = EXIF_FORMAT_SRATIONAL;
    const double fNumber = shot.aperture / 10.0;
    const double flash = shot.flash ? 0x09 : 0x10;
    const NumberRow rows[] = {
        {image, EXIF_TAG_ORIENTATION, whole, 1, static_cast<double>(shot.orientation)},
        {image, EXIF_TAG_X_RESOLUTION, rational, 1, 72},
        {image, EXIF_TAG_Y_RESOLUTION, rational, 1, 72},
        {image, EXIF_TAG_RESOLUTION_UNIT, whole, 1, 2},
        {image, EXIF_TAG_YCBCR_POSITIONING, whole, 1, 2},
        {shooting, EXIF_TAG_EXPOSURE_TIME, rational, shot.shutter, 1.0 / shot.shutter},
        {shooting, EXIF_TAG_FNUMBER, rational, 10, fNumber},
        {shooting, EXIF_TAG_ISO_SPEED_RATINGS, whole, 1, 100},
        {shooting, EXIF_TAG_SHUTTER_SPEED_VALUE, signedRational, 100, std::log2(shot.shutter)},
        {shooting, EXIF_TAG_APERTURE_VALUE, rational, 100, 2 * std::log2(fNumber)},
        {shooting, EXIF_TAG_EXPOSURE_BIAS_VALUE, signedRational, 10, shot.exposureBias},
        {shooting, EXIF_TAG_MAX_APERTURE_VALUE, rational, 100, 2 * std::log2(2.8)},
        {shooting, EXIF_TAG_METERING_MODE, whole, 1, 5},
        {shooting, EXIF_TAG_FLASH, whole, 1, flash},
        {shooting, EXIF_TAG_FOCAL_LENGTH, rational, 100, 5},
        {shooting, EXIF_TAG_COLOR_SPACE, whole, 1, 1},
        {shooting, EXIF_TAG_PIXEL_X_DIMENSION, EXIF_FORMAT_LONG, 1,
         static_cast<double>(shot.width)},
        {shooting, EXIF_TAG_PIXEL_Y_DIMENSION, EXIF_FORMAT_LONG, 1,
         static_cast<double>(shot.height)},
    };
    for (const NumberRow& row : rows) {
        exif.PutNumbers(row.ifd, row.tag, row.format, {row.value}, row.denominator);
    }
}
} // namespace

SampleShot MakeSampleShot(SampleRandom& random, std::chrono::sys_seconds takenAt)
{
    constexpr int shutters[] = {60, 100, 125, 160, 250, 320, 500, 800};
    constexpr int apertures[] = {28, 35, 40, 56, 80};
    const Camera& camera = random.Pick(cameras);
    SampleShot shot{};
    shot.takenAt = takenAt;
    shot.maker = camera.maker;
    shot.model = camera.model;
    shot.shutter = random.Pick(shutters);
    shot.aperture = random.Pick(apertures);
    shot.exposureBias = random.Between(-2, 2) * 0.3;
    shot.flash = random.Chance(8);
    if (camera.hasGps && random.Chance(60)) {
        shot.position = {36.1 + random.Between(0.0, 0.02), 140.08 + random.Between(0.0, 0.02),
                         random.Between(4.0, 60.0)};
    }
    return shot;
}

std::string WithExif(const std::string& jpeg, const SampleShot& shot)
{
    ExifWriter exif;
    const CString time = ExifTime(shot.takenAt);
    exif.PutText(EXIF_IFD_0, EXIF_TAG_MAKE, shot.maker);
    exif.PutText(EXIF_IFD_0, EXIF_TAG_MODEL, shot.model);
    exif.PutText(EXIF_IFD_0, EXIF_TAG_SOFTWARE, "Ver.1.02");
    exif.PutText(EXIF_IFD_0, EXIF_TAG_DATE_TIME, time);
    exif.PutBytes(EXIF_IFD_EXIF, EXIF_TAG_EXIF_VERSION, EXIF_FORMAT_UNDEFINED, "0230");
    exif.PutText(EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL, time);
    exif.PutText(EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_DIGITIZED, time);
    PutNumberRows(exif, shot);
    if (shot.position) PutPosition(exif, *shot.position);

    const std::string block = exif.Block();
    const auto length = block.size() + 2;
    std::string result = jpeg.substr(0, 2) + "\xFF\xE1";
    result += static_cast<char>(length >> 8);
    result += static_cast<char>(length & 0xFF);
    return result.append(block).append(jpeg, 2);
}
