#include "work/Environment.h"
#include "support/TempFolder.h"
#include "work/ProductList.h"
#include "work/WorkFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

namespace
{
using enum RegistryHive;

constexpr const char* homeKey = "SOFTWARE\\Orvane Systems\\QVHomeKey";

class WorkFolder : public testing::Test
{
protected:
    WorkFolder()
    {
        SetEnvironment({Registry(temp.Path("user.ini"), temp.Path("machine.ini")),
                        {"", temp.MakeFolder("書類"), temp.MakeFolder("desk"),
                         temp.MakeFolder("long temporary"), temp.Path("cache/tovi")},
                        [](const CString&) { return DriveType::Optical; }});
    }

    Registry& TheRegistry() const { return GetEnvironment().registry; }

    void Name(RegistryHive hive, const CString& text, RegistryType type = RegistryType::Text) const
    {
        TheRegistry().WriteValue(hive, homeKey, "QVScratch", {type, text});
    }

    void Install(RegistryHive hive, const CString& product, const CString& folder) const
    {
        TheRegistry().WriteValue(hive, "Software\\Orvane Systems\\" + product + "\\Common\\Path",
                                 "Program", {RegistryType::Text, folder});
    }

    /// The work folder, with the test's own folder as "~"; "none" when there is none.
    CString Found() const
    {
        CString path = "untouched";
        if (GetWorkFolder(path)) return ReplaceAll(path, temp.Path(), "~");
        EXPECT_EQ(path, "untouched");
        return "none";
    }

