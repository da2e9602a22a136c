#pragma once

#include "loading/ToviDataFactory.h"

/// Reads electronic-delivery data: the folder of a PHOTO.XML becomes a document.
class TOVI_EXPORT ToviEnouDataFactory : public ToviDataFactory
{
public:
    /// Why the last load failed, as the second half of a Japanese sentence about PHOTO.XML; empty
    /// when it did not.
    const CString& GetProblem() const { return problem; }

    /// Makes the copy of an index file that a browser shows, see MakeIndexCopy.
    CString GetNewIndexPath(const CString& indexPath, const CString& stylesheetPath);

protected:
    ToviData* OnNewDocumentInstance(CDocument* host) override;
    bool OnLoad(ToviLoadCallback callback, void* arg) override;

private:
    CString problem;
};
