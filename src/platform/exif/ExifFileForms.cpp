#include "platform/exif/ExifFileForms.h"

#include "platform/text/Cp932.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace
{
/// What a camera can have meant, both ends included.
struct Range
{
    double least;
    double most;
};

constexpr Range exposureSeconds = {1e-6, 86400};
constexpr Range shutterSpeeds = {-16, 20};
constexpr Range fNumbers = {0.5, 1024};
constexpr Range apertures = {0, 20};
constexpr Range biases = {-99.99, 99.99};
constexpr Range focalLengths = {0.1, 99999};
constexpr Range altitudes = {0, 99999};

struct Word
{
    unsigned code;
    std::string_view text;
};

constexpr Word meteringModes[] = {
    {0, "不明"},         {1, "平均測光"},           {2, "中央重点測光"},
    {3, "スポット測光"}, {4, "マルチスポット測光"}, {5, "分割測光"},
    {6, "部分測光"},     {255, "その他"},
};

/// The bits of the flash field, in the order in which they are told.
struct FlashWord
{
    unsigned mask;
    unsigned bits;
    std::string_view text;
};

constexpr FlashWord flashWords[] = {
    {0x01, 0x00, "発光せず"},       {0x01, 0x01, "発光"},           {0x18, 0x08, "強制発光モード"},
    {0x18, 0x10, "発光禁止モード"}, {0x18, 0x18, "自動発光モード"}, {0x06, 0x04, "反射光検出せず"},
    {0x06, 0x06, "反射光検出"},     {0x40, 0x40, "赤目軽減モード"},
};
constexpr unsigned noFlashFunction = 0x20;
constexpr unsigned knownFlashBits = 0x7F;

struct Hemisphere
{
    char letter;
    std::string_view text;
};

struct Coordinate
{
    Hemisphere hemispheres[2];
    double mostDegrees;
};

constexpr Coordinate latitude = {{{'N', "北緯"}, {'S', "南緯"}}, 90};
constexpr Coordinate longitude = {{{'E', "東経"}, {'W', "西経"}}, 180};

/// \p number with one decimal, which is left out when it is 0.
CString Number(double number)
{
    CString text = Format("%.1f", number);
    if (text.ends_with(".0")) text.resize(text.size() - 2);
    return text == "-0" ? "0" : text;
}

CString FText(double number)
{
    return Format("F%s", Number(number).c_str());
}

std::optional<double> Within(Range range, std::optional<double> number)
{
    if (!number || !(*number >= range.least && *number <= range.most)) return std::nullopt;
    return number;
}

CString SecondsText(double seconds)
{
    constexpr double longestFraction = 0.25;
    constexpr double roundingOfCameras = 0.02;
    const double parts = 1 / seconds;
    const double whole = std::round(parts);
    const bool isFraction = whole >= 2 && std::abs(parts - whole) < roundingOfCameras;
    if (seconds <= longestFraction || isFraction) return Format("1/%.0f 秒", whole);
    return Number(seconds) + " 秒";
}

std::optional<int> Digits(std::string_view text)
{
    int number = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') return std::nullopt;
        number = number * 10 + (digit - '0');
    }
    return number;
}

std::optional<CString> Decoded(std::string_view bytes)
{
    std::optional<CString> text = IsUtf8(bytes) ? CString(bytes) : Cp932::Decode(bytes);
    if (!text) return std::nullopt;
    // A line of a list can't show them.
    std::replace_if(
        text->begin(), text->end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }, ' ');
    text = Trimmed(*text);
    return text->empty() ? std::nullopt : text;
}

/// The bytes up to the first NUL behind those at the front.
std::string_view UpToNul(std::string_view bytes)
{
    bytes.remove_prefix(std::min(bytes.find_first_not_of('\0'), bytes.size()));
    return bytes.substr(0, bytes.find('\0'));
}

std::optional<CString> Angle(const Coordinate& coordinate, const ExifFileValues& values,
                             ExifPlace place)
{
    constexpr long tenthsOfDegree = 36000;
    constexpr long tenthsOfMinute = 600;
    const auto letter = values.Text({place.tag - 1, true});
    const auto degrees = Within({0, coordinate.mostDegrees}, values.Fraction(place, 0, 3));
    const auto minutes = Within({0, 60}, values.Fraction(place, 1, 3));
    const auto seconds = Within({0, 60}, values.Fraction(place, 2, 3));
    if (!letter || letter->empty() || !degrees || !minutes || !seconds) return std::nullopt;
    const double angle = *degrees + *minutes / 60 + *seconds / 3600;
    const auto* hemisphere =
        std::find_if(std::begin(coordinate.hemispheres), std::end(coordinate.hemispheres),
                     [&](const Hemisphere& known) { return known.letter == letter->front(); });
    if (hemisphere == std::end(coordinate.hemispheres) || angle > coordinate.mostDegrees) {
        return std::nullopt;
    }
    const long tenths = std::lround(angle * static_cast<double>(tenthsOfDegree));
    return CString(hemisphere->text) +
           Format("%ld度%ld分", tenths / tenthsOfDegree, tenths % tenthsOfDegree / tenthsOfMinute) +
           Number(static_cast<double>(tenths % tenthsOfMinute) / 10) + "秒";
}
} // namespace

