#include "reports/SvgWorkFiles.h"

#include "support/TempFolder.h"
#include "support/TestHost.h"
#include "work/Environment.h"
#include "work/WorkFolder.h"

#include <gtest/gtest.h>

namespace
{
TEST(SvgWorkFiles, AreMadeOnceAndThenUsedAgain)
{
    const TestHost host;
    const TempFolder temp;
    const Environment before = GetEnvironment();
    SetEnvironment({Registry(temp.Path("user.ini"), temp.Path("machine.ini")),
                    {"", temp.MakeFolder("documents"), "", "", temp.Path("cache")},
                    before.driveTypeOf});
    const CString svg = temp.Write(
        "D1.SVG", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"40\" height=\"30\"/>");
    const CString twin = temp.Write("b/D1.SVG", "no drawing");
    CString thumb;
    CString page;
    EXPECT_TRUE(MakeSvgThumb(svg.c_str(), thumb));
    EXPECT_TRUE(MakeSvgPage(svg.c_str(), page));
    const CString madeThumb = thumb;
    const auto made = std::filesystem::last_write_time(page);
    EXPECT_TRUE(MakeSvgThumb(svg.c_str(), thumb));
    EXPECT_TRUE(MakeSvgPage(svg.c_str(), page));
    EXPECT_EQ(thumb, madeThumb);
    EXPECT_EQ(std::filesystem::last_write_time(page), made);
    EXPECT_FALSE(MakeSvgThumb(twin.c_str(), thumb));
    EXPECT_NE(thumb, madeThumb);
    temp.Write("D1.SVG", "no drawing any more");
    EXPECT_FALSE(MakeSvgThumb(svg.c_str(), thumb));
    EXPECT_FALSE(MakeSvgPage(svg.c_str(), page));
    std::filesystem::remove_all(SuiteFolder());
    temp.Write("D1.SVG", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"40\" height=\"30\"/>");
    EXPECT_TRUE(MakeSvgThumb(svg.c_str(), thumb)) << "after somebody has cleared the work folder";
    SetEnvironment(before);
}
} // namespace
