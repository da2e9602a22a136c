#include "platform/store/SectionFile.h"

#include <gtest/gtest.h>

namespace
{
TEST(SectionFile, TakesWhatIsReadable)
{
    const std::tuple<CString, bool, const char*> cases[] = {
        {"", true, nullptr},
        {"\xEF\xBB\xBF[S]\r\ne=1\r\n", true, "1"},
        {"[S]\ne=1", true, "1"},
        {"; one\n\n # two\n [ S ] \n e = a b \n", true, "a b"},
        {"[s]\nE=1\n", true, "1"},
        {"[S]\ne=1\n[T]\ne=3\n[S]\ne=2\n", true, "2"},
        {"[S]\ne=[a]=;#\n", true, "[a]=;#"},
        {"[S]\ne=100% %TEMP% %4\n", true, "100% %TEMP% %4"},
        {"[S]\ne=C:\\new\\\\t\n", true, "C:\\new\\\\t"},
        {"[S]\ngarbage\ne=1\n", false, "1"},
        {"[S]\n[T\ne=1\n", false, nullptr},
        {CString(64, '\0'), false, nullptr},
        {"[S]\ne=\x93\xFA\n", false, nullptr},
        {"[S]\ne=1\n" + CString(SectionFile::maximumSize, '\n'), false, nullptr},
    };
    for (const auto& [bytes, sound, value] : cases) {
        SectionFile file;
        EXPECT_EQ(file.Parse(bytes), sound) << bytes.substr(0, 40);
        const CString* found = file.Find("S", "e");
        EXPECT_STREQ(found != nullptr ? found->c_str() : nullptr, value);
    }
}

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
} // namespace
