#include "delivery/IndexPage.h"
#include "items/ToviItemDef.h"
#include "kinds/IndexStylesheets.h"
#include "loading/IndexCopy.h"
#include "platform/files/MibFile.h"
#include "platform/text/Cp932.h"
#include "platform/text/TextEncoding.h"
#include "support/OpenedSample.h"
#include "work/Environment.h"

#include <gmock/gmock.h>

#include <sys/resource.h>
#include <sys/stat.h>

namespace
{
using testing::EndsWith;
using testing::HasSubstr;

constexpr const char* instruction = "<?xml-stylesheet type=\"text/xsl\" href=\"INDE_C07.XSL\"?>\n";

CString DoctypeOf(const CString& root, const CString& dtd)
{
    return "<!DOCTYPE " + root + " SYSTEM \"" + dtd + "\">";
}

TEST(IndexStylesheet, DependsOnKindDtdAndFamilyAndIsInstalled)
{
    const TestHost services;
    const CString folder = MibProgramPath() + stylesheetFolder;
    const struct
    {
        PhotoXMLType family;
        const char* root;
        const char* dtd;
        const char* expected;
        bool isUnknown = false;
    } cases[] = {
        {PhotoXMLMlit, "constdata", "INDE_C09.DTD", "MLIT/INDE_C07.XSL", true},
        {PhotoXMLNexco, "constdata", "PHOT_JH5.DTD", "NEXCO/PHOT_JH4.XSL", true},
        {PhotoXMLMlit, "constdata", "IND_EC06.DTD", "MLIT_E/IND_EC05.XSL", true},
        {PhotoXMLNexco, "constdata", "INDE_C09.DTD", ""},
        {PhotoXMLMlit, "constdata", "INDE_C.DTD", ""},
        {PhotoXMLMlit, "constdata", "INDE_C9X.DTD", ""},
        {PhotoXMLMlit, "constdata", "INDE_C02.DTD", "MLIT/INDEX_C.XSL"},
        {PhotoXMLMaff, "constdata", "INDEC02N.DTD", "MAFF/INDEX_CN.XSL"},
        {PhotoXMLMaff, "constdata", "IND_MC03.DTD", "MAFF_M/IND_MC03.XSL"},
        {PhotoXMLNexco, "gyomudata", "INDE_D02.DTD", "MLIT/INDEX_D.XSL"},
        {PhotoXMLMlit, "gyomudata", "INDE_C07.DTD", ""},
        {PhotoXMLMlit, "photodata", "INDE_C07.DTD", ""},
        {static_cast<PhotoXMLType>(4), "constdata", "INDE_C07.DTD", ""},
    };
    for (const auto& c : cases) {
        const IndexStylesheet found = FindIndexStylesheet(c.family, DoctypeOf(c.root, c.dtd));
        EXPECT_EQ(found.path, c.expected) << c.dtd << " " << c.family;
        EXPECT_EQ(found.unknownDtd, c.isUnknown ? c.dtd : "") << c.dtd;
        EXPECT_TRUE(*c.expected == '\0' || MibIsFileExist(folder + c.expected)) << c.expected;
    }
    EXPECT_TRUE(MibIsFileExist(folder + "MAFF_E/INDEX_C.XSL"));
}

TEST(IndexCopy, NamesItsStylesheetOnceInFrontOfTheRoot)
{
    const CString head = "<?xml version=\"1.0\"?>\n";
    const CString root = "<constdata DTD_version=\"07\"><a/></constdata>\n";
    const CString other = "<?xml-stylesheet href=\"OLD.XSL\" type=\"text/xsl\" ?>";
    const std::tuple<const char*, CString, CString> cases[] = {
        {"none yet", head + root, head + instruction + root},
        {"one to replace", head + other + "\n" + root, head + instruction + root},
        {"CRLF", "a\r\n" + other + "\r\n  <b DTD_version='1'/>\r\n",
         CString("a\r\n") + instruction + "  <b DTD_version='1'/>\r\n"},
        {"on the root's line", head + other + root, head + instruction + root},
        {"all on one line", "<?xml version=\"1.0\"?>" + other + root,
         "<?xml version=\"1.0\"?>" + CString(instruction) + root},
        {"the root behind the declaration", "<?xml version=\"1.0\"?>" + root,
         "<?xml version=\"1.0\"?>" + CString(instruction) + root},
        {"the root over two lines", head + "<constdata\nDTD_version=\"07\"/>\n",
         head + instruction + "<constdata\nDTD_version=\"07\"/>\n"},
        {"the instruction over two lines", head + "<?xml-stylesheet\nhref=\"O\"?>\n" + root,
         head + instruction + root},
        {"a second one stays", head + other + "\n" + other + "\n" + root,
         head + instruction + other + "\n" + root},
        {"one behind the root stays", head + root + other + "\n",
         head + instruction + root + other + "\n"},
        {"the word in a comment", head + "<!-- xml-stylesheet -->\n" + root + "<?pi?>\n",
         head + instruction + root + "<?pi?>\n"},
        {"an instruction without end", "<?xml-stylesheet href\n<a/>\n",
         instruction + CString("<a/>\n")},
        {"neither word", "<?xml version=\"1.0\"?>\r\n<constdata/>\r\n",
         "<?xml version=\"1.0\"?>\r\n<constdata/>\r\n"},
        {"no line end", "<constdata/>", "<constdata/>\n"},
        {"a root without a tag", "DTD_version", instruction + CString("DTD_version\n")},
        {"UTF-8 with its mark", "\xEF\xBB\xBF<a DTD_version='1'/>\n",
         "\xEF\xBB\xBF" + CString(instruction) + "<a DTD_version='1'/>\n"},
        {"nothing", "", ""},
    };
    for (const auto& [what, xml, expected] : cases)
        EXPECT_EQ(WithStylesheet(xml, "INDE_C07.XSL"), expected) << what;
}

std::string Utf16(std::string_view ascii, bool bigEndian)
{
    std::string wide;
    for (const char letter : ascii) {
        wide += bigEndian ? '\0' : letter;
        wide += bigEndian ? letter : '\0';
    }
    return wide;
}

TEST(IndexCopy, KeepsUtf16)
{
    for (const bool bigEndian : {false, true}) {
        // U+0A3C and U+003C differ by the byte of a line feed.
        const std::string mark = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
        const std::string letter = bigEndian ? "\x0A\x3C" : "\x3C\x0A";
        const std::string front =
            mark + Utf16("<?xml?>\n<!--", bigEndian) + letter + Utf16("-->\n", bigEndian);
        const std::string root = Utf16("<a DTD_version='1'/>\n", bigEndian);
        EXPECT_EQ(WithStylesheet(front + root, "INDE_C07.XSL"),
                  front + Utf16(instruction, bigEndian) + root);
    }
    EXPECT_EQ(WithStylesheet("\xFF\xFEtwo", "X"), "\xFF\xFEtwo") << "cut off inside a character";
}

/// Deliveries with a work area of the test's own.
class Index : public testing::Test
{
protected:
    Index() { SetEnvironment({Registry("", ""), {"", "", "", "", work.Path()}, {}}); }
    ~Index() override { SetEnvironment({Registry("", ""), {}, {}}); }

