#include "reports/SvgWorkFiles.h"

#include "loading/Environment.h"
#include "loading/WorkFolder.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

namespace
{
TEST(SvgWorkFiles, AreMadeOnceAndThenUsedAgain)
{
    const TestHost host;
    const TempFolder temp;
    const Environment before = GetEnvironment();
    SetEnvironment({Registry(temp.Path("user.ini"), temp.Path("machine.ini")),
                    {"", temp.MakeFolder("documents"), "", ""},
                    before.driveTypeOf});
    const CString svg = temp.Write(
        "D1.SVG", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"40\" height=\"30\"/>");
    const CString folder = SuiteFolder() + svgWorkFolder + "/";
    std::filesystem::create_directories(folder + "D1_thumb.jpg");
    CString thumb;
    CString page;
    EXPECT_TRUE(MakeSvgThumb(svg.c_str(), thumb)) << "an empty folder makes room";
    EXPECT_TRUE(MakeSvgPage(svg.c_str(), page));
    EXPECT_EQ(thumb, folder + "D1_thumb.jpg");
    EXPECT_EQ(page, folder + "D1.htm");
    EXPECT_TRUE(std::filesystem::is_regular_file(thumb));
    temp.Write("D1.SVG", "no drawing any more");
    EXPECT_TRUE(MakeSvgThumb(svg.c_str(), thumb));
    EXPECT_TRUE(MakeSvgPage(svg.c_str(), page));
    std::filesystem::remove(thumb);
    std::filesystem::remove(page);
    EXPECT_FALSE(MakeSvgThumb(svg.c_str(), thumb));
    EXPECT_FALSE(MakeSvgPage(svg.c_str(), page));
    SetEnvironment(before);
}
} // namespace
