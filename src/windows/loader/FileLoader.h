#pragma once

#include "windows/loader/LoadDesk.h"

#include <QObject>
#include <QTimer>

class QThreadPool;

/// Reads pictures, and what else files say, on threads of its own, and keeps what was read: what
/// every window shows of a file it has from here, so that no disc and no share holds it up. What is
/// read next and what is kept a LoadDesk decides.
///
/// A window tells what it wants, shows what is in hand, and looks again at what Arrived names. It
/// always looks under the key of what it shows by then: so a late result never stands in the place
/// of another one. All of it belongs to the thread of the windows.
class TOVI_EXPORT FileLoader : public QObject
{
    Q_OBJECT

public:
    /// The one of all windows, with the user's budget. It is never destroyed: a read that hangs
    /// ends with the process.
    static FileLoader& Ours();

    /// Reads \p workers things at once and keeps up to \p budget bytes.
    FileLoader(int workers, std::size_t budget);
    /// Leaves alone what hangs.
    ~FileLoader() override;

    /// \p viewer wants \p wishes from now on and nothing else (see LoadDesk).
    void Want(LoadDesk::Viewer viewer, std::vector<LoadWish> wishes);
    /// It wants nothing any more.
    void Leave(LoadDesk::Viewer viewer) { Want(viewer, {}); }
    /// What is in hand under \p key, or null; \p What is the kind of result that its work has.
    template <class What>
    std::shared_ptr<const What> InHand(const LoadKey& key)
    {
        return std::static_pointer_cast<const What>(Find(key));
    }
    /// Lets go of all that was read of \p place, which is closed.
    void Forget(const void* place);

    void SetBudget(std::size_t bytes);
    std::size_t BytesInHand() const;
    /// How many pixels a picture may have that is kept whole: a page of them fits into the budget.
    long long MostPixels() const;
    /// All that is wanted has been read and told.
    bool IsIdle() const;

    /// Ends it for good. True when nothing is being read any more; false when that isn't so after
    /// \p patience: then the program must end without its statics being destroyed.
    bool Stop(std::chrono::milliseconds patience);

signals:
    /// Something new is in hand, which somebody wants; nothing is when there is no room for it.
    void Arrived(const LoadKey& key);

private:
    struct Shared;

    static void Run(const std::shared_ptr<Shared>& shared, LoadDesk::Task task);
    LoadedPtr Find(const LoadKey& key);
    void Deliver();
    void Pump();

    std::shared_ptr<Shared> shared;
    QThreadPool* pool;
    /// Nothing tells of a task that it is overdue.
    QTimer overdueTimer;
};
