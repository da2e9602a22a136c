#include "platform/exif/PictureSize.h"
#include "platform/pictures/LumImage.h"
#include "platform/text/Cp932.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{
using namespace std::string_literals;

enum Folder
{
    ImageFolder,
    ExifFolder,
    GpsFolder
};

enum Type
{
    Byte = 1,
    Ascii,
    Short,
    Long,
    Rational,
    Undefined = 7,
    SignedRational = 10
};

struct Field
{
    Folder folder;
    int tag;
    Type type;
    CString text = {};
    std::vector<long long> numbers = {};
};

/// Writes fields as a TIFF file without a picture, which is what Exif data are.
class TiffWriter
{
public:
    explicit TiffWriter(bool bigEndian) : big(bigEndian) {}

    std::string Write(std::vector<Field> fields) const
    {
        std::string body;
        const auto lay = [&](Folder folder) {
            const std::size_t at = 8 + body.size();
            body += Directory(fields, folder, at);
            return static_cast<long long>(at);
        };
        const long long gps = lay(GpsFolder);
        const long long exif = lay(ExifFolder);
        fields.push_back({ImageFolder, 0x8769, Long, {}, {exif}});
        fields.push_back({ImageFolder, 0x8825, Long, {}, {gps}});
        const long long image = lay(ImageFolder);
        return (big ? "MM" : "II") + Number(42, 2) + Number(image, 4) + body;
    }

    std::string Number(long long number, int size) const
    {
        std::string bytes;
        for (int i = 0; i < size; ++i) {
            const int shift = 8 * (big ? size - 1 - i : i);
            bytes += static_cast<char>(number >> shift & 0xFF);
        }
        return bytes;
    }

private:
    std::string Directory(const std::vector<Field>& fields, Folder folder, std::size_t at) const
    {
        std::string entries;
        std::string values;
        int count = 0;
        for (const Field& field : fields) count += field.folder == folder ? 1 : 0;
        at += 2 + 12 * static_cast<std::size_t>(count) + 4;
        for (const Field& field : fields) {
            if (field.folder != folder) continue;
            std::string value = field.text;
            const int size = field.type == Byte ? 1 : field.type == Short ? 2 : 4;
            for (const long long number : field.numbers) value += Number(number, size);
            const bool isFraction = field.type == Rational || field.type == SignedRational;
            const std::size_t components =
                field.text.empty() ? field.numbers.size() / (isFraction ? 2 : 1) : value.size();
            entries += Number(field.tag, 2) + Number(field.type, 2) +
                       Number(static_cast<long long>(components), 4);
            if (value.size() <= 4) {
                value.resize(4);
                entries += value;
            } else {
                entries += Number(static_cast<long long>(at + values.size()), 4);
                values += value;
            }
        }
        return Number(count, 2) + entries + Number(0, 4) + values;
    }

    bool big;
};

/// A JPEG file of 1600 by 1200 pixels, cut off where they would begin.
std::string Jpeg(const std::string& tiff)
{
    const TiffWriter big(true);
    const std::string block = "Exif\0\0"s + tiff;
    return "\xFF\xD8\xFF\xFF\xE1" + big.Number(static_cast<long long>(block.size()) + 2, 2) +
           block + "\xFF\xC0\0\x11\x08\x04\xB0\x06\x40\x03"s + std::string(9, '\0');
}

Field Text(int tag, const CString& text)
{
    return {ImageFolder, tag, Ascii, text};
}

Field Fraction(int tag, std::vector<long long> numbers, Type type = Rational)
{
    return {ExifFolder, tag, type, {}, std::move(numbers)};
}

Field Whole(int tag, long long number, Type type = Short)
{
    return {ExifFolder, tag, type, {}, {number}};
}

Field GpsLetter(int tag, const CString& text)
{
    return {GpsFolder, tag, Ascii, text};
}

Field Gps(int tag, std::vector<long long> numbers, Type type = Rational)
{
    return {GpsFolder, tag, type, {}, std::move(numbers)};
}

struct Case
{
    LumCMNT code;
    std::vector<Field> fields;
    /// Empty where the field counts as missing.
    CString expected;
};

