#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

/// A file descriptor that closes itself.
class FileDescriptor
{
public:
    /// Takes over \p opened, the result of open(): below 0 when there is none.
    explicit FileDescriptor(int opened = -1) : number(opened) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { Reset(-1); }

    void Reset(int opened)
    {
        if (IsOpen()) close(number);
        number = opened;
    }
    /// Closes it now; 0 or an error number.
    int Close() { return close(std::exchange(number, -1)) == 0 ? 0 : errno; }
    bool IsOpen() const { return number >= 0; }
    int Get() const { return number; }

private:
    int number;
};
