#include "platform/exif/ExifEvidence.h"

#include "platform/exif/ExifFileBlock.h"
#include "platform/exif/ExifFileForms.h"

namespace
{
constexpr ExifPlace gpsDate = {0x001D, true};
constexpr ExifPlace gpsTime = {0x0007, true};

CString TextAt(const ExifFileValues& values, ExifPlace place)
{
    const std::string_view text = values.Text(place).value_or(std::string_view());
    const CString whole = Trimmed(text.substr(0, text.find('\0')));
    return IsUtf8(whole) ? whole : CString();
}

CString GpsMoment(const ExifFileValues& values)
{
    const CString day = TextAt(values, gpsDate);
    if (day.empty()) return {};
    int clock[3] = {};
    for (unsigned i = 0; i < 3; ++i) {
        const std::optional<double> part = values.Fraction(gpsTime, i, 3);
        if (!part || *part < 0 || *part > 99) return day;
        clock[i] = static_cast<int>(*part);
    }
    return day + Format(" %02d:%02d:%02d", clock[0], clock[1], clock[2]);
}
} // namespace

ExifEvidence ReadExifEvidence(const CString& path)
{
    const ExifFileValues values(ReadExifFileBlock(path).bytes);
    if (values.IsEmpty()) return {};
    return {.isThere = true,
            .original = TextAt(values, {EXIF_TAG_DATE_TIME_ORIGINAL}),
            .digitized = TextAt(values, {EXIF_TAG_DATE_TIME_DIGITIZED}),
            .changed = TextAt(values, {EXIF_TAG_DATE_TIME}),
            .gps = GpsMoment(values),
            .maker = ExifFileForms::Words(values, {EXIF_TAG_MAKE}).value_or(""),
            .model = ExifFileForms::Words(values, {EXIF_TAG_MODEL}).value_or(""),
            .software = ExifFileForms::Words(values, {EXIF_TAG_SOFTWARE}).value_or(""),
            .width = values.Whole({EXIF_TAG_PIXEL_X_DIMENSION}),
            .height = values.Whole({EXIF_TAG_PIXEL_Y_DIMENSION})};
}
