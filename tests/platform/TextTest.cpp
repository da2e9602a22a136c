#include "platform/text/Cp932.h"
#include "platform/text/SearchFolding.h"
#include "platform/text/TextEncoding.h"

#include <gtest/gtest.h>

#include <iconv.h>

namespace
{
TEST(Cp932, IsTheCodePageOfWindowsAndNotStrictJis)
{
    const std::pair<const char*, const char*> cases[] = {
        {"工事", "\x8D\x48\x8E\x96"}, {"①", "\x87\x40"},  {"㈱", "\x87\x8A"}, {"髙", "\xFB\xFC"},
        {"～", "\x81\x60"},           {"－", "\x81\x7C"}, {"∵", "\x81\xE6"},  {"ｱ\\~", "\xB1\\~"},
        {"ソ表", "\x83\x5C\x95\x5C"},
    };
    for (const auto& [text, bytes] : cases) {
        EXPECT_EQ(Cp932::Encode(text), bytes) << text;
        EXPECT_EQ(Cp932::Decode(bytes), text) << text;
    }
    // Read though never written: the second places of characters.
    EXPECT_EQ(Cp932::Decode("\xFA\x58\xED\x40"), "㈱纊");
}

TEST(Cp932, RefusesWhatIsNotInTheCodePage)
{
    for (const char* bytes : {"\x8D", "abc\x8D", "\x8D<", "\x81\xFF", "\x85\x40"}) {
        EXPECT_FALSE(Cp932::Decode(bytes)) << testing::PrintToString(bytes);
    }
    EXPECT_FALSE(Cp932::Encode("叱るは𠮟る"));
    EXPECT_EQ(Cp932::ByteLength("工abｱ𠮷"), 2 + 2 + 1 + 2);
    EXPECT_EQ(Cp932::EncodeForXml("a𠮷é工―＼ｱ"), "a&#134071;&#233;\x8D\x48&#8213;&#65340;\xB1");
}

TEST(Text, TellsUtf8FromWhatOnlyLooksLikeIt)
{
    for (const char* good : {"", "abc", "工事", "𠮷", "\xF4\x8F\xBF\xBF", "12345678工"}) {
        EXPECT_TRUE(IsUtf8(good)) << good;
    }
    for (const char* bad : {"\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80",
                            "\xE5\xB7", "\x80", "12345678\xFF", "\xF8\x88\x80\x80\x80"}) {
        EXPECT_FALSE(IsUtf8(bad)) << testing::PrintToString(bad);
    }
}

TEST(SearchFolding, MakesTheSameWhatIsWrittenInTwoWays)
{
    const std::pair<const char*, const char*> cases[] = {{"ＡＢＣ　ａｂｃ", "abc abc"},
                                                         {"ｶﾞｰﾄﾞﾚｰﾙ", "がーどれーる"},
                                                         {"ヴァヶヽヾ", "ゔぁゖゝゞ"},
                                                         {"①Ⅳ㈱㎡", "1iv(株)m2"},
                                                         {"10－1−2‐3", "10-1-2-3"},
                                                         {"〜～", "~~"},
                                                         {"葛󠄀城\u200B市", "葛城市"},
                                                         {"Straße", "strasse"},
                                                         {"a\r\n\tB", "a   b"},
                                                         {"か\u3099", "が"},
                                                         {"工\xB7", "工\uFFFD"}};
    for (const auto& [text, folded] : cases) EXPECT_EQ(FoldForSearch(text), folded) << text;
    EXPECT_EQ(SearchWords(" No.１　カナ\n"), (std::vector<CString>{"no.1", "かな"}));
}

TEST(Text, FoldsTheCaseOfFileNames)
{
    EXPECT_TRUE(EqualNoCase("P0000001.JPG", "p0000001.jpg"));
    EXPECT_TRUE(EqualNoCase("Ｐ工Ωж", "ｐ工ωЖ"));
    EXPECT_FALSE(EqualNoCase("写真", "写真1"));
    EXPECT_FALSE(EqualNoCase("\xE5", "\xE6"));
}

std::string Utf16(const CString& text, const char* encoding)
{
    const iconv_t converter = iconv_open(encoding, "UTF-8");
    std::string out(text.size() * 4, '\0');
    char* from = const_cast<char*>(text.data());
    char* to = out.data();
    std::size_t left = text.size();
    std::size_t room = out.size();
    iconv(converter, &from, &left, &to, &room);
    iconv_close(converter);
    out.resize(out.size() - room);
    return out;
}

TEST(TextEncoding, FollowsMarkThenDeclarationThenContent)
{
    const CString plain = "<?xml version=\"1.0\"?><工事/>";
    const auto declared = [](const char* name) {
        return CString("<?xml version='1.0' encoding='") + name + "'?>";
    };
    const std::tuple<const char*, std::string, std::optional<CString>> cases[] = {
        {"UTF-8 mark over a declaration that says otherwise",
         "\xEF\xBB\xBF" + declared("Shift_JIS") + "工", declared("Shift_JIS") + "工"},
        {"UTF-16 little endian with mark", "\xFF\xFE" + Utf16(plain, "UTF-16LE"), plain},
        {"UTF-16 big endian with mark", "\xFE\xFF" + Utf16(plain, "UTF-16BE"), plain},
        {"UTF-16 without mark", Utf16(plain, "UTF-16LE"), plain},
        {"Shift_JIS is code page 932", declared("Shift_JIS") + "\x87\x40",
         declared("Shift_JIS") + "①"},
        {"declared UTF-8", declared("utf-8") + "①", declared("utf-8") + "①"},
        {"EUC-JP", declared("euc-jp") + "\xB9\xA9", declared("euc-jp") + "工"},
        {"undeclared UTF-8", "<工/>", "<工/>"},
        {"undeclared code page 932", "<\x8D\x48/>", "<工/>"},
        {"bytes outside the declared UTF-8", declared("UTF-8") + "\x8D\x48", std::nullopt},
        {"bytes outside the declared Shift_JIS", declared("Shift_JIS") + "\x8D<", std::nullopt},
        {"an encoding that deliveries don't come in", declared("ISO-2022-CN-EXT") + "a",
         std::nullopt},
    };
    for (const auto& [what, bytes, text] : cases) EXPECT_EQ(DecodeText(bytes), text) << what;
}
} // namespace
