#pragma once

#include "platform/files/MibCopy.h"
#include "platform/text/Text.h"

#include <cstdint>
#include <unordered_set>
#include <vector>

class ToviData;
class ToviPhoto;

/// The photographs of the current array of a document on their way into one folder, byte for byte.
///
/// The target of a photograph is made from that of the one before, by replacing its name in the
/// whole text of the path by the next name: a folder whose path holds a photograph's name changes
/// on the way. A name that is empty or has a separator in it takes no part. IsFree() goes first and
/// CopyAll() goes on with the path where it stopped.
class TOVI_EXPORT PhotoExport
{
public:
    /// \p shown outlives the object and keeps its current array.
    explicit PhotoExport(ToviData& shown);

    int Count() const { return static_cast<int>(photos.size()); }
    /// True when no photograph has a file in its place in \p folder yet. The first one found ends
    /// the look, and its path is then Conflict().
    bool IsFree(const CString& folder);
    const CString& Conflict() const { return target; }

    struct Failure
    {
        CString name;
        /// In the order of PHOTO.XML.
        int index;
        /// The name; of a photograph without one, its numbers in words.
        CString identity;
        CopyFailure reason;
    };
    struct Outcome
    {
        int copied = 0;
        std::uint64_t bytes = 0;
        /// One for each photograph that was tried and not copied.
        std::vector<Failure> failures;
        bool cancelled = false;
    };
    /// Copies all photographs under a progress window, after IsFree() has said yes. One that can't
    /// be copied is left out.
    Outcome CopyAll();

private:
    struct Source
    {
        CString name;
        int index;
        ToviPhoto* photo;
    };

    void MoveTo(const CString& name);
    CString IdentityOf(const Source& photo) const;
    CopyFailure Copy(const Source& photo) const;

    ToviData& document;
    std::vector<Source> photos;
    CString chosenFolder;
    CString target;
    /// The photograph's name that stands in the target now.
    CString targetName;
    std::unordered_set<CString> written;
};
