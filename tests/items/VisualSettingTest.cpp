#include "items/ToviPhotoCtrlVisualSetting.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
constexpr const char* section = Setting::VisualSettingSection_;

TEST(VisualSetting, TellsThePagesOfEachMode)
{
    const struct
    {
        int mode;
        unsigned long columns;
        unsigned long rows;
        bool pages;
        bool thumbnails;
        bool list;
    } cases[] = {{0, 1, 1, true, false, false},  {1, 1, 2, true, false, false},
                 {2, 1, 3, true, false, false},  {3, 2, 2, true, false, false},
                 {4, 2, 3, true, false, false},  {5, 0, 0, false, true, false},
                 {6, 0, 0, false, false, true},  {7, 2, 3, false, false, false},
                 {50, 2, 3, false, false, false}};
    for (const auto& expected : cases) {
        Setting setting;
        setting.SetDivType(static_cast<Setting::DivideType>(expected.mode));
        EXPECT_EQ(setting.GetColCount(), expected.columns) << expected.mode;
        EXPECT_EQ(setting.GetRowCount(), expected.rows) << expected.mode;
        EXPECT_EQ(setting.GetCountOfSet(), expected.columns * expected.rows) << expected.mode;
        EXPECT_EQ(setting.IsPreviewStyle(), expected.pages) << expected.mode;
        EXPECT_EQ(setting.IsThumbListStyle(), expected.thumbnails) << expected.mode;
        EXPECT_EQ(setting.IsManagementListStyle(), expected.list) << expected.mode;
    }
}

TEST(VisualSetting, ReadsWhatWasStoredAHundredHigher)
{
    const struct
    {
        const char* stored;
        int number;
        bool flag;
    } cases[] = {{"", 5, false},   {"abc", 5, false}, {"-7", 5, false},
                 {"99", 5, false}, {"100", 0, false}, {"101", 1, true},
                 {"102", 2, true}, {"150", 50, true}, {"2147483647", 2147483547, true}};
    for (const auto& expected : cases) {
        TestHost host;
        if (*expected.stored != '\0') {
            host.profile.WriteProfileString(section, Setting::DivideTypeEntry_, expected.stored);
            host.profile.WriteProfileString(section, Setting::DoEditCheck_, expected.stored);
        }
        Setting setting;
        EXPECT_TRUE(setting.Load());
        EXPECT_EQ(setting.GetDivType(), expected.number) << expected.stored;
        EXPECT_EQ(setting.GetDoEditCheck(), expected.flag) << expected.stored;
        EXPECT_EQ(setting.GetTitleShowType(), Setting::TitlePhotoTitle);
        EXPECT_EQ(setting.GetEditCheckTypes(), "1");
        EXPECT_TRUE(setting.Save());
        Setting again;
        again.Load();
        EXPECT_EQ(again.GetDivType(), expected.number) << "saved, not read back";
    }
}

TEST(VisualSetting, IsSavedByItsOneOwner)
{
    TestHost host;
    {
        Setting owner;
        owner.Load();
        Setting copy(owner);
        copy.SetTreeType(Setting::TreePlace);
        copy.SetEditCheckTypes("2,1");
        owner = copy;
        copy.SetTreeType(Setting::TreeWorkType);
        Setting neverLoaded;
        neverLoaded.SetVisibleComment(false);
    }
    Setting next;
    next.Load();
    EXPECT_EQ(next.GetTreeType(), Setting::TreePlace);
    EXPECT_EQ(next.GetEditCheckTypes(), "2,1");
    EXPECT_TRUE(next.GetVisibleComment());
    EXPECT_EQ(host.profile.GetProfileInt(section, Setting::TreeTypeEntry_, -1), 101);
    host.profile.WriteProfileString(section, Setting::EditCheckTypes_, "");
    next.Load();
    EXPECT_EQ(next.GetEditCheckTypes(), "1") << "an empty list of checks is the default one";
}

TEST(VisualSetting, SavesOnlyWhatWasChangedInIt)
{
    TestHost host;
    const auto write = [&host](const char* entry, int value) {
        host.profile.WriteProfileInt(section, entry, value);
    };
    const auto stored = [&host](const char* entry) {
        return host.profile.GetProfileInt(section, entry, -1);
    };
    {
        Setting owner;
        owner.Load();
        Setting dialog(owner);
        dialog.SetDivType(Setting::DivideFour);
        write(Setting::TreeTypeEntry_, 101);
        owner = dialog;
        EXPECT_TRUE(owner.Save());
        EXPECT_EQ(stored(Setting::DivideTypeEntry_), 103);
        write(Setting::DivideTypeEntry_, 100);
    }
    EXPECT_EQ(stored(Setting::TreeTypeEntry_), 101);
    EXPECT_EQ(stored(Setting::DivideTypeEntry_), 100) << "saved again by the end";
    EXPECT_EQ(stored(Setting::VisibleComment_), -1);
}

TEST(VisualSetting, ForgetsTamperResultsWhenTheCheckChanges)
{
    const struct
    {
        bool before;
        const char* typesBefore;
        bool after;
        const char* typesAfter;
        bool changed;
    } cases[] = {{false, "1", false, "2", false},
                 {true, "1", true, "2", true},
                 {true, "1", true, "1", false},
                 {false, "1", true, "1", true},
                 {true, "1", false, "1", true}};
    for (const auto& expected : cases) {
        Setting before;
        before.SetDoEditCheck(expected.before);
        before.SetEditCheckTypes(expected.typesBefore);
        Setting after;
        after.SetDoEditCheck(expected.after);
        after.SetEditCheckTypes(expected.typesAfter);
        EXPECT_EQ(before.IsChangeEditCheckTerm(after), expected.changed);
    }
}
} // namespace