    /// Opens a delivery whose index file is \p bytes, under \p name.
    static std::unique_ptr<OpenedSample> Deliver(const CString& bytes,
                                                 const CString& name = "INDEX_C.XML")
    {
        const DeliveryBuilder builder({.photos = 1, .drawings = 0, .images = false});
        auto sample = std::make_unique<OpenedSample>(builder);
        std::filesystem::remove(sample->temp.Path("INDEX_C.XML"));
        sample->temp.Write(name, bytes);
        return sample;
    }

    CString Folder(const CString& copy) const { return copy.substr(0, copy.rfind('/') + 1); }
    /// The bytes of the file \p path in the work area.
    CString Copied(const CString& path) const
    {
        EXPECT_THAT(path, testing::StartsWith(work.Path("QVScratch/QV-SUITE/IndexCopy/")));
        return work.Read(path.substr(work.Path("").size()));
    }
    /// The page that is made of the index file of \p sample.
    CString PageOf(const OpenedSample& sample) const
    {
        const IndexPage page = MakeIndexPage(*sample.document);
        EXPECT_EQ(page.problem, "");
        return Copied(page.path);
    }

    /// A whole index file.
    const CString xml =
        DoctypeOf("constdata", "INDE_C07.DTD") + "\n<constdata DTD_version=\"07\"/>\n";
    TempFolder work;
};

TEST_F(Index, OfEveryKindBecomesAPage)
{
    for (const SampleSchema& schema : SampleSchemas()) {
        for (const auto encoding : {SampleEncoding::ShiftJis, SampleEncoding::Utf8}) {
            const DeliveryBuilder builder({.section = CString(schema.section),
                                           .photos = 1,
                                           .drawings = 0,
                                           .encoding = encoding,
                                           .images = false});
            const OpenedSample sample(builder, schema.family == SampleFamily::Mlit ? PhotoXMLMlit
                                               : schema.family == SampleFamily::Maff
                                                   ? PhotoXMLMaff
                                                   : PhotoXMLNexco);
            const CString path = sample.document->GetIndexPath();
            ASSERT_THAT(path, EndsWith("/INDEX_C.XML")) << schema.section;
            EXPECT_FALSE(Copied(Folder(path) + CString(schema.indexDtd)).empty()) << schema.section;
            const CString page = PageOf(sample);
            EXPECT_THAT(page, HasSubstr("<h1>" + builder.Work().name + "</h1>")) << schema.section;
            EXPECT_THAT(page, HasSubstr(builder.Work().contractor)) << schema.section;
        }
    }
}

TEST_F(Index, OfAConsultingWorkTellsItsKindAndPeriod)
{
    const auto sample = Deliver(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + DoctypeOf("gyomudata", "INDE_D06.DTD") +
            "\n<gyomudata DTD_version=\"06\"><業務件名等><業務名称>道路&amp;測量"
            "</業務名称><履行期間-着手>2024-04-01</履行期間-着手>"
            "<履行期間-完了>未定</履行期間-完了></業務件名等></gyomudata>",
        "INDEX_D.XML");
    sample->temp.Write("INDE_D06.DTD", "");
    const CString page = PageOf(*sample);
    EXPECT_THAT(page, HasSubstr("業務管理ファイル"));
    EXPECT_THAT(page, HasSubstr("<h1>道路&amp;測量</h1>"));
    EXPECT_THAT(page, HasSubstr("2024年4月1日 ～ 未定"));
}

TEST_F(Index, FileIsToldByItsNameAndItsDoctypeLine)
{
    const CString c07 = DoctypeOf("constdata", "INDE_C07.DTD") + "\n";
    const CString c03 = DoctypeOf("constdata", "INDE_C03.DTD") + "\n";
    const CString d03 = DoctypeOf("gyomudata", "INDE_D03.DTD") + "\n";
    // The stylesheet as the copy names it; "none" when no copy is made.
    const std::tuple<const char*, CString, CString, CString> cases[] = {
        {"the first DOCTYPE word decides", c07 + d03, "INDEX_C.XML", "INDE_C07.XSL"},
        {"on one line that of a 業務", c03 + d03, "INDEX_C.XML", "INDE_C03.XSL"},
        {"the DTD is looked for under its own kind", DoctypeOf("constdata", "INDE_C03.DTD") + d03,
         "INDEX_C.XML", "INDE_D03.XSL"},
        {"no DOCTYPE word", "<?xml version=\"1.0\"?>\n", "INDEX_C.XML", "none"},
        {"a DTD of nobody", DoctypeOf("constdata", "INDEX.DTD") + "\n", "INDEX_C.XML", ""},
        {"a name in lower case", c07, "index_c.xml", "INDE_C07.XSL"},
        {"the name of old times", c07, "PHOTO_JH.XML", "INDE_C07.XSL"},
        {"another name", c07, "INDEX.XML", "none"},
        {"UTF-16", "\xFF\xFE" + Utf16(c07, false), "INDEX_C.XML", "INDE_C07.XSL"},
    };
    for (const auto& [what, bytes, name, stylesheet] : cases) {
        const CString root = "<constdata DTD_version=\"07\"/>\n";
        const bool isWide = bytes.starts_with("\xFF\xFE");
        const auto sample = Deliver(bytes + (isWide ? Utf16(root, false) : root), name);
        const CString path = sample->document->GetIndexPath();
        EXPECT_EQ(path.substr(path.rfind('/') + 1), stylesheet == "none" ? "" : name) << what;
        if (path.empty()) continue;
        const CString copy = *DecodeText(Copied(path));
        EXPECT_THAT(copy, HasSubstr("href=\"" + stylesheet + "\"")) << what;
    }
}

TEST_F(Index, LastNameWinsAndINDEXComesBeforePHOTO)
{
    const auto sample = Deliver(xml, "PHOTO_Z.XML");
    CString index;
    CString stylesheet;
    sample->document->GetItemDef()->GetPathAndName(index, stylesheet);
    EXPECT_EQ(index, sample->temp.Path("PHOTO_Z.XML"));
    sample->temp.Write("INDEX_C.XML", xml);
    sample->temp.Write("INDEX_D.XML", "");
    stylesheet.clear();
    sample->document->GetItemDef()->GetPathAndName(index, stylesheet);
    EXPECT_EQ(index, sample->temp.Path("INDEX_D.XML"));
    EXPECT_EQ(stylesheet, "");
}

TEST_F(Index, TellsWhatCannotBeListed)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer's own checks need to open something";
#endif
    const auto sample = Deliver(DoctypeOf("constdata", "INDE_C07.DTD"));
    CString index;
    CString stylesheet;
    rlimit files = {};
    getrlimit(RLIMIT_NOFILE, &files);
    const rlimit none = {0, files.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    sample->document->GetItemDef()->GetPathAndName(index, stylesheet);
    ToviEnouDataFactory().GetNewIndexPath(sample->temp.Path("INDEX_C.XML"), MibProgramPath());
    setrlimit(RLIMIT_NOFILE, &files);
    CStringArray told;
    for (const char* pattern : {"INDEX_*.XML", "PHOTO_*.XML", "*.DTD"}) {
        told.Add("ファイルの取得に失敗しました。\n（" + sample->temp.Path(pattern) + "）");
    }
    EXPECT_EQ(sample->services.user.Messages(), told);
    EXPECT_EQ(index, "");
    EXPECT_NE(sample->document->GetIndexPath(), "") << "found once it can be";
}

TEST_F(Index, FailsQuietlyAndTriesAgain)
{
    const auto sample = Deliver(xml);
    const CString index = sample->temp.Path("INDEX_C.XML");
    work.Write("QVScratch", "a file in place of the folder");
    EXPECT_EQ(sample->document->GetIndexPath(), "");
    std::filesystem::remove(work.Path("QVScratch"));
    EXPECT_THAT(sample->document->GetIndexPath(), EndsWith("/INDEX_C.XML"));
    EXPECT_TRUE(sample->services.user.calls.empty());
    ToviEnouDataFactory factory;
    EXPECT_EQ(factory.GetNewIndexPath(index, "no folder"), "");

    // What was made before gives way, even when it is a link to somewhere else.
    const CString precious = work.Write("precious", "precious");
    const CString copy = factory.GetNewIndexPath(index, MibProgramPath());
    std::filesystem::remove(copy);
    std::filesystem::create_symlink(precious, copy);
    EXPECT_EQ(factory.GetNewIndexPath(index, MibProgramPath()), copy);
    EXPECT_EQ(work.Read("precious"), "precious");
    EXPECT_THAT(Copied(copy), HasSubstr("href=\"\""));
}

TEST_F(Index, OfOneDeliveryIsNotThatOfAnother)
{
    const auto one = Deliver(xml);
    const auto other = Deliver(xml + "<!-- other -->\n");
    const CString copy = one->document->GetIndexPath();
    const CString bytes = Copied(copy);
    EXPECT_NE(other->document->GetIndexPath(), copy);
    EXPECT_EQ(Copied(copy), bytes);
    const auto made = std::filesystem::last_write_time(Folder(copy));
    const auto setDays = [&](int days) {
        std::filesystem::last_write_time(Folder(copy), made - std::chrono::hours(24 * days));
        EXPECT_EQ(MakeIndexPage(*other->document).problem, "");
        return MibIsFileExist(copy);
    };
    EXPECT_TRUE(setDays(29));
    EXPECT_FALSE(setDays(31)) << "nobody has asked for it for long";
}

TEST_F(Index, BecomesAPageUnlessItIsBrokenOrEndless)
{
    CString begin = "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n" +
                    DoctypeOf("constdata", "INDE_C07.DTD") +
                    "\n<constdata DTD_version=\"07\"><工事件名等><工事名称>髙橋①橋</工事名称>";
    const CString rest = "</工事件名等></constdata>\n";
    const auto sample = Deliver(*Cp932::Encode(begin + rest));
    const IndexPage page = MakeIndexPage(*sample->document);
    EXPECT_EQ(page.problem, "");
    EXPECT_THAT(page.path, EndsWith("/INDEX_C.html"));
    EXPECT_THAT(Copied(page.path), HasSubstr("<h1>髙橋①橋</h1>"));
    EXPECT_THAT(Copied(page.path), Not(HasSubstr("スタイルシート")));
    sample->temp.Write("INDEX_C.XML",
                       *Cp932::Encode(ReplaceAll(begin + rest, "INDE_C07", "INDE_C09")));
    EXPECT_EQ(MakeIndexPage(*sample->document).problem, "");
    EXPECT_THAT(Copied(page.path),
                HasSubstr("INDE_C09.DTD に合うスタイルシートがないので、INDE_C07 のもので表示"));

    const CString small = begin;
    constexpr std::size_t large = 4'000'000;
    while (begin.size() < large) begin += "<住所情報><住所>静岡県</住所></住所情報>\n";
    sample->temp.Write("INDEX_C.XML", *Cp932::Encode(begin + rest));
    EXPECT_EQ(MakeIndexPage(*sample->document).problem, "");
    EXPECT_GT(Copied(page.path).size(), large);
    for (const CString& bad : {small, begin + begin + begin + rest}) {
        sample->temp.Write("INDEX_C.XML", *Cp932::Encode(bad));
        EXPECT_THAT(MakeIndexPage(*sample->document).problem, HasSubstr("ページにできません"));
    }
}

TEST_F(Index, TakesNothingFromOutsideAndLeavesTheDeliveryAlone)
{
    const auto sample = Deliver("");
    const TempFolder& delivery = sample->temp;
    std::filesystem::remove(delivery.Path("INDEX_C.XML"));
    const CString outside = work.Write("outside.xml", xml);
    std::filesystem::create_symlink(outside, delivery.Path("INDEX_C.XML"));
    EXPECT_EQ(sample->document->GetIndexPath(), "");
    std::filesystem::remove(delivery.Path("INDEX_C.XML"));
    mkfifo(delivery.Path("INDEX_C.XML").c_str(), 0600);
    EXPECT_EQ(sample->document->GetIndexPath(), "");
    std::filesystem::remove(delivery.Path("INDEX_C.XML"));
    delivery.Write("INDEX_C.XML", xml);
    std::filesystem::resize_file(delivery.Path("INDEX_C.XML"), std::uintmax_t{1} << 40);
    EXPECT_EQ(sample->document->GetIndexPath(), "") << "a terabyte";

    std::filesystem::remove(delivery.Path("INDEX_C.XML"));
    delivery.Write("INDEX_C.XML", xml);
    std::filesystem::create_symlink(outside, delivery.Path("INDE_C99.DTD"));
    const CString copy = sample->document->GetIndexPath();
    EXPECT_THAT(Copied(copy), HasSubstr("INDE_C07.XSL"));
    EXPECT_FALSE(std::filesystem::exists(Folder(copy) + "INDE_C99.DTD"));
    EXPECT_EQ(delivery.Read("INDEX_C.XML"), xml);

    // A delivery amid the copies isn't overwritten.
    ToviEnouDataFactory factory;
    EXPECT_EQ(factory.GetNewIndexPath(copy, "/a/B.XSL"), "");
}
} // namespace
