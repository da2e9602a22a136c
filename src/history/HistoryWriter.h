#pragma once

#include "history/HistoryFile.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

/// Writes to the file of a history on a thread of its own, in the order in which it is told to.
/// What can't be written waits, and is tried again until it can.
class TOVI_EXPORT HistoryWriter
{
public:
    using Clock = std::chrono::steady_clock;
    /// May run several times, of which the last one counts.
    using Write = std::function<void(HistoryFile&)>;

    struct State
    {
        /// How many writes wait, and since when the first of them does.
        std::size_t waiting = 0;
        Clock::time_point since;
        /// Why the last attempt failed, in a sentence; empty when it didn't.
        CString problem;
        /// Another program has claimed the file: nothing is written any more.
        bool takenOver = false;
    };

    /// Writes to \p thePath as \p theOwner. \p opened is that file as claimed, or null where
    /// it isn't there yet or couldn't be opened.
    HistoryWriter(CString thePath, CString theOwner, std::unique_ptr<HistoryFile> opened);
    HistoryWriter(const HistoryWriter&) = delete;
    HistoryWriter& operator=(const HistoryWriter&) = delete;
    /// Writes what waits, unless that fails.
    ~HistoryWriter();

    void Add(Write write);
    State Now() const;
    /// Waits until nothing waits any more, or for \p limit. False then.
    bool WaitUntilWritten(std::chrono::milliseconds limit) const;

private:
    struct Waiting
    {
        Write write;
        Clock::time_point since;
    };

    void Run();
    /// Why the batch couldn't be written; empty when it is, or somebody else owns the file.
    CString WriteBatch();
    void OpenFile();
    bool IsOwner();

    const CString path;
    const CString owner;
    /// The thread's own, as is the batch that it is about to write.
    std::unique_ptr<HistoryFile> file;
    std::deque<Waiting> batch;
    /// The file is there and couldn't be opened: it is claimed when it can be.
    bool mayClaim;

    mutable std::mutex mutex;
    mutable std::condition_variable changed;
    /// Behind the batch.
    std::deque<Waiting> waiting;
    std::size_t batchSize = 0;
    Clock::time_point batchSince;
    CString problem;
    bool takenOver = false;
    bool ending = false;

    std::thread thread;
};
