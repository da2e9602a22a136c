#pragma once

#include "platform/store/SectionFile.h"

#include <cstdint>
#include <functional>
#include <optional>

/// A section file that several running programs use at once. Reading follows what others write;
/// each write puts its one entry into the file as it stands at that moment, so that programs don't
/// destroy each other's entries. Whoever writes holds the lock of the file beside it whose name has
/// ".lock" added.
class SharedSectionFile
{
public:
    /// \p path is the full path; an empty one stands for a file that can't be kept. Nothing is
    /// opened before the first use.
    explicit SharedSectionFile(CString path);

    /// Reads the file when it isn't what was read last, but never amid WriteTogether(). True when
    /// it was read.
    bool Refresh();

    /// True when the file last read was damaged (see SectionFile::Parse).
    bool IsDamaged() const { return state == State::Damaged; }

    /// Gives a damaged file the name DamagedPath() and goes on without its entries. False when it
    /// could not be renamed: it stays where it is then, and Write() fails as long as it does. A
    /// file that is set aside by Write() instead hands its readable entries on.
    bool SetAside();
    CString DamagedPath() const { return path + ".damaged"; }

    /// The value of an entry as last read or written here, or null; stands until the next call of
    /// another operation.
    const CString* Find(const CString& section, const CString& entry) const;
    /// The names of all sections as last read or written here.
    CStringArray SectionNames() const;

    /// Writes one entry; the folder of the file is made when it is missing. An entry that has this
    /// value is not written again. False when the file could not be written: the value stays here
    /// for the life of this object and goes into the file with the next write that succeeds.
    bool Write(const CString& section, const CString& entry, const CString& value);

    /// Runs \p writes while no other program writes: it finds the file as it stands, and its calls
    /// of Write() go into the file as one when it ends. False when \p writes says so or, as in
    /// Write(), the file could not be written.
    bool WriteTogether(const std::function<bool()>& writes);

private:
    enum class State
    {
        NotRead,
        Sound,
        Damaged,
        Unreadable
    };

    /// What tells one version of the file from the next.
    struct Stamp
    {
        std::uint64_t device;
        std::uint64_t node;
        std::uint64_t size;
        std::int64_t changedSeconds;
        std::int64_t changedNanoseconds;
        bool operator==(const Stamp&) const = default;
    };

    std::optional<Stamp> StampOfFile() const;
    void Load();
    bool MoveAway();
    bool SaveUnsaved(bool mayWrite);

    CString path;
    State state = State::NotRead;
    /// Nothing when there was no file.
    std::optional<Stamp> stamp;
    /// The damaged file that could not be set aside and whose entries don't count.
    std::optional<Stamp> abandoned;
    SectionFile content;
    /// Entries that are not in the file yet.
    SectionFile unsaved;
    bool isWriting = false;
};
