#include "platform/host/HostServices.h"
#include "platform/host/ScriptedUserInterface.h"
#include "platform/store/FileProfileStore.h"
#include "platform/store/MemoryProfileStore.h"
#include "support/FileTree.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
constexpr const char* profileName = "config/profile.ini";

class FileProfile : public testing::Test
{
protected:
    FileProfile() { InstallHostServices({&user, nullptr, "Viewer", {}}); }
    ~FileProfile() override { InstallHostServices({}); }

    FileProfileStore Open() const { return FileProfileStore(temp.Path(profileName)); }

    TempFolder temp;
    ScriptedUserInterface user;
};

TEST_F(FileProfile, EveryStoreKeepsWhatIsWritten)
{
    MemoryProfileStore memory;
    FileProfileStore file = Open();
    for (ProfileStore* store :
         {static_cast<ProfileStore*>(&memory), static_cast<ProfileStore*>(&file)}) {
        EXPECT_EQ(store->GetProfileInt("Sort", "ExecSort", -1), -1);
        EXPECT_TRUE(store->WriteProfileInt("Sort", "ExecSort", 101));
        EXPECT_TRUE(store->WriteProfileInt("Sort", "Below", -2147483647 - 1));
        EXPECT_TRUE(store->WriteProfileString("Label", "Label1", " 黒板\\不鮮明\n"));
        EXPECT_EQ(store->GetProfileInt("Sort", "ExecSort", -1), 101);
        EXPECT_EQ(store->GetProfileInt("Sort", "Below", -1), -2147483647 - 1);
    }
    EXPECT_EQ(Open().GetProfileString("Label", "Label1", ""), " 黒板\\不鮮明\n");
    EXPECT_EQ(Open().GetProfileInt("Sort", "ExecSort", -1), 101);
}

TEST_F(FileProfile, TextThatIsNoNumberGivesTheDefault)
{
    FileProfileStore store = Open();
    for (const char* text : {"", "x", "12a", "1 2", "0x10", "99999999999", "１"}) {
        store.WriteProfileString("S", "e", text);
        EXPECT_EQ(store.GetProfileInt("S", "e", 7), 7) << text;
    }
}

TEST_F(FileProfile, ProgramsSeeAndKeepEachOthersEntries)
{
    FileProfileStore one = Open();
    FileProfileStore other = Open();
    one.WriteProfileInt("S", "one", 1);
    EXPECT_EQ(other.GetProfileInt("S", "one", 0), 1);
    other.WriteProfileInt("S", "other", 2);
    one.WriteProfileInt("S", "one", 3);
    EXPECT_EQ(one.GetProfileInt("S", "other", 0), 2);
    EXPECT_EQ(other.GetProfileInt("S", "one", 0), 3);
}

TEST_F(FileProfile, NothingIsLostWhenProgramsWriteAtOnce)
{
    constexpr int programs = 3;
    constexpr int writes = 100;
    for (int program = 0; program < programs; ++program) {
        if (fork() != 0) continue;
        FileProfileStore store = Open();
        bool kept = true;
        for (int i = 0; i < writes; ++i) {
            kept = store.WriteProfileInt(Format("Program%d", program), Format("e%d", i), i) && kept;
        }
        _exit(kept ? 0 : 1);
    }
    for (int program = 0; program < programs; ++program) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(status, 0);
    }
    const FileProfileStore store = Open();
    for (int program = 0; program < programs; ++program) {
        for (int i = 0; i < writes; ++i) {
            EXPECT_EQ(store.GetProfileInt(Format("Program%d", program), Format("e%d", i), -1), i);
        }
    }
}

TEST_F(FileProfile, UnwritableFileKeepsValuesForTheRun)
{
    const CString path = temp.Write(profileName, "[S]\nold=1\ne=2\n");
    chmod(path.c_str(), 0444);
    FileProfileStore store = Open();
    EXPECT_FALSE(store.WriteProfileInt("S", "e", 5));
    EXPECT_EQ(store.GetProfileInt("S", "e", 0), 5);
    EXPECT_EQ(store.GetProfileInt("S", "old", 0), 1);
    EXPECT_EQ(Open().GetProfileInt("S", "e", 0), 2);

    chmod(path.c_str(), 0644);
    EXPECT_TRUE(store.WriteProfileInt("S", "later", 6));
    EXPECT_EQ(Open().GetProfileInt("S", "e", 0), 5);
}

TEST_F(FileProfile, DamagedFileIsSetAsideWithAWord)
{
    const CString damages[] = {"[S]\ne=1\ngarbage\n", "[S]\ne=\x93\xFA\n",
                               "[S]\ne=1\n" + CString(SectionFile::maximumSize, '\n')};
    FileProfileStore store = Open();
    for (const CString& damage : damages) {
        user.calls.clear();
        temp.Write(profileName, damage);
        EXPECT_EQ(store.GetProfileInt("S", "e", 7), 7);
        EXPECT_EQ(temp.Read("config/profile.ini.damaged"), damage);
        EXPECT_TRUE(store.WriteProfileInt("S", "f", 2));
        EXPECT_EQ(temp.Read(profileName), "[S]\nf=2\n");
        const CString text = "設定ファイルを読み取れないため、既定の設定を使用します。\n"
                             "読み取れないファイルは、次の名前で残してあります。\n" +
                             temp.Path("config/profile.ini.damaged");
        ASSERT_EQ(user.calls.size(), 1u);
        EXPECT_EQ(user.calls[0].text, text);
        EXPECT_EQ(user.calls[0].caption, "Viewer");
    }
}

TEST_F(FileProfile, DamagedFileThatCannotBeSetAsideIsNotOverwritten)
{
    temp.Write(profileName, "[S]\ne=1\ngarbage\n");
    temp.Write("config/profile.ini.damaged/in the way", "");
    FileProfileStore store = Open();
    EXPECT_EQ(store.GetProfileInt("S", "e", 7), 7);
    EXPECT_FALSE(store.WriteProfileInt("S", "f", 2));
    EXPECT_EQ(store.GetProfileInt("S", "f", 0), 2);
    EXPECT_EQ(store.GetProfileInt("S", "e", 7), 7);
    EXPECT_EQ(temp.Read(profileName), "[S]\ne=1\ngarbage\n");
    EXPECT_EQ(user.Messages(),
              CStringArray{"設定ファイルを読み取れないため、既定の設定を使用します。"});
}
TEST(FileProfileStore, KeepsOutOfADelivery)
{
    const TempFolder temp;
    temp.Write("PHOTO/PHOTO.XML", "");
    for (const char* name : {"PHOTO/profile.ini", "PHOTO/new/profile.ini"}) {
        const auto before = ReadFileTree(temp.Path());
        FileProfileStore profile(temp.Path(name));
        EXPECT_FALSE(profile.WriteProfileString("Section", "entry", "value"));
        EXPECT_EQ(profile.GetProfileString("Section", "entry", ""), "value");
        EXPECT_EQ(ReadFileTree(temp.Path()), before) << name;
        EXPECT_FALSE(std::filesystem::exists(temp.Path("PHOTO/new")));
    }
}
} // namespace