namespace ExifFileForms
{
std::optional<CString> Date(const ExifFileValues& values, ExifPlace place)
{
    // The first of each pair is where digits stand, the second how many.
    constexpr std::pair<std::size_t, std::size_t> parts[] = {{0, 4},  {5, 2},  {8, 2},
                                                             {11, 2}, {14, 2}, {17, 2}};
    const auto bytes = values.Text(place);
    if (!bytes) return std::nullopt;
    const CString text = Trimmed(UpToNul(*bytes));
    if (text.size() != 19 || text[13] != ':' || text[16] != ':') return std::nullopt;
    int numbers[6];
    for (std::size_t i = 0; i < std::size(parts); ++i) {
        const auto number = Digits(std::string_view(text).substr(parts[i].first, parts[i].second));
        if (!number) return std::nullopt;
        numbers[i] = *number;
    }
    const auto [year, month, day, hour, minute, second] = numbers;
    const std::chrono::year_month_day date{std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    if (year == 0 || !date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
    return Format("%04d/%02d/%02d %02d:%02d:%02d", year, month, day, hour, minute, second);
}

std::optional<CString> Words(const ExifFileValues& values, ExifPlace place)
{
    const auto bytes = values.Text(place);
    return bytes ? Decoded(UpToNul(*bytes)) : std::nullopt;
}

std::optional<CString> Copyright(const ExifFileValues& values, ExifPlace place)
{
    const auto bytes = values.Text(place);
    if (!bytes) return std::nullopt;
    // Without a photographer's right there is a blank in its place.
    const std::size_t end = std::min(bytes->find('\0'), bytes->size());
    const auto photographer = Decoded(bytes->substr(0, end));
    const auto editor = Decoded(UpToNul(bytes->substr(end)));
    if (!editor) return photographer;
    return photographer.value_or("") + "/" + *editor;
}

std::optional<CString> Version(const ExifFileValues& values, ExifPlace place)
{
    constexpr std::size_t digits = 4;
    const auto bytes = values.Bytes(place);
    if (!bytes || bytes->size() < digits || UpToNul(bytes->substr(digits)) != "") {
        return std::nullopt;
    }
    const auto number = Digits(bytes->substr(0, digits));
    if (!number || *number < 100) return std::nullopt;
    CString text = Format("%d.%02d", *number / 100, *number % 100);
    if (text.back() == '0') text.pop_back();
    return text;
}

std::optional<CString> ExposureTime(const ExifFileValues& values, ExifPlace place)
{
    const auto seconds = Within(exposureSeconds, values.Fraction(place));
    return seconds ? std::optional(SecondsText(*seconds)) : std::nullopt;
}

std::optional<CString> ShutterSpeed(const ExifFileValues& values, ExifPlace place)
{
    const auto speed = Within(shutterSpeeds, values.Fraction(place));
    return speed ? std::optional(SecondsText(std::exp2(-*speed))) : std::nullopt;
}

std::optional<CString> FNumber(const ExifFileValues& values, ExifPlace place)
{
    const auto number = Within(fNumbers, values.Fraction(place));
    return number ? std::optional(FText(*number)) : std::nullopt;
}

std::optional<CString> Aperture(const ExifFileValues& values, ExifPlace place)
{
    const auto aperture = Within(apertures, values.Fraction(place));
    return aperture ? std::optional(FText(std::exp2(*aperture / 2))) : std::nullopt;
}

std::optional<CString> ExposureBias(const ExifFileValues& values, ExifPlace place)
{
    const auto bias = Within(biases, values.Fraction(place));
    if (!bias) return std::nullopt;
    const CString number = Number(*bias);
    return Format("%s%s EV", number == "0" || *bias < 0 ? "" : "+", number.c_str());
}

std::optional<CString> FocalLength(const ExifFileValues& values, ExifPlace place)
{
    const auto length = Within(focalLengths, values.Fraction(place));
    return length ? std::optional(Number(*length) + " mm") : std::nullopt;
}

std::optional<CString> MeteringMode(const ExifFileValues& values, ExifPlace place)
{
    const auto code = values.Whole(place);
    for (const Word& word : meteringModes) {
        if (code == word.code) return CString(word.text);
    }
    return std::nullopt;
}

std::optional<CString> Flash(const ExifFileValues& values, ExifPlace place)
{
    const auto code = values.Whole(place);
    if (!code || (*code & ~knownFlashBits) != 0) return std::nullopt;
    if ((*code & noFlashFunction) != 0) return "フラッシュ機能なし";
    CString text;
    for (const FlashWord& word : flashWords) {
        if ((*code & word.mask) != word.bits) continue;
        if (!text.empty()) text += "、";
        text += word.text;
    }
    return text;
}

std::optional<CString> Latitude(const ExifFileValues& values, ExifPlace place)
{
    return Angle(latitude, values, place);
}

std::optional<CString> Longitude(const ExifFileValues& values, ExifPlace place)
{
    return Angle(longitude, values, place);
}

std::optional<CString> Altitude(const ExifFileValues& values, ExifPlace place)
{
    constexpr unsigned belowSea = 1;
    const auto altitude = Within(altitudes, values.Fraction(place));
    const unsigned reference = values.Whole({place.tag - 1, true}).value_or(0);
    if (!altitude || reference > belowSea) return std::nullopt;
    const CString number = Number(*altitude);
    return Format("%s%s m", reference == belowSea && number != "0" ? "海面下 " : "",
                  number.c_str());
}
} // namespace ExifFileForms
