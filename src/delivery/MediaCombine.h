#pragma once

#include "platform/text/Text.h"

#include <memory>

class FolderClaim;
class ToviData;

/// The place on the local disk where the discs of one delivery are brought together.
struct CombineArea
{
    /// Index file and DTDs go here; empty when there is no work folder.
    CString folder;
    /// The content of the discs' folders of PHOTO.XML.
    CString photoFolder;

    /// Removes the area with all that is in it, unless a delivery is open from there.
    void Delete() const;
};

/// The area of this user.
CombineArea FindCombineArea();

/// True when a combine that begins with the folder \p path fills the area anew, so that it is to be
/// wiped first: what an earlier delivery has left would pass for photographs of this one.
TOVI_EXPORT bool StartsCombineArea(const CString& path);

/// Gathers a delivery that is spread over several discs: each is copied into the area, and the
/// document pointed there; what lies on a hard disk or a share is used in its place. The user is
/// asked for the next one until no file is missing or he gives up.
class MediaCombine
{
public:
    /// \p opened outlives the object.
    explicit MediaCombine(ToviData& opened);

    /// Begins with the folder \p path of a PHOTO.XML. With \p rebuildPaths the paths that the
    /// photographs have on this first disc are thrown away once the copy stands. False, after a
    /// message, for a path on no known kind of drive, an area that another program has open, and a
    /// copy that failed, and without one for a copy that the user has cancelled; what was copied is
    /// then gone.
    bool Run(CString path, bool rebuildPaths);
    bool IsCancelled() const { return cancelled; }

    /// The folder from which the delivery was opened in the end.
    const CString& DataFolderPath() const { return dataFolder; }

private:
    /// Takes up one disc or folder.
    bool Take(const CString& path, bool rebuildPaths);
    /// Keeps other combines, of other programs too, from the area as long as the document lives.
    /// False, after a message, when another one has it.
    bool ClaimArea();
    bool CopyDisc(const CString& source);
    bool CopyFilesAbove(const CString& source) const;
    bool CopyPhotographs(const CString& source);
    void PointDocumentAtData(bool forgetPaths);
    CStringArray MissingNames() const;

    ToviData& document;
    CombineArea area;
    std::shared_ptr<const FolderClaim> claim;
    CString dataFolder;
    bool cancelled = false;
};
