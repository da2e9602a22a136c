#include "platform/exif/ExifCopy.h"

#include <gtest/gtest.h>

namespace
{
using namespace std::string_literals;

const std::string mark = "Exif\0\0"s;

/// Exif data of a photograph that lies on its side, with a preview behind them.
class Block
{
public:
    explicit Block(bool bigEndian) : big(bigEndian)
    {
        bytes = mark + (big ? "MM"s : "II"s) + Number(42, 2) + Number(8, 4);
        Directory({{0x0112, 3, 6}, {0x010F, 2, 0x41424300}, {0x8769, 4, 50}}, 92);
        Directory({{0xA002, 3, 4000}, {0xA003, 4, 3000}, {0x9209, 3, 25}}, 0);
        Directory({{0x0112, 3, 6}, {0x0201, 4, 134}, {0x0202, 4, 7}}, 0);
        bytes += "PREVIEW";
    }

    std::string Number(unsigned value, int size) const
    {
        std::string text;
        for (int i = 0; i < size; ++i) {
            text += static_cast<char>(value >> 8 * (big ? size - 1 - i : i) & 0xFF);
        }
        return text;
    }
    /// An entry of one value as it stands in a directory.
    std::string Entry(unsigned tag, unsigned type, unsigned value) const
    {
        return Number(tag, 2) + Number(type, 2) + Number(1, 4) +
               (type == 3 ? Number(value, 2) + Number(0, 2) : Number(value, 4));
    }

    std::string bytes;

private:
    struct Field
    {
        unsigned tag;
        unsigned type;
        unsigned value;
    };

    void Directory(const std::vector<Field>& fields, unsigned next)
    {
        bytes += Number(static_cast<unsigned>(fields.size()), 2);
        for (const Field& field : fields) bytes += Entry(field.tag, field.type, field.value);
        bytes += Number(next, 4);
    }

    bool big;
};

TEST(ExifCopy, TellsOfTheCopyWhatIsTrueOfItAndKeepsAllElse)
{
    for (const bool bigEndian : {false, true}) {
        const Block original(bigEndian);
        std::string wanted = original.bytes;
        const auto become = [&wanted](const std::string& before, const std::string& now) {
            ASSERT_NE(wanted.find(before), std::string::npos);
            wanted.replace(wanted.find(before), before.size(), now);
        };
        become(original.Entry(0x0112, 3, 6), original.Entry(0x0112, 3, 1));
        become(original.Entry(0xA002, 3, 4000), original.Entry(0xA002, 3, 3000));
        become(original.Entry(0xA003, 4, 3000), original.Entry(0xA003, 4, 4000));
        // The way to the preview, its directory and itself.
        wanted.replace(mark.size() + 46, 4, 4, '\0');
        wanted.resize(mark.size() + 92);
        EXPECT_EQ(ExifOfCopy(original.bytes, 3000, 4000), wanted) << bigEndian;
    }
}

TEST(ExifCopy, SurvivesDamage)
{
    const Block original(true);
    for (std::size_t length = 0; length < original.bytes.size(); ++length) {
        const std::string copy = ExifOfCopy(original.bytes.substr(0, length), 1, 1);
        EXPECT_LE(copy.size(), length);
    }
    std::string circle = original.bytes;
    circle.replace(mark.size() + 46, 4, original.Number(0xFFFFFFF0, 4));
    EXPECT_EQ(ExifOfCopy(circle, 1, 1).size(), circle.size());
    EXPECT_EQ(ExifOfCopy("not at all", 1, 1), "");
    EXPECT_EQ(WithExif("\xFF\xD8rest", ""), "\xFF\xD8rest");
    EXPECT_EQ(WithExif("\xFF\xD8rest", std::string(0x10000, 'x')), "\xFF\xD8rest");
    EXPECT_EQ(WithExif("\xFF\xD8rest", "abc"), "\xFF\xD8\xFF\xE1\0\5abcrest"s);
}
} // namespace
