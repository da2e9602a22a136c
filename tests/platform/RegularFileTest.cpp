#include "platform/files/MibFile.h"
#include "platform/files/TextFile.h"
#include "platform/files/TextHead.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <functional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
/// Lets the names \p one and \p other change places.
bool Exchange(const CString& one, const CString& other)
{
    return renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0;
}

TEST(RegularFile, IsReadWholeOrNotAtAllWhileAPipeChangesPlacesWithIt)
{
    constexpr int often = 1000;
    constexpr unsigned secondsToHang = 20;
    const TempFolder temp;
    const CString path = temp.Write("file", "<a/>");
    const CString pipe = temp.Path("pipe");
    mkfifo(pipe.c_str(), 0600);
    if (!Exchange(path, pipe)) GTEST_SKIP() << "this file system exchanges no names";
    bool readable = false;
    const std::function<std::optional<CString>()> readers[] = {
        [&] { return MibReadFile(path, 100); },
        [&] { return FindHeadLine(path, {"<a"}); },
        [&] { return ReadTextFile(path, 100, readable); },
    };
    const pid_t exchanging = fork();
    while (exchanging == 0) Exchange(path, pipe);
    const pid_t reading = fork();
    if (reading == 0) {
        alarm(secondsToHang);
        for (const auto& read : readers) {
            for (int whole = 0, refused = 0; whole < often || refused < often;) {
                const auto text = read();
                if (text && *text != "<a/>") _exit(1);
                ++(text ? whole : refused);
            }
        }
        _exit(0);
    }
    int status = -1;
    waitpid(reading, &status, 0);
    kill(exchanging, SIGKILL);
    waitpid(exchanging, nullptr, 0);
    EXPECT_FALSE(WIFSIGNALED(status)) << "a reader waits for who writes into the pipe";
    EXPECT_EQ(WEXITSTATUS(status), 0) << "the pipe was read";
}
} // namespace