/// Gives each case as a JPEG and a TIFF file in both byte orders.
void Check(const std::vector<Case>& cases)
{
    const TempFolder temp;
    for (std::size_t i = 0; i < cases.size(); ++i) {
        std::vector<Field> fields = cases[i].fields;
        fields.push_back({ExifFolder, 0x8827, Short, {}, {100}});
        for (const bool big : {false, true}) {
            const CString what = Format("case %zu, %s", i, big ? "MM" : "II");
            const std::string tiff = TiffWriter(big).Write(fields);
            for (const std::string& bytes : {Jpeg(tiff), tiff}) {
                const CString path = temp.Write("P1.JPG", bytes);
                CString out = "before";
                const bool known = LumImage::GetComment(path.c_str(), cases[i].code, out);
                EXPECT_EQ(known, !cases[i].expected.empty()) << what << ": " << out;
                EXPECT_EQ(out, known ? cases[i].expected : "before") << what;
                EXPECT_EQ(LumImage::GetComments(path.c_str())[cases[i].code],
                          known ? std::optional(out) : std::nullopt);
            }
        }
    }
}

TEST(ExifFile, WordsDatesAndTexts)
{
    const CString cp932 = *Cp932::Encode("髙橋①号");
    Check({
        {LumCmntDateTime, {Text(0x132, "2024:02:29 23:59:58\0"s)}, "2024/02/29 23:59:58"},
        {LumCmntDateTimeOriginal,
         {{ExifFolder, 0x9003, Ascii, "2024-02-28T01:02:03"}},
         "2024/02/28 01:02:03"},
        {LumCmntDateTimeDigitized,
         {{ExifFolder, 0x9004, Ascii, "1999:12:31 00:00:00\0"s}},
         "1999/12/31 00:00:00"},
        {LumCmntDateTime, {Text(0x132, "0000:00:00 00:00:00\0"s)}, ""},
        {LumCmntDateTime, {Text(0x132, "2023:02:29 00:00:00\0"s)}, ""},
        {LumCmntDateTime, {Text(0x132, "2023:02:28 24:00:00\0"s)}, ""},
        {LumCmntDateTime, {{ImageFolder, 0x132, Short, {}, {2024}}}, ""},
        {LumCmntMake, {Text(0x10F, "\0\0  NORTHFIELD Ltd. \0\0\0"s)}, "NORTHFIELD Ltd."},
        {LumCmntModel, {Text(0x110, "現場カメラ\0rest"s)}, "現場カメラ"},
        {LumCmntArtist, {Text(0x13B, cp932)}, "髙橋①号"},
        {LumCmntSoftware, {Text(0x131, "Ver.1\r\nLine")}, "Ver.1  Line"},
        {LumCmntSoftware, {Text(0x131, "\x81\xFF\xFF")}, ""},
        {LumCmntCopyright, {Text(0x8298, "撮影 太郎 \0"s)}, "撮影 太郎"},
        {LumCmntCopyright, {Text(0x8298, "撮影 太郎\0編集 花子\0"s)}, "撮影 太郎/編集 花子"},
        {LumCmntCopyright, {Text(0x8298, " \0編集 花子\0"s)}, "/編集 花子"},
        {LumCmntExifVersion, {{ExifFolder, 0x9000, Undefined, "0221"}}, "2.21"},
        {LumCmntExifVersion, {{ExifFolder, 0x9000, Undefined, "0230"}}, "2.3"},
        {LumCmntExifVersion, {{ExifFolder, 0x9000, Undefined, "\0\0\0\0"s}}, ""},
        {LumCmntExifVersion, {{ExifFolder, 0x9000, Undefined, "023"}}, ""},
        // The library that reads the data must not make up what the standard demands.
        {LumCmntExifVersion, {Whole(0x9209, 0)}, ""},
    });
}

