#include "platform/exif/ExifFile.h"
#include "platform/exif/PictureSize.h"

#include "platform/exif/ExifFileForms.h"

namespace
{
struct Field
{
    LumCMNT code;
    ExifPlace place;
    ExifFileForms::Form form;
};

using namespace ExifFileForms;

constexpr Field fields[] = {
    {LumCmntArtist, {EXIF_TAG_ARTIST}, Words},
    {LumCmntCopyright, {EXIF_TAG_COPYRIGHT}, Copyright},
    {LumCmntDateTime, {EXIF_TAG_DATE_TIME}, Date},
    {LumCmntMake, {EXIF_TAG_MAKE}, Words},
    {LumCmntModel, {EXIF_TAG_MODEL}, Words},
    {LumCmntSoftware, {EXIF_TAG_SOFTWARE}, Words},
    {LumCmntExifVersion, {EXIF_TAG_EXIF_VERSION}, Version},
    {LumCmntDateTimeOriginal, {EXIF_TAG_DATE_TIME_ORIGINAL}, Date},
    {LumCmntDateTimeDigitized, {EXIF_TAG_DATE_TIME_DIGITIZED}, Date},
    {LumCmntShutterSpeed, {EXIF_TAG_SHUTTER_SPEED_VALUE}, ShutterSpeed},
    {LumCmntAperture, {EXIF_TAG_APERTURE_VALUE}, Aperture},
    {LumCmntExposureBias, {EXIF_TAG_EXPOSURE_BIAS_VALUE}, ExposureBias},
    {LumCmntMaxAperture, {EXIF_TAG_MAX_APERTURE_VALUE}, Aperture},
    {LumCmntMeteringMode, {EXIF_TAG_METERING_MODE}, MeteringMode},
    {LumCmntFlash, {EXIF_TAG_FLASH}, Flash},
    {LumCmntFocalLength, {EXIF_TAG_FOCAL_LENGTH}, FocalLength},
    {LumCmntExposureTime, {EXIF_TAG_EXPOSURE_TIME}, ExposureTime},
    {LumCmntFNumber, {EXIF_TAG_FNUMBER}, FNumber},
    {LumCmntGpsLatitude, {EXIF_TAG_GPS_LATITUDE, true}, Latitude},
    {LumCmntGpsLongitude, {EXIF_TAG_GPS_LONGITUDE, true}, Longitude},
    {LumCmntGpsAltitude, {EXIF_TAG_GPS_ALTITUDE, true}, Altitude},
};
} // namespace

ExifFile::ExifFile(const CString& path) : block(ReadExifFileBlock(path)), values(block.bytes) {}

std::optional<CString> ExifFile::Text(LumCMNT code) const
{
    if (code == LumCmntImageSize || code == LumCmntTotalPixels) return SizeFact(code);
    for (const Field& field : fields) {
        if (field.code == code) return field.form(values, field.place);
    }
    return std::nullopt;
}

std::optional<CString> ExifFile::SizeFact(LumCMNT code) const
{
    if (values.IsEmpty() || block.width == 0 || block.height == 0) return std::nullopt;
    return code == LumCmntImageSize ? SizeText(block.width, block.height)
                                    : TotalPixelsText(block.width, block.height);
}
