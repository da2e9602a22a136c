#include "platform/files/MibFile.h"
#include "platform/files/TextFile.h"
#include "platform/files/TextHead.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdarg>
#include <fcntl.h>
#include <functional>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace
{
/// What happens once, right in front of the next open: behind whatever look was taken before.
std::function<void()> beforeOpen;
} // namespace

/// Takes the place of the system library's in this program.
extern "C" int open(const char* path, int flags, ...)
{
    if (beforeOpen) std::exchange(beforeOpen, nullptr)();
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

namespace
{
TEST(RegularFile, IsNoPipeThatTakesItsPlaceBetweenTheLookAndTheOpen)
{
    constexpr unsigned secondsToHang = 10;
    const TempFolder temp;
    bool readable = false;
    const std::function<std::optional<CString>(const CString&)> readers[] = {
        [](const CString& path) { return MibReadFile(path, 100); },
        [](const CString& path) { return FindHeadLine(path, {"<a"}); },
        [&](const CString& path) { return ReadTextFile(path, 100, readable); },
    };
    alarm(secondsToHang);
    for (const auto& read : readers) {
        const CString path = temp.Write("file", "<a/>");
        EXPECT_EQ(read(path), "<a/>");
        beforeOpen = [&] {
            mkfifo(temp.Path("pipe").c_str(), 0600);
            std::filesystem::rename(temp.Path("pipe"), path);
        };
        EXPECT_EQ(read(path), std::nullopt);
        EXPECT_FALSE(beforeOpen) << "nothing was opened";
        std::filesystem::remove(path);
    }
    alarm(0);
}
} // namespace