TEST(ExifFile, WordsShootingFacts)
{
    Check({
        {LumCmntExposureTime, {Fraction(0x829A, {10, 1250})}, "1/125 秒"},
        {LumCmntExposureTime, {Fraction(0x829A, {1, 2})}, "1/2 秒"},
        {LumCmntExposureTime, {Fraction(0x829A, {3, 10})}, "0.3 秒"},
        {LumCmntExposureTime, {Fraction(0x829A, {1, 1})}, "1 秒"},
        {LumCmntExposureTime, {Fraction(0x829A, {1, 0})}, ""},
        {LumCmntExposureTime, {Fraction(0x829A, {0xFFFFFFFF, 1})}, ""},
        {LumCmntExposureTime, {Fraction(0x829A, {1, 125, 1, 125})}, ""},
        {LumCmntExposureTime, {Whole(0x829A, 1, Long)}, ""},
        {LumCmntShutterSpeed, {Fraction(0x9201, {7, 1}, SignedRational)}, "1/128 秒"},
        {LumCmntShutterSpeed, {Fraction(0x9201, {-2, 1}, SignedRational)}, "4 秒"},
        {LumCmntShutterSpeed, {Fraction(0x9201, {99, 1}, SignedRational)}, ""},
        {LumCmntAperture, {Fraction(0x9202, {297, 100})}, "F2.8"},
        {LumCmntAperture, {Fraction(0x9202, {1000, 1})}, ""},
        {LumCmntFNumber, {Fraction(0x829D, {56, 10})}, "F5.6"},
        {LumCmntExposureBias, {Fraction(0x9204, {1, 3}, SignedRational)}, "+0.3 EV"},
        {LumCmntExposureBias, {Fraction(0x9204, {-5, 3}, SignedRational)}, "-1.7 EV"},
        {LumCmntExposureBias, {Fraction(0x9204, {-1, 100}, SignedRational)}, "0 EV"},
        {LumCmntExposureBias, {Fraction(0x9204, {0, 0}, SignedRational)}, ""},
        {LumCmntFocalLength, {Fraction(0x920A, {75, 10})}, "7.5 mm"},
        {LumCmntMeteringMode, {Whole(0x9207, 5)}, "分割測光"},
        {LumCmntMeteringMode, {Whole(0x9207, 7)}, ""},
        {LumCmntFlash, {Whole(0x9209, 0x00)}, "発光せず"},
        {LumCmntFlash, {Whole(0x9209, 0x01, Byte)}, "発光"},
        {LumCmntFlash, {Whole(0x9209, 0x18)}, "発光せず、自動発光モード"},
        {LumCmntFlash, {Whole(0x9209, 0x20)}, "フラッシュ機能なし"},
        {LumCmntFlash,
         {Whole(0x9209, 0x4F, Long)},
         "発光、強制発光モード、反射光検出、赤目軽減モード"},
        {LumCmntFlash, {Whole(0x9209, 0xFFFF)}, ""},
        {static_cast<LumCMNT>(3), {Whole(0x9209, 0)}, ""},
    });
}

TEST(ExifFile, WordsPlaces)
{
    const Field north = GpsLetter(1, "N\0"s);
    const std::vector<long long> angle = {35, 1, 40, 1, 4350, 100};
    Check({
        {LumCmntGpsLatitude, {north, Gps(2, angle)}, "北緯35度40分43.5秒"},
        {LumCmntGpsLatitude,
         {GpsLetter(1, "S"), Gps(2, {3575, 100, 0, 1, 0, 1})},
         "南緯35度45分0秒"},
        {LumCmntGpsLatitude, {north, Gps(2, {35, 1, 59, 1, 5999, 100})}, "北緯36度0分0秒"},
        {LumCmntGpsLongitude,
         {GpsLetter(3, "E\0"s), Gps(4, {139, 1, 4, 1, 1, 1})},
         "東経139度4分1秒"},
        {LumCmntGpsLongitude,
         {GpsLetter(3, "W\0"s), Gps(4, {180, 1, 0, 1, 0, 1})},
         "西経180度0分0秒"},
        {LumCmntGpsLatitude, {Gps(2, angle)}, ""},
        {LumCmntGpsLatitude, {north, Gps(2, {90, 1, 0, 1, 1, 1})}, ""},
        {LumCmntGpsLatitude, {north, Gps(2, {35, 1, 61, 1, 0, 1})}, ""},
        {LumCmntGpsLatitude, {north, Gps(2, {35, 1, 40, 1, 0, 0})}, ""},
        {LumCmntGpsAltitude, {Gps(5, {0}, Byte), Gps(6, {1234, 10})}, "123.4 m"},
        {LumCmntGpsAltitude, {Gps(5, {1}, Byte), Gps(6, {123, 10})}, "海面下 12.3 m"},
        {LumCmntGpsAltitude, {Gps(6, {0xFFFFFFFF, 1})}, ""},
        // The same tag means something else in another directory.
        {LumCmntGpsAltitude, {Fraction(6, {1234, 10})}, ""},
    });
}

