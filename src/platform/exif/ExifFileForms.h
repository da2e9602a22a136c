#pragma once

#include "platform/exif/ExifFileValues.h"

/// How the fields of Exif data are put into words. The words are written into reports, so they stay
/// as they are. Each form gives nothing for a field that is missing or makes no sense.
namespace ExifFileForms
{
using Form = std::optional<CString> (*)(const ExifFileValues& values, ExifPlace place);

/// "YYYY/MM/DD HH:MM:SS", of a day and a time that exist.
std::optional<CString> Date(const ExifFileValues& values, ExifPlace place);
/// A text in ASCII, UTF-8 or code page 932, without the blanks at its ends.
std::optional<CString> Words(const ExifFileValues& values, ExifPlace place);
/// The photographer's right and the editor's, with "/" between them.
std::optional<CString> Copyright(const ExifFileValues& values, ExifPlace place);
/// "2.21".
std::optional<CString> Version(const ExifFileValues& values, ExifPlace place);

/// "1/125 秒" up to a quarter of a second, "2.5 秒" from there on; 1/2 and 1/3 stay fractions.
std::optional<CString> ExposureTime(const ExifFileValues& values, ExifPlace place);
/// The same of a time in the APEX system.
std::optional<CString> ShutterSpeed(const ExifFileValues& values, ExifPlace place);
/// "F2.8".
std::optional<CString> FNumber(const ExifFileValues& values, ExifPlace place);
/// The same of an aperture in the APEX system.
std::optional<CString> Aperture(const ExifFileValues& values, ExifPlace place);
/// "+0.3 EV".
std::optional<CString> ExposureBias(const ExifFileValues& values, ExifPlace place);
/// "7.5 mm".
std::optional<CString> FocalLength(const ExifFileValues& values, ExifPlace place);
std::optional<CString> MeteringMode(const ExifFileValues& values, ExifPlace place);
/// What the bits of the field say, one by one: "発光、自動発光モード".
std::optional<CString> Flash(const ExifFileValues& values, ExifPlace place);

/// "北緯35度40分43.5秒". The hemisphere stands in the field in front of the angle.
std::optional<CString> Latitude(const ExifFileValues& values, ExifPlace place);
std::optional<CString> Longitude(const ExifFileValues& values, ExifPlace place);
/// "123.4 m" or "海面下 12.3 m". What is below the sea is told by the field in front of it.
std::optional<CString> Altitude(const ExifFileValues& values, ExifPlace place);
} // namespace ExifFileForms
