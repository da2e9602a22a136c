#include "platform/store/SectionFile.h"

#include <gtest/gtest.h>

namespace
{
struct FileCase
{
    const char* name;
    CString bytes;
    bool sound;
    /// What entry "e" of section "S" holds, or null.
    const char* value;
};

class SectionFileParse : public testing::TestWithParam<FileCase>
{};

TEST_P(SectionFileParse, TakesWhatIsReadable)
{
    SectionFile file;
    EXPECT_EQ(file.Parse(GetParam().bytes), GetParam().sound);
    const CString* value = file.Find("S", "e");
    EXPECT_STREQ(value != nullptr ? value->c_str() : nullptr, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    All, SectionFileParse,
    testing::Values(
        FileCase{"Empty", "", true, nullptr},
        FileCase{"WindowsLineEndsAndMark", "\xEF\xBB\xBF[S]\r\ne=1\r\n", true, "1"},
        FileCase{"NoLineEndAtTheEnd", "[S]\ne=1", true, "1"},
        FileCase{"CommentsAndBlanks", "; one\n\n # two\n [ S ] \n e = a b \n", true, "a b"},
        FileCase{"NamesInAnotherCase", "[s]\nE=1\n", true, "1"},
        FileCase{"LastOfTwoWins", "[S]\ne=1\n[T]\ne=3\n[S]\ne=2\n", true, "2"},
        FileCase{"ValueWithMarks", "[S]\ne=[a]=;#\n", true, "[a]=;#"},
        FileCase{"PercentWithoutDigits", "[S]\ne=100% %TEMP% %4\n", true, "100% %TEMP% %4"},
        FileCase{"BackslashesAsTheyStand", "[S]\ne=C:\\new\\\\t\n", true, "C:\\new\\\\t"},
        FileCase{"GarbageLine", "[S]\ngarbage\ne=1\n", false, "1"},
        FileCase{"OpenHeadingTakesItsEntriesAlong", "[S]\n[T\ne=1\n", false, nullptr},
        FileCase{"ZerosOfACrash", CString(64, '\0'), false, nullptr},
        FileCase{"NotUtf8", "[S]\ne=\x93\xFA\n", false, nullptr},
        FileCase{"TooLong", "[S]\ne=1\n" + CString(SectionFile::maximumSize, '\n'), false,
                 nullptr}),
    [](const auto& test) { return test.param.name; });

TEST(SectionFile, AnyTextSurvives)
{
    const CString texts[] = {
        "",  " ",  "日本語　", "a\r\nb\n",        "\\n\\\\",  "%",     "%0A",     "[x]",
        "=", ";#", "\t tab ",  CString("\0x", 2), "\x93\xFA", "a=b=c", "C:\\a\\", "%%41"};
    SectionFile written;
    for (const CString& section : texts) {
        for (const CString& text : texts) written.Set(section, text, text + section);
    }
    SectionFile read;
    ASSERT_TRUE(read.Parse(written.ToBytes()));
    for (const CString& section : texts) {
        for (const CString& text : texts) {
            const CString* value = read.Find(section, text);
            ASSERT_NE(value, nullptr) << written.ToBytes();
            EXPECT_EQ(*value, text + section);
        }
    }
    EXPECT_EQ(read.ToBytes(), written.ToBytes());
}

TEST(SectionFile, OrderDoesNotDependOnTheOrderOfWriting)
{
    SectionFile file;
    file.Set("b", "2", "x");
    file.Set("a", "z", "y z");
    file.Set("b", "1", "");
    EXPECT_EQ(file.ToBytes(), "[a]\nz=y z\n[b]\n1=\n2=x\n");
}
} // namespace
