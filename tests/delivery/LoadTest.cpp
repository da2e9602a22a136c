#include "items/ToviItemDef.h"
#include "loading/DeliveryLocation.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "platform/text/Cp932.h"
#include "support/OpenedSample.h"

#include <gtest/gtest.h>

namespace
{
struct Kind
{
    const char* section;
    PhotoXMLType family;
    bool hasKeyPhoto;
};

constexpr Kind kinds[] = {
    {"国交省-11", PhotoXMLMlit, false}, {"国交省-14", PhotoXMLMlit, false},
    {"国交省-16", PhotoXMLMlit, true},  {"国交省-18", PhotoXMLMlit, true},
    {"国交省-20", PhotoXMLMlit, true},  {"農水省-15", PhotoXMLMaff, false},
    {"農水省-17", PhotoXMLMaff, true},  {"農水省-23", PhotoXMLMaff, true},
    {"NEXCO-14", PhotoXMLNexco, false}, {"NEXCO-18", PhotoXMLNexco, false},
    {"NEXCO-24", PhotoXMLNexco, false},
};

std::vector<std::vector<SampleItem>> ItemsOf(ToviData& document)
{
    std::vector<std::vector<SampleItem>> all;
    for (const ToviPhoto* photo : *document.GetPhotoDataArray()) {
        std::vector<SampleItem>& items = all.emplace_back();
        for (const ToviItem& item : photo->GetItems()) {
            items.push_back(
                {document.GetItemDef()->GetTitleFromIndex(item.GetDefIndex()), item.GetValue()});
        }
    }
    return all;
}

TEST(Load, GivesBackEveryValueOfEveryKind)
{
    for (const Kind& kind : kinds) {
        for (const auto encoding : {SampleEncoding::ShiftJis, SampleEncoding::Utf8}) {
            const DeliveryBuilder builder({.section = kind.section,
                                           .photos = 120,
                                           .drawings = 30,
                                           .encoding = encoding,
                                           .images = false,
                                           .seed = 7});
            const OpenedSample sample(builder, kind.family);
            ASSERT_TRUE(sample.document) << kind.section;
            EXPECT_EQ(sample.document->GetErrorType(), ReadErrNone);
            EXPECT_EQ(sample.document->GetItemDef()->GetSection(), kind.section);
            EXPECT_EQ(sample.document->GetItemDef()->HasKeyPhoto(), kind.hasKeyPhoto);
            EXPECT_EQ(ItemsOf(*sample.document), builder.ExpectedItems()) << kind.section;
            EXPECT_EQ(GuessFamily(sample.temp.Path("PHOTO")), kind.family) << kind.section;
        }
    }
}

TEST(Load, ReadsTheShapesOfRealFiles)
{
    const std::pair<const char*, SampleOptions> cases[] = {
        {"flat", {.layout = SampleLayout::Flat}},
        {"LF", {.lineEnd = "\n"}},
        {"byte order mark", {.encoding = SampleEncoding::Utf8, .byteOrderMark = true}},
        {"lower case names", {.lowerCaseNames = true}},
        {"no drawings", {.drawings = 0}},
        {"style sheet and comment",
         {.prologue = "<?xml-stylesheet href=\"PHOTO05.XSL\"?><!-- c -->"}},
    };
    for (const auto& [what, shape] : cases) {
        SampleOptions options = shape;
        options.images = false;
        const DeliveryBuilder builder(options);
        const OpenedSample sample(builder);
        OpenedSample opened(builder);
        opened.Open(FindPhotoFolders(opened.temp.Path())[0]);
        ASSERT_TRUE(opened.document) << what;
        EXPECT_EQ(ItemsOf(*opened.document), builder.ExpectedItems()) << what;
    }
}

TEST(Load, TellsEachFailureApart)
{
    const CString doctype = "<!DOCTYPE photodata SYSTEM \"PHOTO05.DTD\">\n";
    const CString photoXml = DeliveryBuilder({.images = false}).PhotoXml();
    const std::tuple<const char*, std::optional<CString>, PhotoXMLType, int> cases[] = {
        {"no PHOTO.XML", std::nullopt, PhotoXMLMlit, ReadErrUnknownPhotoXml},
        {"an empty one", "", PhotoXMLMlit, ReadErrUnknownPhotoXml},
        {"a DTD of nobody", "<!DOCTYPE photodata SYSTEM \"PHOTO99.DTD\"><photodata/>", PhotoXMLMlit,
         ReadErrUnknownPhotoXml},
        {"a DTD name on the line after", "<!DOCTYPE photodata SYSTEM\n\"PHOTO05.DTD\"><photodata/>",
         PhotoXMLMlit, ReadErrUnknownPhotoXml},
        {"PHOTO05 is none of NEXCO's", doctype + "<photodata/>", PhotoXMLNexco,
         ReadErrUnknownPhotoXml},
        {"a family of nobody", doctype + "<photodata/>", static_cast<PhotoXMLType>(4),
         ReadErrUnknownPhotoXml},
        {"no first element", doctype + "<photodata/>", PhotoXMLMlit, -1},
        {"no photographs", doctype + "<photodata><基礎情報/></photodata>", PhotoXMLMlit,
         ReadErrNoPhotos},
        {"cut off", photoXml.substr(0, photoXml.size() / 2), PhotoXMLMlit, -1},
        {"two roots", photoXml + photoXml.substr(photoXml.find("<photodata")), PhotoXMLMlit, -1},
        {"all there", photoXml, PhotoXMLKowan, ReadErrNone},
    };
    for (const auto& [what, xml, family, error] : cases) {
        TestHost services;
        const TempFolder temp;
        if (xml) temp.Write("PHOTO.XML", Cp932::EncodeForXml(*xml));
        ToviEnouDataFactory factory;
        const std::unique_ptr<ToviData> document(
            factory.Create(nullptr, temp.Path().c_str(), family, nullptr, nullptr));
        EXPECT_EQ(document ? document->GetErrorType() : -1, error) << what;
        EXPECT_EQ(factory.GetProblem().empty(), document != nullptr) << what;
    }
}

TEST(Load, TellsWhatIsWrongWithTheDefinitions)
{
    const std::tuple<const char*, std::optional<CString>, PhotoXMLReadErr> cases[] = {
        {"no file", std::nullopt, ReadErrNoItemFile},
        {"no XML", "<information>", ReadErrDefinition},
        {"no such section", "<information><国交省-11/></information>", ReadErrNoPhotos},
    };
    for (const auto& [what, items, error] : cases) {
        TestHost services;
        const TempFolder temp;
        DeliveryBuilder({.images = false}).Write(temp.Path("delivery"));
        if (items) temp.Write("READITEM.XML", *items);
        InstallHostServices({&services.user, &services.profile, "Tovi", temp.Path("program")});
        ToviEnouDataFactory factory;
        const std::unique_ptr<ToviData> document(factory.Create(
            nullptr, temp.Path("delivery/PHOTO").c_str(), PhotoXMLMlit, nullptr, nullptr));
        ASSERT_TRUE(document) << what;
        EXPECT_EQ(document->GetErrorType(), error) << what;
        InstallHostServices({});
    }
    ToviItemDef def;
    EXPECT_EQ(def.Load("/", PhotoXMLMlit), ReadErrDefinition) << "a program without a path";
}

TEST(ItemDefinitions, InheritWhatARecordLacks)
{
    TestHost services;
    const TempFolder temp;
    temp.Write(
        "READITEM.XML",
        "<information><他/><国交省-20><注/><管理項目><読込種別>PhotoItem</読込種別><タイトル>a</"
        "タイトル>"
        "<データ数>0+</データ数><必要度>連携</必要度><ブロック複数>○</ブロック複数></管理項目>"
        "<管理項目><タイトル>b</タイトル><データ数>?</データ数><操作>Parent</操作></管理項目>"
        "</国交省-20></information>");
    temp.Write("PHOTO.XML", "<!DOCTYPE photodata SYSTEM \"PHOTO05.DTD\">");
    InstallHostServices({&services.user, &services.profile, "Tovi", temp.Path("program")});
    ToviItemDef def;
    ASSERT_EQ(def.Load(temp.Path().c_str(), PhotoXMLMlit), ReadErrNone);
    ASSERT_EQ(def.GetCount(), 2);
    EXPECT_EQ(def[0].operation, StepNext);
    EXPECT_EQ(def[1].title, "b");
    EXPECT_EQ(def[1].count, CountZeroOrMore);
    EXPECT_EQ(def[1].grade, GradeLinked);
    EXPECT_EQ(def[1].operation, StepParent);
    EXPECT_TRUE(def[1].blockPlural);
    EXPECT_EQ(def[1].readType, ReadPhotoItem);
    EXPECT_THROW(def.GetDef(2), InvalidArgument);
    EXPECT_EQ(def.GetIndexFromTitle("c"), -1);
}

TEST(DeliveryLocation, TellsWhichDeliveriesAPathCanMean)
{
    const TempFolder temp;
    using Names = std::vector<const char*>;
    const std::tuple<Names, const char*, Names> cases[] = {
        {{"a/PHOTO.XML"}, "a", {"a/"}},
        {{"b/photo/photo.xml"}, "b/", {"b/PHOTO/"}},
        {{"c/DISK1/PHOTO/PHOTO.XML"}, "c", {"c/DISK1/PHOTO/"}},
        {{"d/x/y/PHOTO/PHOTO.XML"}, "d", {}},
        {{"e/PHOTO.XML", "e/PHOTO/PHOTO.XML"}, "e", {"e/"}},
        {{"f/PHOTO/PHOTO.XML", "f/old/PHOTO/PHOTO.XML"}, "f", {"f/PHOTO/"}},
        {{"g/B/PHOTO/PHOTO.XML", "g/A/PHOTO/photo.xml"}, "g", {"g/A/PHOTO/", "g/B/PHOTO/"}},
        {{"h/disk10/PHOTO/PHOTO.XML", "h/DISK2/PHOTO/PHOTO.XML"}, "h", {"h/DISK2/PHOTO/"}},
        {{"i/DISK1/PHOTO/PHOTO.XML", "i/DISK2/PHOTO/PHOTO.XML=x", "i/DISK3/PHOTO/PHOTO.XML=x"},
         "i",
         {"i/DISK1/PHOTO/", "i/DISK2/PHOTO/"}},
        {{"j/DISK1/PHOTO/PHOTO.XML", "j/DISK1 copy/PHOTO/PHOTO.XML"},
         "j",
         {"j/DISK1/PHOTO/", "j/DISK1 copy/PHOTO/"}},
        {{"k/small.zip", "k/PHOTO.XML"}, "k/small.zip", {}},
        {{"l/Photo.xml"}, "l/Photo.xml", {"l/"}},
        {{"m/PHOTO.XML", "m/photo.xml"}, "m/PHOTO.XML", {"m/"}},
        {Names(), "m/photo.xml", {}},
        {{"n/index_c.xml", "n/PHOTO/PHOTO.XML", "n/PHOTO.XML"}, "n/index_c.xml", {"n/PHOTO/"}},
        {{"o/PHOTO_JH.XML", "o/PHOTO.XML"}, "o/PHOTO_JH.XML", {"o/"}},
        {{"p/INDEX_C.XML", "p/DISK1/PHOTO/PHOTO.XML"}, "p/INDEX_C.XML", {}},
        {{"q/INDEX_C.XML.bak", "q/PHOTO.XML"}, "q/INDEX_C.XML.bak", {}},
        {Names(), "missing", {}},
    };
    for (const auto& [files, asked, expected] : cases) {
        for (const CString file : files) {
            const std::size_t equals = std::min(file.find('='), file.size());
            temp.Write(file.substr(0, equals), file.substr(equals));
        }
        CStringArray found;
        for (const char* folder : expected) found.Add(temp.Path(folder));
        EXPECT_EQ(FindPhotoFolders(temp.Path(asked)), found) << asked;
    }
}

TEST(DeliveryLocation, FindsTheIndexFileFromARelativePath)
{
    const TempFolder temp;
    temp.Write("d/PHOTO/PHOTO.XML", "<!DOCTYPE photodata SYSTEM \"PHOTO03.DTD\">");
    temp.Write("d/INDEX_C.XML", "<!DOCTYPE constdata SYSTEM \"PHOT_JH1.DTD\">");
    const auto before = std::filesystem::current_path();
    for (const auto& [folder, path] :
         {std::pair{"d", "PHOTO"}, {"d", "."}, {"d/PHOTO", "."}, {"d/PHOTO", ".."}}) {
        std::filesystem::current_path(temp.Path(folder));
        EXPECT_EQ(GuessFamily(FindPhotoFolders(path)[0]), PhotoXMLNexco) << folder << path;
    }
    std::filesystem::current_path(temp.Path("d/PHOTO"));
    TestHost services;
    EXPECT_EQ(ToviData().GetErrorType(), ReadErrUnknownPhotoXml) << "no delivery is none";
    EXPECT_EQ(services.profile.GetProfileString("PhotoFileType", "Type", "?"), "?");
    std::filesystem::current_path(before);
}

TEST(DeliveryLocation, GuessesTheFamilyFromWhatStandsAround)
{
    const std::tuple<const char*, const char*, const char*, PhotoXMLType> cases[] = {
        {"PHOTO05.DTD", "", "", PhotoXMLMlit},
        {"PHOTO03.DTD", "", "<!DOCTYPE constdata SYSTEM \"PHOT_JH1.DTD\">", PhotoXMLNexco},
        {"PHOTO03.DTD", "", "<適用要領基準>農村201103-01</適用要領基準>", PhotoXMLMaff},
        {"PHOTO03.DTD", "港湾201103-01", "", PhotoXMLKowan},
        {"PHOTO03.DTD", "", "<発注者-大分類>農林水産省</発注者-大分類>", PhotoXMLMaff},
        {"PHOTO04.DTD", "農村201103-01", "", PhotoXMLMlit},
        {"PHOTO99.DTD", "NEXCO", "", PhotoXMLMlit},
    };
    for (const auto& [dtd, standard, index, family] : cases) {
        const TempFolder temp;
        temp.Write("PHOTO/PHOTO.XML", CString("<!DOCTYPE photodata SYSTEM \"") + dtd +
                                          "\">\n<photodata><基礎情報><適用要領基準>" + standard +
                                          "</適用要領基準></基礎情報></photodata>");
        temp.Write("INDEX_C.XML", index);
        EXPECT_EQ(GuessFamily(temp.Path("PHOTO")), family) << dtd << standard << index;
    }
}
} // namespace
