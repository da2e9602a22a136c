#include "platform/pictures/LumCanvas.h"
#include "platform/pictures/VectorAdaptor.h"
#include "sample/SamplePictures.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"

#include <gmock/gmock.h>

namespace
{
using testing::HasSubstr;
using testing::Not;

constexpr const char* head =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" ";

/// A sheet of 800 by 400 pixels, wholly red.
CString RedSheet(const CString& more)
{
    return CString(head) + "width=\"800\" height=\"400\">" + more +
           "<rect width=\"800\" height=\"400\" fill=\"#f00\"/></svg>";
}

class Svg : public testing::Test
{
protected:
    TestHost host;
    TempFolder temp;
};

TEST_F(Svg, IsDrawnWithAllItsLayers)
{
    LumImage image;
    const CString sheet = temp.Write("D1.SVG", RedSheet(""));
    EXPECT_TRUE(image.Load(sheet.c_str()));
    EXPECT_EQ(image.GetWidth(), 800);
    EXPECT_TRUE(image.LoadThumb(sheet.c_str()));
    EXPECT_EQ(image.GetWidth(), LumImage::thumbSide);
    EXPECT_EQ(image.GetHeight(), LumImage::thumbSide / 2);
    // Without a size of its own that of the view box counts.
    const CString box = CString(head) + "viewBox=\"0 0 30 60\"><circle r=\"9\"/></svg>";
    EXPECT_TRUE(image.Load(temp.Write("box.svg", box).c_str()));
    EXPECT_EQ(image.GetHeight(), 60);

    SampleScene scene;
    const CString photograph = PhotoPicture(scene, ".SVG");
    EXPECT_TRUE(image.Load(temp.Write("P1.SVG", photograph).c_str()));
    LumImage bare;
    ASSERT_TRUE(
        LumImage::GetMainImageFromSvg(temp.Path("P1.SVG").c_str(), temp.Path("main.jpg").c_str()));
    ASSERT_TRUE(bare.Load(temp.Path("main.jpg").c_str()));
    EXPECT_EQ(image.GetWidth(), bare.GetWidth());
    EXPECT_FALSE(image.Encode(LumBitmap, 0) == bare.Encode(LumBitmap, 0))
        << "the blackboard is a layer";

    // A photograph that is cut off inside must not be drawn as an empty sheet.
    const std::size_t data = photograph.find("base64,") + 7;
    const CString cut =
        photograph.substr(0, data + 4000) + photograph.substr(photograph.find('"', data));
    EXPECT_FALSE(image.Load(temp.Write("cut.SVG", cut).c_str()));
}

TEST_F(Svg, HostileOnesFailAloneAndSoon)
{
    CString uses;
    for (int i = 1; i < 40; ++i) {
        const CString before = "<use xlink:href=\"#u" + std::to_string(i - 1) + "\"/>";
        uses += "<g id=\"u" + std::to_string(i) + "\">" + before + before + "</g>";
    }
    CString deep;
    for (int i = 0; i < 200000; ++i) deep += "<g>";
    const std::pair<const char*, CString> cases[] = {
        {"outside.svg", RedSheet("<image xlink:href=\"file:///etc/hostname\" width=\"9\" "
                                 "height=\"9\"/>")},
        {"entities.svg",
         "<!DOCTYPE svg [<!ENTITY a \"<g/>\"><!ENTITY b SYSTEM \"file:///etc/passwd\">]>" +
             CString(head) + ">&b;</svg>"},
        {"uses.svg", RedSheet("<g id=\"u0\"><rect width=\"800\" height=\"400\"/></g>" + uses)},
        {"unclosed.svg", deep},
        {"no-size.svg", CString(head) + "/>"},
        {"endless.svg", CString(head) + "width=\"1e300\" height=\"1e300\"/>"},
        {"html.svg", "<html/>"},
        {"empty.svg", ""},
    };
    for (const auto& [name, text] : cases) {
        const CString path = temp.Write(name, text);
        LumImage image;
        EXPECT_FALSE(image.Load(path.c_str())) << name;
    }
    LumImage image;
    EXPECT_TRUE(image.Load(temp.Write("good.svg", RedSheet("")).c_str()));
}

TEST_F(Svg, NeverRunAProgramOfTheCurrentFolder)
{
    const CString sheet = temp.Write("D1.SVG", RedSheet(""));
    const CString planted = temp.Write("tovi-svg", "#!/bin/sh\ntouch ran\n");
    std::filesystem::permissions(planted, std::filesystem::perms::owner_all);
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(temp.Path());
    for (const char* program : {"", "tovi", "./tovi"}) {
        InstallHostServices({&host.user, &host.profile, "Tovi", program});
        LumImage image;
        EXPECT_FALSE(image.Load(sheet.c_str())) << program;
        EXPECT_FALSE(std::filesystem::exists("ran")) << program;
    }
    std::filesystem::current_path(before);
}

TEST_F(Svg, BecomesAThumbnailOrAPage)
{
    const CString sheet = temp.Write("D1.SVG", RedSheet("<script>alert(1)</script>"));
    const CString jpeg = temp.Path("D1_thumb.jpg");
    EXPECT_TRUE(CreateJepgFromSVG_Size(sheet.c_str(), jpeg.c_str(), 128, 128));
    int width = 0;
    int height = 0;
    EXPECT_TRUE(LumImage::GetCommentImageSize(jpeg.c_str(), width, height));
    EXPECT_EQ(width, 128);
    EXPECT_EQ(height, 64);
    EXPECT_TRUE(SVGtoHTML2(sheet.c_str(), temp.Path("D1.htm").c_str(), ""));
    EXPECT_THAT(temp.Read("D1.htm"),
                HasSubstr("<img alt=\"\" src=\"data:image/svg+xml;base64,PHN2"));
    EXPECT_THAT(temp.Read("D1.htm"), Not(HasSubstr("script")));

    const CString text = temp.Write("no.SVG", "text");
    EXPECT_FALSE(CreateJepgFromSVG_Size(text.c_str(), temp.Path("no.jpg").c_str(), 128, 128));
    EXPECT_FALSE(SVGtoHTML2(text.c_str(), temp.Path("no.htm").c_str(), ""));
    EXPECT_FALSE(std::filesystem::exists(temp.Path("no.htm")));
}
} // namespace
