#include "platform/host/TerminalUserInterface.h"
#include "platform/text/TerminalText.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>

namespace
{
/// A terminal of 20 columns whose output can be read.
class Terminal
{
public:
    Terminal() : master(posix_openpt(O_RDWR | O_NOCTTY))
    {
        if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) return;
        slave = open(ptsname(master), O_RDWR | O_NOCTTY);
        termios mode = {};
        tcgetattr(slave, &mode);
        cfmakeraw(&mode);
        tcsetattr(slave, TCSANOW, &mode);
        const winsize size = {5, 20, 0, 0};
        ioctl(slave, TIOCSWINSZ, &size);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal()
    {
        close(slave);
        close(master);
    }

    int Output() const { return slave; }

    /// What was written since the last call.
    CString Written() const
    {
        CString written;
        pollfd ready = {master, POLLIN, 0};
        while (poll(&ready, 1, 20) == 1) {
            char bytes[4096];
            const ssize_t got = read(master, bytes, sizeof bytes);
            if (got <= 0) break;
            written.append(bytes, static_cast<std::size_t>(got));
        }
        return written;
    }

private:
    int master;
    int slave = -1;
};

TEST(TerminalUserInterface, GivesTheSafeAnswer)
{
    const std::pair<MessageButtons, MessageAnswer> cases[] = {
        {MessageButtons::Ok, MessageAnswer::Ok},
        {MessageButtons::OkCancel, MessageAnswer::Cancel},
        {MessageButtons::YesNo, MessageAnswer::No},
        {MessageButtons::YesNoCancel, MessageAnswer::Cancel},
    };
    const TempFolder temp;
    const int file = open(temp.Path("out").c_str(), O_WRONLY | O_CREAT, 0600);
    TerminalUserInterface user(file);
    for (const auto& [buttons, expected] : cases) {
        EXPECT_EQ(user.ShowMessage("終了しますか", "Viewer", buttons, MessageIcon::Question),
                  expected);
    }
    user.ShowProgress("not on a terminal");
    CString folder = "/start";
    EXPECT_FALSE(user.ChooseFolder(folder, "title", FolderChooserStyle::Plain));
    EXPECT_EQ(folder, "/start");
    EXPECT_EQ(temp.Read("out"), ReplaceAll("----", "-", "Viewer: 終了しますか\n"));
    close(file);
}

TEST(TerminalUserInterface, TextsCannotSteerTheTerminal)
{
    const Terminal terminal;
    if (terminal.Output() < 0) GTEST_SKIP() << "no terminals here";
    TerminalUserInterface user(terminal.Output());
    user.ShowMessage("a\x1b[2J\r\nb\xC2\x9Bx", "", MessageButtons::Ok, MessageIcon::Error);
    EXPECT_EQ(terminal.Written(), "a [2J \nb x\n");
    user.ShowProgress("1\x1b[2J\n2");
    EXPECT_EQ(terminal.Written(), "\r\x1b[K1 [2J 2");
}

TEST(TerminalText, LosesWhatSteersATerminalAndJsonLosesNothing)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"工事.xml", "工事.xml", "工事.xml"},
        {"a\x7f", "a ", "a\\u007f"},
        {"\xC2\x80\xC2\x9F\xC2\xA0", "  \xC2\xA0", "\\u0080\\u009f\xC2\xA0"},
        {"\u202Agpj.exe\u202E…", " gpj.exe …", "\\u202agpj.exe\\u202e…"},
        {"\u2066\u2069\u2065", "  \u2065", "\\u2066\\u2069\u2065"},
    };
    for (const auto& [text, line, json] : cases) {
        EXPECT_EQ(HarmlessLine(text), line);
        EXPECT_EQ(HarmlessJson(text), json);
    }
    EXPECT_EQ(HarmlessLine("a\x1b[2J\nb\r"), "a [2J b ");
}

TEST(TerminalUserInterface, ProgressIsOneLineThatGoesAway)
{
    const Terminal terminal;
    if (terminal.Output() < 0) GTEST_SKIP() << "no terminals here";
    {
        TerminalUserInterface user(terminal.Output());
        user.ShowProgress("写真を読み込んでいます。しばらくお待ちください。");
        EXPECT_EQ(terminal.Written(), "\r\x1b[K写真を読み込んでい");
        user.ShowMessage("text", "", MessageButtons::Ok, MessageIcon::Error);
        EXPECT_EQ(terminal.Written(), "\r\x1b[Ktext\n");
        user.ShowProgress("a");
        user.ShowProgress("");
        user.ShowProgress("");
        EXPECT_EQ(terminal.Written(), "\r\x1b[Ka\r\x1b[K");
        user.ShowProgress("b");
    }
    EXPECT_EQ(terminal.Written(), "\r\x1b[Kb\r\x1b[K");
}

TEST(TerminalUserInterface, BurstOfProgressIsThinnedOut)
{
    const Terminal terminal;
    if (terminal.Output() < 0) GTEST_SKIP() << "no terminals here";
    TerminalUserInterface user(terminal.Output());
    for (int i = 0; i < 1000; ++i) user.ShowProgress("x");
    const CString written = terminal.Written();
    EXPECT_LT(std::count(written.begin(), written.end(), 'x'), 100);
}
} // namespace
