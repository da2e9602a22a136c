#include "items/ToviPhotoCtrlVisualSetting.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
constexpr const char* section = Setting::VisualSettingSection_;

TEST(VisualSetting, ReadsWhatWasStoredAHundredHigher)
{
    const std::tuple<const char*, int, bool> cases[] = {
        {"", 5, false},   {"abc", 5, false}, {"-7", 5, false},
        {"99", 5, false}, {"100", 0, false}, {"101", 1, true},
        {"102", 2, true}, {"150", 50, true}, {"2147483647", 2147483547, true}};
    for (const auto& [stored, number, flag] : cases) {
        TestHost host;
        if (*stored != '\0') {
            host.profile.WriteProfileString(section, Setting::DivideTypeEntry_, stored);
            host.profile.WriteProfileString(section, Setting::DoEditCheck_, stored);
        }
        Setting setting;
        EXPECT_TRUE(setting.Load());
        EXPECT_EQ(setting.GetDivType(), number) << stored;
        EXPECT_EQ(setting.GetDoEditCheck(), flag) << stored;
        EXPECT_EQ(setting.GetTitleShowType(), Setting::TitlePhotoTitle);
        EXPECT_EQ(setting.GetEditCheckTypes(), "1");
        EXPECT_TRUE(setting.Save());
        Setting again;
        again.Load();
        EXPECT_EQ(again.GetDivType(), number) << "saved, not read back";
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
} // namespace
