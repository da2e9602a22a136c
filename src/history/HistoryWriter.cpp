#include "history/HistoryWriter.h"

#include "platform/files/MibFile.h"

#include <iterator>

namespace
{
/// How often is looked whether another program has claimed the file, and tried again what failed.
constexpr std::chrono::seconds interval(1);

CString WhyNotKept(const CString& path, const DatabaseError& error)
{
    const CString folder = path.substr(0, path.rfind('/'));
    if (error.Failure() == WriteFailure::NoSpace) return folder + " に空き容量がありません。";
    if (error.Failure() == WriteFailure::NotWritable) return folder + " に書き込めません。";
    return folder + " に書き込めません（" + error.what() + "）。";
}
} // namespace

HistoryWriter::HistoryWriter(CString thePath, CString theOwner, std::unique_ptr<HistoryFile> opened)
    : path(std::move(thePath)), owner(std::move(theOwner)), file(std::move(opened)),
      mayClaim(!file && MibIsFileExist(path)), thread([this] { Run(); })
{}

HistoryWriter::~HistoryWriter()
{
    {
        const std::lock_guard lock(mutex);
        ending = true;
    }
    changed.notify_all();
    thread.join();
}

void HistoryWriter::Add(Write write)
{
    {
        const std::lock_guard lock(mutex);
        if (takenOver) return;
        waiting.push_back({std::move(write), Clock::now()});
    }
    changed.notify_all();
}

HistoryWriter::State HistoryWriter::Now() const
{
    const std::lock_guard lock(mutex);
    State state{batchSize + waiting.size(), batchSince, problem, takenOver};
    if (batchSize == 0 && !waiting.empty()) state.since = waiting.front().since;
    return state;
}

bool HistoryWriter::WaitUntilWritten(std::chrono::milliseconds limit) const
{
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, limit, [this] { return batchSize == 0 && waiting.empty(); });
}

void HistoryWriter::Run()
{
    std::unique_lock lock(mutex);
    while (!takenOver) {
        // After a failure the next try is left to time, since more to write won't help.
        changed.wait_for(lock, interval,
                         [this] { return ending || (problem.empty() && !waiting.empty()); });
        std::move(waiting.begin(), waiting.end(), std::back_inserter(batch));
        waiting.clear();
        if (batch.empty() && ending) return;
        batchSize = batch.size();
        if (!batch.empty()) batchSince = batch.front().since;
        lock.unlock();
        CString why = WriteBatch();
        const bool isOwner = !why.empty() || IsOwner();
        lock.lock();
        problem = std::move(why);
        takenOver = !isOwner;
        if (problem.empty()) {
            batch.clear();
            batchSize = 0;
        }
        changed.notify_all();
        if (ending && !problem.empty()) return;
    }
}

CString HistoryWriter::WriteBatch()
{
    try {
        // It is made for something to write alone.
        if (!file && batch.empty() && !MibIsFileExist(path)) return {};
        if (!file) OpenFile();
        if (batch.empty()) return {};
        Transaction transaction(file->Store());
        if (file->Owner() != owner) return {};
        for (const Waiting& next : batch) next.write(*file);
        transaction.Commit();
        return {};
    } catch (const DatabaseError& error) {
        file.reset();
        return WhyNotKept(path, error);
    }
}

void HistoryWriter::OpenFile()
{
    auto now = std::make_unique<HistoryFile>(path);
    // Whoever has claimed a file that wasn't there at first came later.
    if (mayClaim || now->Owner().empty()) now->Claim(owner);
    mayClaim = false;
    file = std::move(now);
}

bool HistoryWriter::IsOwner()
{
    try {
        return !file || file->Owner() == owner;
    } catch (const DatabaseError&) {
        return true;
    }
}
