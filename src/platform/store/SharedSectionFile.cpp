#include "platform/store/SharedSectionFile.h"

#include "platform/files/AtomicFile.h"
#include "platform/files/DeliveredFolder.h"
#include "platform/files/FileDescriptor.h"
#include "platform/files/MibFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <utility>

namespace
{
/// The right to write, held against all other programs for the life of this object. The lock file
/// is never removed: somebody may be waiting for it.
class WriteLock
{
public:
    explicit WriteLock(const CString& sharedPath)
    {
        if (sharedPath.empty() || IsInDelivery(sharedPath)) return;
        file.Reset(
            open((sharedPath + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666));
        while (file.IsOpen() && !held) {
            held = flock(file.Get(), LOCK_EX) == 0;
            if (!held && errno != EINTR) return;
        }
    }
    bool IsHeld() const { return held; }

private:
    FileDescriptor file;
    bool held = false;
};
} // namespace

SharedSectionFile::SharedSectionFile(CString filePath) : path(std::move(filePath)) {}

bool SharedSectionFile::Refresh()
{
    if (isWriting || (state != State::NotRead && StampOfFile() == stamp)) return false;
    Load();
    return true;
}

bool SharedSectionFile::SetAside()
{
    const WriteLock lock(path);
    bool moved = lock.IsHeld();
    if (moved) {
        // Another program may have been here first and left a sound file.
        Load();
        if (!IsDamaged()) return true;
        moved = MoveAway();
    }
    if (!moved) abandoned = stamp;
    content = {};
    return moved;
}

const CString* SharedSectionFile::Find(const CString& section, const CString& entry) const
{
    const CString* value = unsaved.Find(section, entry);
    return value != nullptr ? value : content.Find(section, entry);
}

CStringArray SharedSectionFile::SectionNames() const
{
    SectionFile all = content;
    all.Merge(unsaved);
    return all.SectionNames();
}

bool SharedSectionFile::Write(const CString& section, const CString& entry, const CString& value)
{
    return WriteTogether([&] {
        unsaved.Set(section, entry, value);
        return true;
    });
}

bool SharedSectionFile::WriteTogether(const std::function<bool()>& writes)
{
    if (isWriting) return writes();
    MibCreateDirectory(std::filesystem::path(path).parent_path().string());
    const WriteLock lock(path);
    // Read in any case: two versions within one tick of the clock can look alike from outside.
    Load();
    isWriting = true;
    const bool wanted = writes();
    isWriting = false;
    return SaveUnsaved(lock.IsHeld()) && wanted;
}

std::optional<SharedSectionFile::Stamp> SharedSectionFile::StampOfFile() const
{
    struct stat facts;
    if (stat(path.c_str(), &facts) != 0) return std::nullopt;
    return Stamp{facts.st_dev, facts.st_ino, static_cast<std::uint64_t>(facts.st_size),
                 facts.st_ctim.tv_sec, facts.st_ctim.tv_nsec};
}

void SharedSectionFile::Load()
{
    content = {};
    state = State::Sound;
    // Taken before the bytes: a file that is replaced in between is read once more, never missed.
    stamp = StampOfFile();
    if (!stamp) return;
    if (stamp->size > SectionFile::maximumSize) {
        state = State::Damaged;
    } else if (const auto bytes = MibReadFile(path, SectionFile::maximumSize)) {
        if (!content.Parse(*bytes)) state = State::Damaged;
        if (stamp == abandoned) content = {};
    } else {
        state = State::Unreadable;
    }
}

bool SharedSectionFile::MoveAway()
{
    if (rename(path.c_str(), DamagedPath().c_str()) != 0) return false;
    state = State::Sound;
    stamp.reset();
    return true;
}

bool SharedSectionFile::SaveUnsaved(bool mayWrite)
{
    SectionFile merged = content;
    merged.Merge(unsaved);
    if (merged != content) {
        if (!mayWrite || state == State::Unreadable || (IsDamaged() && !MoveAway())) return false;
        const CString bytes = merged.ToBytes();
        if (bytes.size() > SectionFile::maximumSize || !WriteFileAtomically(path, bytes))
            return false;
        content = std::move(merged);
        stamp = StampOfFile();
    }
    unsaved = {};
    return true;
}
