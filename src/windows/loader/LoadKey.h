#pragma once

#include "platform/text/Text.h"

#include <QRect>

#include <cstddef>
#include <functional>
#include <memory>

/// What is read of a file.
enum class LoadKind
{
    Picture,
    /// A part of a picture that is too large to be kept whole.
    Part,
    /// A reference drawing.
    Drawing,
    /// What its Exif data and the file system say.
    Facts,
    /// A look at the files of some photographs.
    Survey,
    /// The tamper check. One at a time is at work.
    Check
};

/// One thing to be read.
struct LoadKey
{
    /// The delivery, or the verifiers: what is read for another one is another thing. Compared by
    /// its place in memory; null for a loose file.
    std::shared_ptr<const void> place;
    CString path;
    LoadKind kind = LoadKind::Picture;
    /// Of a picture: how many pixels its longer side has at most; 0 for the full picture.
    int side = 0;
    /// Of a drawing: which of its sheets, from 0 on.
    int sheet = 0;
    /// Of a part: its place in the whole picture.
    QRect part = {};

    bool operator==(const LoadKey&) const = default;
};

template <>
struct std::hash<LoadKey>
{
    std::size_t operator()(const LoadKey& key) const
    {
        const auto rest = (static_cast<std::size_t>(key.side) << 8) +
                          (static_cast<std::size_t>(key.sheet) << 4) +
                          static_cast<std::size_t>(key.kind) + qHash(key.part);
        return std::hash<CString>()(key.path) ^ (std::hash<const void*>()(key.place.get()) << 1) ^
               (rest * 0x9E3779B97F4A7C15u);
    }
};

enum class FileState
{
    Missing,
    /// It is there and isn't one that may be read.
    Outside,
    Readable
};

/// What has been read.
struct Loaded
{
    virtual ~Loaded() = default;

    /// False when the file couldn't be read, or isn't what it should be.
    bool ok = false;
    FileState file = FileState::Missing;
    /// The room that it takes.
    std::size_t bytes = 0;
    /// Tells this state of the file from all others.
    CString stamp;
};
using LoadedPtr = std::shared_ptr<const Loaded>;

/// Reads, on some thread. \p known is the stamp of what is in hand already, or empty; a null answer
/// means that it still holds. Throws nothing.
using LoadWork = std::function<LoadedPtr(const CString& known)>;

/// How soon something is wanted, the soonest first.
enum class Urgency
{
    /// It is looked at.
    Visible,
    /// The user probably turns to it next.
    Next,
    Previous,
    /// When there is nothing else to do.
    Idle
};

struct LoadWish
{
    LoadKey key;
    Urgency urgency = Urgency::Visible;
    LoadWork work;
};
