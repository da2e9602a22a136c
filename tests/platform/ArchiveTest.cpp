#include "platform/files/Archive.h"
#include "platform/text/Cp932.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

#include <cstdint>

namespace
{
using testing::HasSubstr;
using testing::IsEmpty;

/// A file to be stored in a ZIP file.
struct Stored
{
    std::string name;
    std::string bytes = "x";
    unsigned flags = 0;
    /// As Unix has it: 0120777 is a link.
    unsigned mode = 0100644;
};

void Append(std::string& to, std::uint64_t number, int bytes)
{
    for (int i = 0; i < bytes; ++i) to += static_cast<char>(number >> 8 * i & 0xFF);
}

std::uint32_t Crc32(std::string_view bytes)
{
    std::uint32_t crc = ~0U;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320U : 0);
    }
    return ~crc;
}

/// What the local and the central header of a file share, behind their first fields.
std::string HeaderOf(const Stored& file)
{
    std::string header;
    for (const unsigned number : {file.flags, 0U, 0U, 0U}) Append(header, number, 2);
    Append(header, Crc32(file.bytes), 4);
    Append(header, file.bytes.size(), 4);
    Append(header, file.bytes.size(), 4);
    Append(header, file.name.size(), 2);
    Append(header, 0, 2);
    return header;
}

std::string ZipOf(const std::vector<Stored>& files)
{
    std::string zip;
    std::string central;
    for (const Stored& file : files) {
        const std::size_t place = zip.size();
        zip += std::string("PK\3\4\12\0", 6) + HeaderOf(file) + file.name + file.bytes;
        central += std::string("PK\1\2\12\3\12\0", 8) + HeaderOf(file);
        Append(central, 0, 6);
        Append(central, std::uint64_t{file.mode} << 16, 4);
        Append(central, place, 4);
        central += file.name;
    }
    const std::size_t start = zip.size();
    zip += central + std::string("PK\5\6\0\0\0\0", 8);
    Append(zip, files.size(), 2);
    Append(zip, files.size(), 2);
    Append(zip, central.size(), 4);
    Append(zip, start, 4);
    return zip + std::string(2, '\0');
}

TEST(Archive, GivesItsFilesUnderTheirNamesInEitherEncoding)
{
    const TempFolder temp;
    const CString name = "工事/表/PHOTO.XML";
    constexpr unsigned isUtf8 = 0x800;
    for (const Stored& file : {Stored{*Cp932::Encode(name), "data"}, Stored{name, "data", isUtf8},
                               Stored{*Cp932::Encode("工事\\表\\PHOTO.XML"), "data"}}) {
        const TempFolder target;
        const CString path = temp.Write("a.zip", ZipOf({file, {"other.txt"}}));
        const ArchiveOutcome unpacked = UnpackArchive(
            path, target.Path(), [&](const CString& each) { return each == name; },
            [](std::uint64_t) { return true; });
        EXPECT_EQ(unpacked.problem, "");
        EXPECT_EQ(target.Read(name), "data");
        EXPECT_EQ(target.Read("other.txt"), "");
    }
}

TEST(Archive, RefusesWhatMeansHarm)
{
    struct Row
    {
        const char* what;
        std::vector<Stored> files;
        const char* problem;
    };
    const Row rows[] = {
        {"climbs", {{"a/../../b"}}, "外を指す"},
        {"climbs by the other separator", {{"..\\b"}}, "外を指す"},
        {"starts at the root", {{"/b"}}, "外を指す"},
        {"is a link", {{"b", "/etc/passwd", 0, 0120777}}, "リンク"},
        {"is a device", {{"b", "", 0, 0020666}}, "リンク"},
        {"is encrypted", {{"b", "secret", 1}}, "暗号化"},
        {"differs in letter case alone", {{"PIC/a"}, {"pic/b"}}, "大文字と小文字"},
        {"stands twice", {{"a"}, {"a"}}, "同じ名前"},
        {"is a file and a folder", {{"a"}, {"a/b"}}, "同じ名前"},
        {"is too deep", {{"1/2/3/4/5"}}, "深すぎ"},
        {"is too much", {{"a"}, {"b"}, {"c"}, {"d"}}, "多すぎ"},
        {"is too large", {{"a", std::string(1200, 'x')}}, "大きすぎ"},
    };
    const TempFolder temp;
    const ArchiveLimits limits = {
        .files = 3, .bytes = 1 << 20, .depth = 4, .ratio = 0, .bytesOfAny = 1000};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const CString path = temp.Write("a.zip", ZipOf(row.files));
        EXPECT_THAT(ListArchive(path, limits).problem, HasSubstr(row.problem));
        const TempFolder target;
        const auto unpacked = UnpackArchive(
            path, target.Path(), [](const CString&) { return true; },
            [](std::uint64_t) { return true; }, limits);
        EXPECT_THAT(unpacked.problem, HasSubstr(row.problem));
    }
    const std::string whole = ZipOf({{"a", std::string(500, 'x')}});
    EXPECT_THAT(ListArchive(temp.Write("cut.zip", whole.substr(0, 300))).problem,
                testing::Not(IsEmpty()));
}
} // namespace