    TempFolder temp;
};

TEST_F(WorkFolder, LocationOfTheUsersHive)
{
    temp.MakeFolder("long temporary/long temporary");
    const std::pair<CString, CString> cases[] = {
        {"$(PersonalTemp)\\", "~/long temporary/QVScratch"},
        {"$(PersonalDocument)\\新規", "~/書類/新規/QVScratch"},
        {"$(PersonalDeskTop)", "~/desk/QVScratch"},
        {"$(WinDrive)" + ReplaceAll(temp.Path("desk"), "/", "\\"), "~/desk/QVScratch"},
        {"$(PersonalTemp)\\../long temporary$(WinDrive)$(WinDrive)",
         "~/long temporary/../long temporary/QVScratch"},
        // What can't be used, is no macro in this case, or is too short gives the cache.
        {temp.Path("missing/deep"), "~/cache/tovi/QVScratch"},
        {"$(personaltemp)", "~/cache/tovi/QVScratch"},
        {"desk", "~/cache/tovi/QVScratch"},
        {"\\", "~/cache/tovi/QVScratch"},
        {"x", "~/cache/tovi/QVScratch"},
        {"", "~/cache/tovi/QVScratch"},
    };
    for (const auto& [text, expected] : cases) {
        for (const auto type : {RegistryType::Text, RegistryType::ExpandableText}) {
            Name(CurrentUser, text, type);
            EXPECT_EQ(Found(), expected) << text;
        }
    }
    EXPECT_TRUE(std::filesystem::is_directory(temp.Path("書類/新規")));
    EXPECT_FALSE(std::filesystem::exists(temp.Path("desk/QVScratch")));
    Name(CurrentUser, temp.Path("desk"), RegistryType::Other);
    EXPECT_EQ(Found(), "~/cache/tovi/QVScratch");
}

TEST_F(WorkFolder, MachinesLocationBecomesTheUsers)
{
    Name(LocalMachine, "$(PersonalTemp)\\");
    Name(CurrentUser, "x");
    EXPECT_EQ(Found(), "~/long temporary/QVScratch");
    EXPECT_EQ(TheRegistry().ReadValue(CurrentUser, homeKey, "QVScratch"),
              (RegistryValue{RegistryType::ExpandableText, "$(PersonalTemp)\\"}));
    Name(LocalMachine, "$(PersonalDeskTop)");
    EXPECT_EQ(Found(), "~/long temporary/QVScratch");
    GetEnvironment().registry = Registry("", temp.Path("machine.ini"));
    EXPECT_EQ(Found(), "~/desk/QVScratch") << "the user's hive can't be written";
}

TEST_F(WorkFolder, UnusableLocationOfTheMachineGivesTheRootOnce)
{
    Name(LocalMachine, temp.Path("missing/deep"));
    EXPECT_EQ(Found(), "/QVScratch");
    // It is the user's by now.
    EXPECT_EQ(Found(), "~/cache/tovi/QVScratch");
}

TEST_F(WorkFolder, InstalledProductsFollowTheRegistry)
{
    const Product& first = ProductList().front();
    const Product& last = ProductList().back();
    const CString firstKey = first.key;
    for (const char* name : {"a/1/p", "b/1/p", "c/1/p", "d/1/p", "e/1/2/p"}) temp.MakeFolder(name);

    Install(CurrentUser, last.key, temp.Path("e/1/2/p"));
    EXPECT_EQ(Found(), "~/cache/tovi/QVScratch") << "not under a version";
    Install(CurrentUser, CString(last.key) + "\\1.0", temp.Path("e/1/2/p"));
    EXPECT_EQ(Found(), "~/e/QVScratch");
    Install(CurrentUser, firstKey + "\\9.9", temp.Path("a/1/p"));
    EXPECT_EQ(Found(), "~/a/QVScratch") << "rows in order";
    Install(LocalMachine, firstKey + "\\1.0", temp.Path("b/1/p"));
    EXPECT_EQ(Found(), "~/b/QVScratch") << "the machine's hive first";
    Install(LocalMachine, firstKey + "\\10.0", temp.Path("c/1/p"));
    EXPECT_EQ(Found(), "~/c/QVScratch");
    Install(LocalMachine, firstKey + "\\9.0", ReplaceAll(temp.Path("d/1/p"), "/", "\\") + "\\\\");
    EXPECT_EQ(Found(), "~/d/QVScratch") << "in the order of texts, not of numbers";
    Install(LocalMachine, firstKey + "\\9.5", temp.Path("missing"));
    EXPECT_EQ(Found(), "~/d/QVScratch") << "folders that aren't there are passed over";
    Install(LocalMachine, firstKey + "\\9.6", "/tmp");
    EXPECT_EQ(Found(), "/QVScratch") << "levels end at the root";
}

TEST_F(WorkFolder, FailsWithNothingToGoBy)
{
    GetEnvironment().folders.cache.clear();
    EXPECT_EQ(Found(), "none");
    char buffer[4] = "abc";
    EXPECT_EQ(SuiteFolder(), "");
    EXPECT_EQ(GetSuiteFolder(sizeof buffer, buffer), 0u);
    EXPECT_STREQ(buffer, "abc");
}

TEST_F(WorkFolder, SuiteFolderInABuffer)
{
    const CString expected = temp.Path("cache/tovi/QVScratch/QV-SUITE/");
    const auto length = static_cast<unsigned int>(expected.size());
    EXPECT_EQ(SuiteFolder(), expected);
    CString buffer(expected.size() + 1, '?');
    EXPECT_EQ(GetSuiteFolder(length, buffer.data()), length + 1);
    EXPECT_EQ(buffer[0], '?');
    EXPECT_EQ(GetSuiteFolder(length + 1, buffer.data()), length);
    EXPECT_EQ(buffer, expected + '\0');
}

/// An environment variable that has its old value again at the end of the object's life.
class Variable
{
public:
    Variable(const char* variable, const CString& value) : name(variable)
    {
        if (const char* const now = std::getenv(variable)) old = now;
        setenv(variable, value.c_str(), 1);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { old ? setenv(name, old->c_str(), 1) : unsetenv(name); }

private:
    const char* name;
    std::optional<CString> old;
};

TEST(UserFolders, FollowTheDesktopsSettingsThenTheUsualNames)
{
    const TempFolder temp;
    const CString home = temp.MakeFolder("home");
    temp.MakeFolder("long");
    std::filesystem::create_directory_symlink(temp.Path("long"), temp.Path("link"));
    const Variable homeVariable("HOME", home + "/");
    const Variable configVariable("XDG_CONFIG_HOME", temp.Path("config"));
    const Variable temporaryVariable("TMPDIR", temp.Path("link/"));
    const auto Documents = [&home] { return CurrentUserFolders().documents.substr(home.size()); };

    EXPECT_EQ(Documents(), "");
    temp.MakeFolder("home/Documents");
    EXPECT_EQ(Documents(), "/Documents");
    const CString settings = "# comment\nXDG_DESKTOP_DIR=\"" + temp.MakeFolder("机 $") +
                             "\"\nXDG_DOCUMENTS_DIR=\"$HOME/書類\"\n";
    temp.Write("config/user-dirs.dirs", ReplaceAll(settings, "$\"", "\\$\""));
    EXPECT_EQ(Documents(), "/Documents") << "the folder in the settings is missing";
    temp.MakeFolder("home/書類");
    EXPECT_EQ(Documents(), "/書類");
    EXPECT_EQ(CurrentUserFolders().desktop, temp.Path("机 $"));
    EXPECT_EQ(CurrentUserFolders().temporary, temp.Path("long"));
    EXPECT_EQ(ConfigurationFile("x.ini"), temp.Path("config/tovi/x.ini"));
    const Variable relative("XDG_CONFIG_HOME", "relative");
    EXPECT_EQ(ConfigurationFile("x.ini"), home + "/.config/tovi/x.ini");
}
} // namespace