TEST(ExifFile, FindsTheBlockWhereverItStands)
{
    const TempFolder temp;
    const std::string tiff = TiffWriter(false).Write({{ExifFolder, 0x9000, Undefined, "0230"}});
    const std::string jpeg = Jpeg(tiff);
    const std::string other = "\xFF\xE2\xFF\xFF" + std::string(0xFFFD, 'x');
    const std::tuple<const char*, std::string, const char*, const char*> cases[] = {
        {"first", jpeg, "2.3", "1600×1200"},
        {"behind-a-large-segment", jpeg.substr(0, 2) + other + jpeg.substr(2), "2.3", "1600×1200"},
        {"without-a-frame", jpeg.substr(0, jpeg.size() - 19), "2.3", ""},
        {"behind-the-start-of-the-picture", jpeg.substr(0, 2) + "\xFF\xDA\0\x02"s + jpeg.substr(2),
         "", ""},
        {"without-exif", jpeg.substr(0, 2) + jpeg.substr(jpeg.size() - 19), "", ""},
        {"segment-of-no-length", "\xFF\xD8\xFF\xE1\0\0"s + jpeg.substr(2), "", ""},
        {"empty", "", "", ""},
        {"tiff-of-a-scanner",
         TiffWriter(true).Write(
             {{ImageFolder, 0x100, Short, {}, {640}}, {ImageFolder, 0x101, Long, {}, {480}}}),
         "", ""},
        {"tiff-of-a-camera",
         TiffWriter(true).Write({{ImageFolder, 0x100, Short, {}, {640}},
                                 {ImageFolder, 0x101, Long, {}, {480}},
                                 {ExifFolder, 0x9000, Undefined, "0230"}}),
         "2.3", "640×480"},
        {"tiff-without-a-directory", tiff.substr(0, 8), "", ""},
        {"tiff-with-exif-far-behind",
         "II*\0"s + TiffWriter(false).Number(70000, 4) + std::string(69992, 'x') +
             "\1\0\x69\x87\4\0\1\0\0\0\x82\x11\1\0\0\0\0\0"s + "\1\0\0\x90\7\0\4\0\0\0"s + "0230" +
             "\0\0\0\0"s,
         "2.3", ""},
    };
    for (const auto& [name, bytes, version, size] : cases) {
        const LumComments all = LumImage::GetComments(temp.Write(name, bytes).c_str());
        EXPECT_EQ(all[LumCmntExifVersion].value_or(""), version) << name;
        EXPECT_EQ(all[LumCmntImageSize].value_or(""), size) << name;
        EXPECT_EQ(all[LumCmntTotalPixels].has_value(), *size != '\0') << name;
    }
    CString out;
    EXPECT_FALSE(LumImage::GetComment(nullptr, LumCmntMake, out));
    EXPECT_FALSE(LumImage::GetComment(temp.Path().c_str(), LumCmntMake, out));
    EXPECT_TRUE(LumImage::GetComment(temp.Path("FIRST").c_str(), LumCmntExifVersion, out));
}

TEST(ExifFile, CountsPixelsInUnitsOfTenThousand)
{
    for (const auto& [width, height, text] : {std::tuple{9999, 1, "9999画素"},
                                              {14999, 1, "1万画素"},
                                              {15000, 1, "2万画素"},
                                              {65535, 65535, "429484万画素"}}) {
        EXPECT_EQ(TotalPixelsText(width, height), text);
    }
}
} // namespace
