#include "platform/text/Cp932.h"
#include "platform/xml/DoxDocument.h"
#include "platform/xml/DoxIterator.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>
#include <libxml/parser.h>

namespace
{
CString Repeated(const CString& text, int times)
{
    CString all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

TEST(DoxDocument, RefusesWhatIsNotWellFormed)
{
    const TempFolder temp;
    const std::tuple<const char*, std::string, bool> cases[] = {
        {"a plain element", "<a/>", true},
        {"an empty file", "", false},
        {"no element", "<?xml version='1.0'?>", false},
        {"cut off between tags", "<a><b></b>", false},
        {"crossing tags", "<a><b></a></b>", false},
        {"two roots", "<a/><b/>", false},
        {"a comment and an instruction around the root", "<!-- a --><?a?><a/><?b?><!-- b -->",
         true},
        {"text behind the root", "<a/>b", false},
        {"text in front of the root", "<!-- a -->b<a/>", false},
        {"blanks around the root", " \r\n\t<a/>\n ", true},
        {"a raw NUL", std::string("<a>\0</a>", 8), false},
        {"a raw escape far from the front", "<a>" + Repeated("あ\t\r\n", 100) + "\x1b</a>", false},
        {"a raw unit separator at the front of a block", Repeated(" ", 256) + "\x1f<a/>", false},
        {"DEL and C1, which XML allows", "<a>\x7f\xc2\x85</a>", true},
        {"a reference to NUL", "<a>P&#0;.JPG</a>", false},
        {"a reference to half a surrogate pair", "<a>&#xD800;</a>", false},
        {"a reference that never ends", "<a>&#65</a>", false},
        {"what is no reference in a comment or CDATA", "<a><!-- &# --><![CDATA[&#0;]]></a>", true},
        {"a wrong reference behind a comment", "<a><!-- --><![CDATA[]]>&#0;</a>", false},
        {"references to characters", "<a>&#65;&#x9AD9;</a>", true},
        {"bytes outside the declared encoding",
         "<?xml version='1.0' encoding='UTF-8'?><a>\x8D\x48</a>", false},
        {"a double-byte character cut off", "<?xml version='1.0' encoding='Shift_JIS'?><a>\x8D",
         false},
        {"ten thousand levels", Repeated("<a>", 10000) + Repeated("</a>", 10000), true},
        {"a million levels that never close", Repeated("<a>", 1000000), false},
    };
    for (const auto& [what, bytes, loads] : cases) {
        DoxDocument document;
        CStringArray errors;
        document.Initiate();
        EXPECT_EQ(document.Load(temp.Write("x.xml", bytes), false, &errors), loads) << what;
        EXPECT_EQ(document.Problem().empty(), loads) << what;
        EXPECT_EQ(errors.IsEmpty(), loads) << what;
    }
    DoxDocument document;
    EXPECT_FALSE(document.Load(temp.Path("missing.xml"), false, nullptr));
    document.LimitSize(40);
    EXPECT_TRUE(document.Load(temp.Write("small.xml", "<a/>"), false, nullptr));
    EXPECT_FALSE(
        document.Load(temp.Write("large.xml", "<a/>" + Repeated(" ", 37)), false, nullptr));
    temp.Write("lines.xml", "<a>\r\n<b>1</b>\r\n</a>\r\n\r\n x");
    EXPECT_FALSE(document.Load(temp.Path("lines.xml"), false, nullptr));
    EXPECT_EQ(document.Problem(), "5行目で最上位の要素の外に文字があります");
}

TEST(DoxDocument, ExpandsNoEntitiesAndFetchesNothing)
{
    const TempFolder temp;
    temp.Write("secret.txt", "secret");
    temp.Write("x.xml", "<!DOCTYPE a [<!ENTITY l0 'lol'><!ENTITY l1 '&l0;&l0;'>"
                        "<!ENTITY file SYSTEM 'secret.txt'>]><a>&l1;&file;&amp;</a>");
    DoxDocument document;
    document.Initiate();
    ASSERT_TRUE(document.Load(temp.Path("x.xml"), false, nullptr));
    DoxIterator it(&document);
    it.Root();
    EXPECT_EQ(it.GetText(), "&l1;&file;&");
}

/// Every character of code page 932 but the control characters.
CString WholeCodePage()
{
    CString all;
    for (int first = 0x20; first < 0x100; ++first) {
        if (first == 0x7F) continue;
        const std::string single(1, static_cast<char>(first));
        if (const auto character = Cp932::Decode(single)) {
            all += *character;
            continue;
        }
        for (int second = 0x40; second < 0x100; ++second) {
            all += Cp932::Decode(single + static_cast<char>(second)).value_or("");
        }
    }
    return all;
}

TEST(DoxDocument, IsReadAlikeByAStrictReader)
{
    const TempFolder temp;
    const CString path = temp.Write("a.xml", "<?xml version='1.0' encoding='Shift_JIS'?><a/>");
    const CString text = WholeCodePage();
    ASSERT_GT(Cp932::ByteLength(text), 2 * 9500);
    DoxDocument document;
    ASSERT_TRUE(document.Load(path, false, nullptr));
    DoxIterator written(&document);
    ASSERT_TRUE(written.Root());
    written.SetText(text.c_str());
    ASSERT_TRUE(document.Save(path, 0, nullptr));

    ASSERT_TRUE(document.Load(path, false, nullptr));
    DoxIterator read(&document);
    ASSERT_TRUE(read.Root());
    EXPECT_EQ(read.GetText(), text);
    xmlDoc* const strict = xmlReadFile(path.c_str(), nullptr, XML_PARSE_NONET);
    ASSERT_NE(strict, nullptr);
    xmlChar* const content = xmlNodeGetContent(xmlDocGetRootElement(strict));
    EXPECT_EQ(reinterpret_cast<const char*>(content), text);
    xmlFree(content);
    xmlFreeDoc(strict);
}

TEST(DoxIterator, WalksElementsAndLeavesTheRestAside)
{
    const TempFolder temp;
    temp.Write("x.xml", "<?xml version='1.0'?>\r\n<?xml-stylesheet href='x'?><!-- c -->\r\n"
                        "<r v='1'> <a>one<!-- c --> two<![CDATA[<3>]]></a><!-- c --><b/>\r\n"
                        "text<c><d>x\r\ny</d></c></r>");
    DoxDocument document;
    document.Initiate();
    ASSERT_TRUE(document.Load(temp.Path("x.xml"), false, nullptr));
    DoxIterator it(&document);
    ASSERT_TRUE(it.Root());

    CString order;
    CString tag;
    do {
        it.GetTagName(tag);
        order += tag;
    } while (it.Next());
    EXPECT_EQ(order, "rabcd");

    EXPECT_TRUE(it.IsTag("d")) << "a move that fails leaves the iterator in place";
    EXPECT_EQ(it.GetText(), "x\ny");
    EXPECT_FALSE(it.Child());
    EXPECT_TRUE(it.Parent());
    EXPECT_TRUE(it.Parent());
    EXPECT_TRUE(it.Child());
    EXPECT_EQ(it.GetText(), "one two<3>");
    EXPECT_TRUE(it.NextSibling());
    EXPECT_TRUE(it.IsTag("b"));
    EXPECT_EQ(it.GetText(), "");
}
} // namespace
