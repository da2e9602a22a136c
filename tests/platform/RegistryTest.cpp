#include "platform/store/Registry.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{
using enum RegistryHive;
using enum RegistryType;

class RegistryTest : public testing::Test
{
protected:
    TempFolder temp;
    Registry registry{temp.Path("user/registry.ini"), temp.Path("machine.ini")};
};

TEST_F(RegistryTest, ReadsWhatAnAdministratorWrote)
{
    temp.Write("machine.ini", "# by hand\n"
                              "[SOFTWARE\\Orvane Systems\\QVHomeKey]\n"
                              "QVScratch = expand_sz:$(PersonalTemp)\\new\n"
                              "Plain=sz:日本\nNumber=dword:5\nBare=text\n");
    const std::tuple<const char*, const char*, std::optional<RegistryValue>> cases[] = {
        {"Software\\ORVANE systems\\qvhomekey", "qvscratch",
         RegistryValue{ExpandableText, "$(PersonalTemp)\\new"}},
        {"SOFTWARE\\Orvane Systems\\QVHomeKey", "Plain", RegistryValue{Text, "日本"}},
        {"SOFTWARE\\Orvane Systems\\QVHomeKey", "Number", RegistryValue{Other, "dword:5"}},
        {"SOFTWARE\\Orvane Systems\\QVHomeKey", "Bare", RegistryValue{Other, "text"}},
        {"SOFTWARE\\Orvane Systems\\QVHomeKey", "Missing", std::nullopt},
    };
    for (const auto& [key, name, expected] : cases) {
        EXPECT_EQ(registry.ReadValue(LocalMachine, key, name), expected) << key << ' ' << name;
        EXPECT_EQ(registry.ReadValue(CurrentUser, key, name), std::nullopt);
    }
}

TEST_F(RegistryTest, WrittenValuesStayWithTypeAndText)
{
    const RegistryValue values[] = {
        {Text, "C:\\作業 \n"}, {ExpandableText, "$(WinDrive)\\"}, {Text, ""}, {Other, "dword:1"}};
    for (const RegistryValue& value : values) {
        EXPECT_TRUE(registry.WriteValue(CurrentUser, "A\\B", "v", value));
        Registry other(temp.Path("user/registry.ini"), "");
        EXPECT_EQ(other.ReadValue(CurrentUser, "a\\b", "V"), value);
    }
    EXPECT_EQ(registry.ReadValue(LocalMachine, "A\\B", "v"), std::nullopt);
    EXPECT_FALSE(Registry("", "").WriteValue(CurrentUser, "A", "v", values[0]));
}

TEST_F(RegistryTest, SubKeysAreTheNextLevelEachOnce)
{
    temp.Write("machine.ini",
               "[S\\Viewer\\2.0\\Common\\Path]\nx=sz:\n[S\\Viewer\\2.0\\Other]\nx=sz:\n"
               "[s\\VIEWER\\10.0\\Common]\nx=sz:\n[S\\ViewerX\\1.0]\nx=sz:\n"
               "[S\\Viewer]\nx=sz:\n[Viewer\\3.0]\nx=sz:\n");
    EXPECT_EQ(registry.ListSubKeys(LocalMachine, "S\\Viewer"), (CStringArray{"10.0", "2.0"}));
    EXPECT_EQ(registry.ListSubKeys(LocalMachine, "S\\Viewer\\2.0"),
              (CStringArray{"Common", "Other"}));
    EXPECT_EQ(registry.ListSubKeys(CurrentUser, "S\\Viewer"), CStringArray());
}

TEST_F(RegistryTest, DamagedFileIsReadAsFarAsItGoesAndNeverLost)
{
    const CString damaged = "[A]\nv=sz:1\ngarbage\n";
    temp.Write("user/registry.ini", damaged);
    EXPECT_EQ(registry.ReadValue(CurrentUser, "A", "v"), (RegistryValue{Text, "1"}));
    EXPECT_EQ(temp.Read("user/registry.ini"), damaged);
    EXPECT_TRUE(registry.WriteValue(CurrentUser, "A", "w", {Text, "2"}));
    EXPECT_EQ(temp.Read("user/registry.ini"), "[A]\nv=sz:1\nw=sz:2\n");
    EXPECT_EQ(temp.Read("user/registry.ini.damaged"), damaged);
}
} // namespace
