#include "windows/loader/FileLoader.h"

#include "work/ReadingLimit.h"

#include <QCoreApplication>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <mutex>

using namespace std::chrono_literals;

namespace
{
/// Tasks that are overdue have threads, too.
constexpr int mostThreads = 64;
/// So many pictures of the largest size fit into the budget: a page of six and some room.
constexpr std::size_t largestPictures = 8;
/// A picture takes four bytes a pixel, and a third of it for its reduced copies.
constexpr double bytesOfPixel = 4 * 4 / 3.0;

LoadDesk::Time Now()
{
    return std::chrono::steady_clock::now();
}
} // namespace

/// What the threads share with the loader, and keep when it is gone.
struct FileLoader::Shared
{
    std::mutex mutex;
    LoadDesk desk;
    std::size_t budget;
    /// What has arrived and wasn't told yet.
    std::vector<LoadKey> arrivals;
    /// Null once the loader has ended.
    FileLoader* loader;
};

FileLoader& FileLoader::Ours()
{
    static auto* const ours = [] {
        // What still reads would find the statics of others gone.
        qAddPostRoutine([] { Ours().Stop(1s); });
        return new FileLoader(std::max(2, QThread::idealThreadCount()),
                              PictureMemory::LoadInBytes());
    }();
    return *ours;
}

FileLoader::FileLoader(int workers, std::size_t budget)
    : shared(new Shared{{}, LoadDesk(workers, budget), budget, {}, this}), pool(new QThreadPool)
{
    pool->setMaxThreadCount(mostThreads);
    overdueTimer.setInterval(std::chrono::milliseconds(LoadDesk::overdueAfter) / 4);
    connect(&overdueTimer, &QTimer::timeout, this, [this] {
        if (IsIdle()) overdueTimer.stop();
        Pump();
    });
}

FileLoader::~FileLoader()
{
    if (Stop(100ms)) delete pool;
}

bool FileLoader::Stop(std::chrono::milliseconds patience)
{
    {
        const std::scoped_lock lock(shared->mutex);
        shared->loader = nullptr;
    }
    overdueTimer.stop();
    pool->clear();
    return pool->waitForDone(static_cast<int>(patience.count()));
}

void FileLoader::Want(LoadDesk::Viewer viewer, std::vector<LoadWish> wishes)
{
    {
        const std::scoped_lock lock(shared->mutex);
        shared->desk.Want(viewer, std::move(wishes));
    }
    Pump();
}

void FileLoader::Forget(const void* place)
{
    const std::scoped_lock lock(shared->mutex);
    shared->desk.Forget(place);
}

void FileLoader::SetBudget(std::size_t bytes)
{
    const std::scoped_lock lock(shared->mutex);
    shared->budget = bytes;
    shared->desk.SetBudget(bytes);
}

std::size_t FileLoader::BytesInHand() const
{
    const std::scoped_lock lock(shared->mutex);
    return shared->desk.BytesInHand();
}

long long FileLoader::MostPixels() const
{
    const std::scoped_lock lock(shared->mutex);
    return static_cast<long long>(static_cast<double>(shared->budget / largestPictures) /
                                  bytesOfPixel);
}

bool FileLoader::IsIdle() const
{
    const std::scoped_lock lock(shared->mutex);
    return shared->arrivals.empty() && shared->desk.IsIdle(Now());
}

LoadedPtr FileLoader::Find(const LoadKey& key)
{
    const std::scoped_lock lock(shared->mutex);
    return shared->desk.InHand(key);
}

void FileLoader::Pump()
{
    while (true) {
        std::optional<LoadDesk::Task> task;
        {
            const std::scoped_lock lock(shared->mutex);
            if (shared->loader != nullptr) task = shared->desk.Take(Now());
        }
        if (!task) return;
        if (!overdueTimer.isActive()) overdueTimer.start();
        pool->start([common = shared, next = std::move(*task)] { Run(common, next); });
    }
}

/// On a thread: \p task, and then what is next.
void FileLoader::Run(const std::shared_ptr<Shared>& shared, LoadDesk::Task task)
{
    while (true) {
        LoadedPtr loaded = task.work(task.known);
        const std::scoped_lock lock(shared->mutex);
        if (shared->desk.Finish(task, std::move(loaded)) && shared->loader != nullptr) {
            shared->arrivals.push_back(task.key);
            if (shared->arrivals.size() == 1) {
                QMetaObject::invokeMethod(shared->loader, &FileLoader::Deliver,
                                          Qt::QueuedConnection);
            }
        }
        std::optional<LoadDesk::Task> next;
        if (shared->loader != nullptr) next = shared->desk.Take(Now());
        if (!next) return;
        task = std::move(*next);
    }
}

void FileLoader::Deliver()
{
    std::vector<LoadKey> arrivals;
    {
        const std::scoped_lock lock(shared->mutex);
        arrivals.swap(shared->arrivals);
    }
    for (const LoadKey& key : arrivals) emit Arrived(key);
}
