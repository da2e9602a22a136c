#include "platform/xml/XslTransform.h"
#include "platform/text/Cp932.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>

namespace
{
using testing::HasSubstr;
using testing::Not;

/// A stylesheet around \p body, which holds its templates.
CString Sheet(const CString& body)
{
    return "<xsl:stylesheet version=\"1.0\" "
           "xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\"><xsl:output method=\"html\" "
           "encoding=\"UTF-8\"/>" +
           body + "</xsl:stylesheet>";
}

CString Root(const CString& content)
{
    return Sheet("<xsl:template match=\"/\"><p>" + content + "</p></xsl:template>");
}

const CString nameOf = Root("<xsl:value-of select=\"/a\"/>");

TEST(XslTransform, TakesEveryEncodingThatDeliveriesComeIn)
{
    const CString body = "encoding=\"Shift_JIS\"?><a>髙橋①㈱～－&lt;b&gt;</a>";
    const CString head = "<?xml version=\"1.0\" ";
    const std::pair<const char*, std::string> cases[] = {
        {"code page 932", head + *Cp932::Encode(body)},
        {"UTF-8", "<a>髙橋①㈱～－&lt;b&gt;</a>"},
        {"UTF-8 with its mark",
         "\xEF\xBB\xBF" + head + "encoding=\"utf-8\"?>" + body.substr(body.find('<'))}};
    for (const auto& [what, xml] : cases) {
        const auto page = TransformXml(xml, nameOf);
        ASSERT_TRUE(page) << what;
        EXPECT_THAT(*page, HasSubstr("<p>髙橋①㈱～－&lt;b&gt;</p>")) << what;
    }
}

TEST(XslTransform, ReadsAndWritesNoOtherFile)
{
    const TempFolder temp;
    const CString secret = temp.Write("secret.xml", "<s>geheim</s>");
    const CString sheet = temp.Write("sheet.xsl", Root("geheim"));
    const CString target = temp.Path("written");
    const CString entity = "<!DOCTYPE a [<!ENTITY e SYSTEM \"" + secret + "\">]><a>&e;</a>";
    const std::tuple<const char*, CString, CString> cases[] = {
        {"document()", "<a/>", Root("<xsl:value-of select=\"document('" + secret + "')\"/>")},
        {"include", "<a/>", Sheet("<xsl:include href=\"" + sheet + "\"/>")},
        {"entity of the stylesheet", "<a/>",
         "<!DOCTYPE a [<!ENTITY e SYSTEM \"" + secret + "\">]>" + Root("&e;")},
        {"entity of the file", entity, nameOf},
        {"DTD of the file", "<!DOCTYPE a SYSTEM \"" + secret + "\"><a/>", nameOf},
        {"xsl:document", "<a/>",
         Root("<xsl:document href=\"" + target +
              "\" "
              "xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">x</xsl:document>")},
        {"network", "<a/>", Root("<xsl:copy-of select=\"document('http://127.0.0.1:9/x')\"/>")},
    };
    for (const auto& [what, xml, stylesheet] : cases) {
        EXPECT_THAT(TransformXml(xml, stylesheet).value_or(""), Not(HasSubstr("geheim"))) << what;
        EXPECT_FALSE(std::filesystem::exists(target)) << what;
    }
}

TEST(XslTransform, EndsWhateverItIsGiven)
{
    CString laughs = "<!DOCTYPE a [<!ENTITY e0 \"haha\">";
    for (int i = 1; i < 20; ++i) {
        const CString before = "&e" + std::to_string(i - 1) + ';';
        laughs += "<!ENTITY e" + std::to_string(i) + " \"" + before + before + before + before +
                  before + before + before + before + before + before + "\">";
    }
    CString deep;
    for (int i = 0; i < 100000; ++i) deep += "<a>";
    CString wide = "<a>";
    for (int i = 0; i < 5000; ++i) wide += "<b>1</b>";
    const std::tuple<const char*, CString, CString> cases[] = {
        {"not well formed", "<a><b></a>", nameOf},
        {"no stylesheet", "<a/>", "<a/>"},
        {"broken stylesheet", "<a/>", Root("<xsl:value-of select=\"((\"/>")},
        {"bytes outside the encoding", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>\xFF</a>",
         nameOf},
        {"entities of entities", laughs + "]><a>&e19;</a>", nameOf},
        {"deep", deep, nameOf},
        {"endless recursion", "<a/>",
         Sheet("<xsl:template match=\"/\" name=\"t\"><xsl:call-template name=\"t\"/>"
               "</xsl:template>")},
        {"steps without end", wide + "</a>",
         Root("<xsl:for-each select=\"//b\"><xsl:for-each select=\"//b\">"
              "<xsl:value-of select=\"count(//b)\"/></xsl:for-each></xsl:for-each>")},
    };
    for (const auto& [what, xml, stylesheet] : cases)
        EXPECT_FALSE(TransformXml(xml, stylesheet)) << what;
}
} // namespace
