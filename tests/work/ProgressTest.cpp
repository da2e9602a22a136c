#include "platform/host/Interrupt.h"
#include "platform/host/TerminalUserInterface.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"
#include "work/ToviProgressDlg.h"

#include <gtest/gtest.h>

#include <climits>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace
{
using Calls = std::vector<CString>;

/// A created progress window and what it was told since.
struct Progress
{
    explicit Progress(bool throttled) : dialog(throttled)
    {
        dialog.Create(nullptr);
        Told();
    }

    Calls Told() { return std::exchange(host.user.progress, {}); }

    TestHost host;
    ToviProgressDlg dialog;
};

TEST(Progress, OpensOverItsDisabledOwnerAndEnablesItInTheEnd)
{
    TestHost host;
    {
        ToviProgressDlg dialog(false);
        dialog.SetCancelBtnEnabled(false);
        EXPECT_TRUE(dialog.Create(nullptr));
        dialog.SetCaption(nullptr);
        dialog.SetCaption("保存");
        dialog.Show();
    }
    EXPECT_EQ(host.user.progress, (Calls{"open", "owner 0", "cancel 0", "caption Tovi",
                                         "caption 保存", "show", "owner 1", "close"}));
    ToviProgressDlg dialog(false);
    dialog.Create(nullptr);
    EXPECT_TRUE(dialog.DestroyWindow());
    EXPECT_FALSE(dialog.DestroyWindow());
}

TEST(Progress, ActsAboutAHundredTimesInARun)
{
    const struct
    {
        const char* name;
        int lower;
        int upper;
        bool throttled;
        int pumps;
        int lastBar;
    } cases[] = {
        {"unthrottled however long", 0, 1000, false, 1000, 1000},
        {"an interval of 1 does, too", 0, 199, true, 199, 199},
        {"every second one", 0, 200, true, 100, 200},
        {"the last position counts where the interval doesn't fit", 0, 299, true, 150, 299},
        {"a range that begins elsewhere", -500, 500, true, 101, 500},
        {"a range that no int spans", INT_MAX - 1000, INT_MAX, true, 101, INT_MAX},
    };
    for (const auto& run : cases) {
        Progress progress(run.throttled);
        progress.dialog.SetRange(run.lower, run.upper);
        if (!run.throttled || run.upper - run.lower < 200) progress.dialog.SetPos(run.lower);
        progress.host.user.pumps = 0;
        for (int i = run.lower; i < run.upper; ++i) progress.dialog.StepIt();
        EXPECT_NEAR(progress.host.user.pumps, run.pumps, 1) << run.name;
        EXPECT_EQ(progress.dialog.SetPos(run.upper), run.lastBar) << run.name;
    }
}

TEST(Progress, TellsThePercentage)
{
    const std::tuple<int, int, int, const char*> cases[] = {
        {5, 5, 9, "0%"},
        {0, 3, 2, "66%"},
        {-4, 4, -2, "25%"},
        {0, 10, -3, "0%"},
        {INT_MIN, INT_MAX, 0, "50%"},
        {0, INT_MAX, INT_MAX - 1, "99%"},
    };
    for (const auto& [lower, upper, pos, expected] : cases) {
        Progress progress(false);
        progress.dialog.SetRange(lower, upper);
        progress.dialog.SetPos(pos);
        EXPECT_EQ(progress.Told().back(), CString("percent ") + expected) << pos;
        progress.dialog.SetPos(pos);
        EXPECT_EQ(progress.Told().back().substr(0, 3), "bar") << "the text is the same";
    }
}

TEST(Progress, SetsAMessageOnlyWhenItDiffers)
{
    Progress progress(false);
    for (const char* text : {"a", "a", "", "b", "a"}) progress.dialog.SetMessage(text);
    EXPECT_EQ(progress.Told(), (Calls{"message a", "message b", "message a"}));

    Progress throttled(true);
    throttled.dialog.SetRange(0, 1000);
    throttled.Told();
    for (const char* text : {"a", "b", "c"}) throttled.dialog.SetMessage(text);
    throttled.dialog.GetCancel();
    throttled.dialog.SetPos(0);
    EXPECT_EQ(throttled.Told(), (Calls{"message c", "pump", "pump", "bar 0", "percent 0%"}))
        << "only what can be seen";
}

TEST(Progress, ReportsACancelOnce)
{
    Progress progress(false);
    progress.host.user.cancelAtPumps = {1, 3};
    EXPECT_TRUE(progress.dialog.GetCancel());
    EXPECT_FALSE(progress.dialog.GetCancel());
    progress.dialog.StepIt();
    EXPECT_TRUE(progress.dialog.GetCancel()) << "clicked while stepping";
    EXPECT_FALSE(progress.dialog.GetCancel());
}

TEST(Progress, NoticesACancelAtTheNextUpdateWhileThrottled)
{
    Progress progress(true);
    ToviProgressDlg& dialog = progress.dialog;
    dialog.SetRange(0, 300);
    progress.host.user.cancelAtPumps = {2};
    EXPECT_FALSE(dialog.GetCancel()) << "looks at once";
    EXPECT_EQ(progress.host.user.pumps, 1);
    dialog.SetPos(0);
    EXPECT_EQ(progress.host.user.pumps, 2) << "the click";
    EXPECT_TRUE(dialog.GetCancel());
    progress.host.user.cancelAtPumps = {4};
    for (const int pos : {1, 2}) {
        dialog.SetPos(pos);
        EXPECT_FALSE(dialog.GetCancel());
        EXPECT_EQ(progress.host.user.pumps, 3);
    }
    dialog.SetPos(3);
    EXPECT_TRUE(dialog.GetCancel());
    EXPECT_FALSE(dialog.GetCancel());
}

TEST(Progress, IgnoresTheCloseBoxWithoutCancel)
{
    TestHost host;
    host.user.cancelAtPumps = {1};
    ToviProgressDlg dialog(false);
    dialog.SetCancelBtnEnabled(false);
    dialog.Create(nullptr);
    EXPECT_FALSE(dialog.GetCancel());
}

/// Everything that a loop does.
void Loop(ToviProgressDlg& dialog)
{
    dialog.SetCaption("c");
    dialog.SetRange(0, 2);
    dialog.Show();
    dialog.SetPos(0);
    for (int i = 1; i <= 2; ++i) {
        dialog.SetMessage(std::to_string(i));
        EXPECT_FALSE(dialog.GetCancel());
        dialog.StepIt();
    }
}

TEST(Progress, RunsOnWithoutADisplay)
{
    Progress progress(false);
    progress.host.user.windowGoesAtPump = 1;
    Loop(progress.dialog);
    EXPECT_EQ(progress.Told(), (Calls{"caption c", "range 0 2", "show", "pump", "pump", "pump"}));
    EXPECT_FALSE(progress.dialog.DestroyWindow());
    EXPECT_EQ(progress.Told(), (Calls{"owner 1", "close"})) << "the owner is there still";
}

TEST(Progress, LeavesAnOwnerAloneThatHasGone)
{
    Progress progress(false);
    progress.host.user.ownerGoesAtPump = 1;
    progress.dialog.SetPos(1);
    progress.Told();
    EXPECT_TRUE(progress.dialog.DestroyWindow());
    EXPECT_EQ(progress.Told(), Calls{"close"});
}

/// The terminal's way: no window, and Cancel is an interrupt.
struct TerminalProgress
{
    explicit TerminalProgress(bool cancel) : user(open("/dev/null", O_WRONLY)), dialog(false)
    {
        InstallHostServices({&user, nullptr, "Tovi", ""});
        dialog.SetCancelBtnEnabled(cancel);
        dialog.Create(nullptr);
    }
    ~TerminalProgress() { InstallHostServices({}); }

    TerminalUserInterface user;
    ToviProgressDlg dialog;
};

TEST(TerminalProgress, TakesAnInterruptAsCancel)
{
    InstallInterruptHandler();
    {
        TerminalProgress progress(true);
        EXPECT_FALSE(progress.dialog.GetCancel());
        std::raise(SIGINT);
        EXPECT_TRUE(progress.dialog.GetCancel());
        EXPECT_FALSE(progress.dialog.GetCancel());
    }
    TerminalProgress next(true);
    EXPECT_FALSE(next.dialog.GetCancel());
    std::signal(SIGINT, SIG_DFL);
}

TEST(TerminalProgressDeathTest, EndsTheProgramWhereNobodyListens)
{
    const auto Interrupt = [](bool listening, bool cancel, int times) {
        InstallInterruptHandler();
        std::unique_ptr<TerminalProgress> progress;
        if (listening) progress = std::make_unique<TerminalProgress>(cancel);
        for (int i = 0; i < times; ++i) std::raise(SIGINT);
    };
    EXPECT_EXIT(Interrupt(false, false, 1), testing::KilledBySignal(SIGINT), "");
    EXPECT_EXIT(Interrupt(true, false, 1), testing::KilledBySignal(SIGINT), "");
    EXPECT_EXIT(Interrupt(true, true, 2), testing::KilledBySignal(SIGINT), "");
    EXPECT_EXIT(Interrupt(true, true, 1), testing::KilledBySignal(SIGINT), "")
        << "the work ended without having noticed";
}
} // namespace
