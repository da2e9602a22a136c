#include "platform/pictures/SvgRendering.h"

#include "platform/files/MibFile.h"
#include "platform/files/RegularFile.h"

#include <QImage>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <optional>

namespace
{
using Clock = std::chrono::steady_clock;

constexpr const char* programName = "tovi-svg";
/// It stops itself after less time of work; this is for when it gets none done.
constexpr auto longestWait = std::chrono::seconds(30);
constexpr std::int32_t longestSide = 32767;
constexpr std::int64_t mostPixels = 50'000'000;

/// The drawing program at work.
class Drawing
{
public:
    Drawing(const CString& svgPath, const QSize& within)
    {
        const RegularFile input(svgPath);
        int ends[2];
        if (!input.IsOpen() || pipe2(ends, O_CLOEXEC) != 0) return;
        output.Reset(ends[0]);
        const FileDescriptor writeEnd(ends[1]);
        Start(input.Descriptor(), writeEnd.Get(), within);
    }
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;
    ~Drawing()
    {
        if (child <= 0) return;
        kill(child, SIGKILL);
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    }

    /// Fills \p size bytes at \p to with what the program writes. False when it ends or hangs
    /// before.
    bool Read(void* to, std::size_t size)
    {
        auto* at = static_cast<char*>(to);
        while (size > 0) {
            if (child <= 0 || !Wait()) return false;
            const ssize_t got = read(output.Get(), at, size);
            if (got == 0 || (got < 0 && errno != EINTR)) return false;
            if (got < 0) continue;
            at += got;
            size -= static_cast<std::size_t>(got);
        }
        return true;
    }

private:
    void Start(int input, int writeEnd, const QSize& within)
    {
        CString program = MibBesideProgram(programName);
        CString width = std::to_string(within.width());
        CString height = std::to_string(within.height());
        char* const arguments[] = {program.data(), width.data(), height.data(), nullptr};
        posix_spawn_file_actions_t files;
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&files, writeEnd, STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        const int error = posix_spawn(&child, program.c_str(), &files, nullptr, arguments, environ);
        posix_spawn_file_actions_destroy(&files);
        if (error != 0) child = 0;
    }

    bool Wait()
    {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        pollfd waited = {output.Get(), POLLIN, 0};
        const int ready = left.count() > 0 ? poll(&waited, 1, static_cast<int>(left.count())) : 0;
        return ready > 0 || (ready < 0 && errno == EINTR);
    }

    FileDescriptor output;
    pid_t child = 0;
    Clock::time_point deadline = Clock::now() + longestWait;
};

bool IsPossible(const std::int32_t (&size)[2])
{
    return size[0] > 0 && size[1] > 0 && size[0] <= longestSide && size[1] <= longestSide &&
           std::int64_t{size[0]} * size[1] <= mostPixels;
}
} // namespace

QImage RenderSvg(const CString& path, const QSize& within)
{
    Drawing drawing(path, within.isEmpty() ? QSize(0, 0) : within);
    std::int32_t size[2];
    if (!drawing.Read(size, sizeof size) || !IsPossible(size)) return {};
    QImage image(size[0], size[1], QImage::Format_RGB32);
    if (image.isNull()) return {};
    const std::size_t row = static_cast<std::size_t>(size[0]) * 4;
    for (int y = 0; y < image.height(); ++y) {
        if (!drawing.Read(image.scanLine(y), row)) return {};
    }
    return image;
}
