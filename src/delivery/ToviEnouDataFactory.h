#pragma once

#include "delivery/ToviDataFactory.h"

/// Reads electronic-delivery data: the folder of a PHOTO.XML becomes a document.
class TOVI_EXPORT ToviEnouDataFactory : public ToviDataFactory
{
public:
    /// Why the last load failed, as the second half of a Japanese sentence about PHOTO.XML; empty
    /// when it did not.
    const CString& GetProblem() const { return problem; }

    /// Makes the copy of an index file that a browser shows, see MakeIndexCopy.
    CString GetNewIndexPath(const CString& indexPath, const CString& stylesheetPath);

    /// Gathers the delivery that is open as \p opened from its discs, beginning with \p path, the
    /// folder of PHOTO.XML (see MediaCombine::Run). True when the run ended normally, also when the
    /// user gave up with files still missing; false, after a message, when it failed, and without
    /// one when the user has cancelled the copying, as IsCombineCancelled() then tells.
    bool StartCombineProc(CString path, ToviData* opened, bool rebuildPaths);
    bool IsCombineCancelled() const { return combineCancelled; }
    /// Removes what StartCombineProc has copied to the local disk, also in an earlier run of the
    /// program. A delivery that was opened from there is gone with it.
    void DeleteTempData();
    /// The folder from which StartCombineProc opened the delivery in the end.
    CString GetDataFolderPath() { return dataFolderPath; }

protected:
    ToviData* OnNewDocumentInstance(CDocument* host) override;
    bool OnLoad(ToviLoadCallback callback, void* arg) override;

private:
    CString problem;
    CString dataFolderPath;
    bool combineCancelled = false;
};
