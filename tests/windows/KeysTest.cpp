#include "support/TestHost.h"
#include "windows/keys/KeyEdit.h"
#include "windows/keys/KeySet.h"
#include "windows/setup/KeyChangeDlg.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;
using enum FrameCommand;

QList<QKeySequence> Keys(const char* text)
{
    return QKeySequence::listFromString(QString::fromUtf8(text));
}

/// The commands that have a key in common with another one in some window.
std::vector<FrameCommand> Clashing(const KeySet& keys)
{
    std::vector<FrameCommand> clashing;
    for (const KeyRow& row : KeyTable()) {
        for (const QKeySequence& key : keys.Of(row.command)) {
            const bool isFree = keys.Clashes(row.command, key).empty() &&
                                !KeySet::IsFixed(row.command, key) && key.count() == 1;
            if (!isFree) clashing.push_back(row.command);
        }
    }
    return clashing;
}

TEST(Keys, HaveOneCommandEach)
{
    EXPECT_THAT(Clashing(KeySet()), IsEmpty());
    KeySet old;
    old.TakeOldLabelKeys();
    EXPECT_THAT(Clashing(old), IsEmpty());
    EXPECT_EQ(old.Of(FrameCommand::LabelOk), Keys("1"));
    EXPECT_EQ(old.Of(FrameCommand::LabelNg3), Keys("4"));
    EXPECT_EQ(old.Of(FrameCommand::RemoveLabels), Keys("0"));

    struct Case
    {
        const char* what;
        FrameCommand command;
        const char* key;
        std::vector<FrameCommand> losers;
    };
    const Case cases[] = {
        {"another one's", Save, "N", {NextUnchecked}},
        {"in another window", ZoomSave, "Ctrl+O", {}},
        {"of the labels, in every window", ZoomSave, "O", {FrameCommand::LabelOk}},
        {"a label's with Shift", Save, "Shift+O", {FrameCommand::LabelOk}},
        {"which would be a label's with Shift", FrameCommand::LabelOk, "S", {Save}},
        {"nobody's", Save, "Ctrl+B", {}}};
    for (const Case& one : cases) {
        KeySet keys;
        if (one.command == FrameCommand::LabelOk) keys.Assign(Save, Keys("Shift+S"));
        const KeySet before = keys;
        EXPECT_EQ(keys.Clashes(one.command, Keys(one.key)[0]), one.losers) << one.what;
        keys.Assign(one.command, Keys(one.key));
        EXPECT_EQ(keys.Of(one.command), Keys(one.key)) << one.what;
        EXPECT_THAT(Clashing(keys), IsEmpty()) << one.what;
        for (const FrameCommand loser : one.losers) EXPECT_THAT(keys.Of(loser), IsEmpty());
    }
    KeySet keys;
    keys.Assign(Save, Keys("Left; F9"));
    EXPECT_EQ(keys.Of(Save), Keys("F9")) << "an arrow stays one";
}

TEST(Keys, AreKeptInTheProfile)
{
    const TestHost services;
    MemoryProfileStore profile;
    KeySet keys;
    EXPECT_TRUE(keys.Save(profile));
    EXPECT_EQ(profile.GetProfileString("Keys", "Save", "?"), "?") << "as in the table";
    keys.Assign(Save, Keys("F9; Ctrl+;"));
    keys.Assign(Open, {});
    keys.TakeOldLabelKeys();
    ASSERT_TRUE(keys.Save(profile));
    KeySet loaded;
    loaded.Load(profile);
    EXPECT_EQ(loaded, keys);
    ASSERT_TRUE(KeySet().Save(profile));
    loaded = KeySet();
    loaded.Load(profile);
    EXPECT_EQ(loaded, KeySet()) << "the defaults are back";

    for (const char* useless : {"", "Ctrl+Nothing", "Ctrl+A, Ctrl+B", "Ctrl+"}) {
        profile.WriteProfileString("Keys", "Save", useless);
        loaded = KeySet();
        loaded.Load(profile);
        EXPECT_EQ(loaded, KeySet()) << useless;
    }
    // A key of the user's is his, whatever a later table gives it to.
    profile.WriteProfileString("Keys", "ShowPosition", "Ctrl+S");
    loaded.Load(profile);
    EXPECT_THAT(loaded.Of(Save), IsEmpty());
}

TEST(KeyWindow, WarnsOfClashesAndRestoresTheDefaults)
{
    TestHost services;
    SetCurrentKeys({});
    KeyChangeDlg dialog(nullptr);
    dialog.show();
    auto& commands = *dialog.findChild<QTreeWidget*>();
    auto& edit = *dialog.findChild<KeyEdit*>();
    const auto press = [&dialog](const char* text) {
        for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
            if (button->text() == QString::fromUtf8(text)) button->click();
        }
    };
    const auto choose = [&commands](const char* text) {
        const auto found =
            commands.findItems(QString::fromUtf8(text), Qt::MatchExactly | Qt::MatchRecursive);
        commands.setCurrentItem(found.front());
    };
    const auto says = [&dialog](const char* text) {
        return std::ranges::any_of(dialog.findChildren<QLabel*>(), [&](const QLabel* label) {
            return label->text().contains(QString::fromUtf8(text));
        });
    };
    choose("上書き保存");
    QTest::keyClick(&edit, Qt::Key_N);
    EXPECT_TRUE(says("次の未検査の写真"));
    press("このキーを加える");
    EXPECT_EQ(commands.currentItem()->text(1), QStringLiteral("Ctrl+S、N"));
    QTest::keyClick(&edit, Qt::Key_Left);
    EXPECT_TRUE(says("変えられません"));
    // As a keyboard gives it whose question mark is above a slash.
    QTest::keyEvent(QTest::Click, &edit, '?', Qt::ShiftModifier);
    EXPECT_TRUE(says("キーの一覧"));
    press("このキーにする");
    EXPECT_EQ(commands.currentItem()->text(1), QStringLiteral("?"));
    dialog.accept();
    EXPECT_EQ(CurrentKeys().Of(Save), Keys("?"));
    EXPECT_THAT(CurrentKeys().Of(ShowKeys), IsEmpty());
    EXPECT_THAT(CurrentKeys().Of(NextUnchecked), IsEmpty());
    EXPECT_EQ(services.profile.GetProfileString("Keys", "Save", ""), "?");

    KeyChangeDlg again(nullptr);
    again.show();
    for (QPushButton* button : again.findChildren<QPushButton*>()) {
        if (button->text() == QStringLiteral("すべて初期値に戻す")) button->click();
    }
    again.reject();
    EXPECT_EQ(CurrentKeys().Of(Save), Keys("?")) << "given up";
    SetCurrentKeys({});
}
} // namespace
