#pragma once

#include "platform/text/Text.h"

#include <atomic>
#include <map>
#include <thread>
#include <vector>

struct fuse_in_header;

/// A folder that shows another one, read-only, as a network share does, and that stops to answer
/// when it is told to: whoever asks it for anything then waits.
class StallingShare
{
public:
    /// Shows \p folder in the empty folder \p place.
    StallingShare(CString folder, CString place);
    StallingShare(const StallingShare&) = delete;
    StallingShare& operator=(const StallingShare&) = delete;
    /// Whoever waits gets an error.
    ~StallingShare();

    /// False where the machine or the user can't have it.
    bool IsThere() const { return mounted; }
    void Stall() { stalled = true; }
    void Resume() { stalled = false; }
    /// It is stalled, and somebody waits for an answer.
    bool IsWaitedFor() const { return isWaitedFor; }

private:
    void Serve();
    void Answer(const fuse_in_header& head, const char* body);
    void Reply(const fuse_in_header& head, int error, std::string_view bytes = {}) const;
    void ReplyAttributes(const fuse_in_header& head, const CString& path, bool withEntry);
    void ReplyListing(const fuse_in_header& head, std::uint64_t offset, std::size_t size);
    void ReplyBytes(const fuse_in_header& head, std::uint64_t offset, std::size_t size);
    std::uint64_t NodeOf(const CString& path);

    CString source;
    CString place;
    int device = -1;
    bool mounted = false;
    std::vector<CString> paths;
    std::map<CString, std::uint64_t> nodes;
    std::atomic<bool> stalled = false;
    std::atomic<bool> isWaitedFor = false;
    std::atomic<bool> ended = false;
    std::thread server;
};
