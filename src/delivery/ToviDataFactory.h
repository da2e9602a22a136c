#pragma once

#include "kinds/PhotoXMLType.h"
#include "platform/host/CDocument.h"
#include "platform/host/CObject.h"
#include "platform/text/Text.h"

class ToviData;
class ToviDataFactory;

/// Told by the host to hear of the load's progress. It may keep a display alive but must not touch
/// the document. \p text is what has been read so far, in words; \p arg is the host's own value.
using ToviLoadCallback = bool (*)(const ToviDataFactory* factory, const ToviData* document,
                                  const char* text, void* arg);

/// The way in: makes a document and loads it. This base makes an empty one; ToviEnouDataFactory is
/// what hosts use. A factory may be destroyed as soon as Create or Load has returned.
class TOVI_EXPORT ToviDataFactory : public CObject
{
public:
    /// Makes the document of the folder \p path and, unless Async, loads it. \p host and \p
    /// callback may be null.
    ///
    /// Null: PHOTO.XML is missing, not well formed, or lacks what its kind demands. A document
    /// whose GetErrorType() isn't ReadErrNone holds no photographs and tells why. The document is
    /// the caller's to delete.
    ToviData* Create(CDocument* host, const char* path, PhotoXMLType type,
                     ToviLoadCallback callback, void* arg);

    /// Makes Create return the document unloaded, for a later Load.
    void Async(bool asynchronous) { async = asynchronous; }
    bool Async() const { return async; }
    /// The second half of an asynchronous open. False without Async, without a document, and when
    /// the load failed: the caller then deletes the document.
    bool Load(ToviLoadCallback callback, void* arg);

    /// Null.
    virtual const char* GetInfoPath() const { return nullptr; }

protected:
    ToviData* GetDocument() const { return document; }
    const char* SrcPath() const { return srcPath.c_str(); }
    PhotoXMLType GetXMLType() const { return xmlType; }

    virtual ToviData* OnNewDocumentInstance(CDocument* host);
    virtual bool OnLoad(ToviLoadCallback callback, void* arg);
    virtual bool OnProgress(ToviLoadCallback callback, const char* text, void* arg);

private:
    ToviData* document = nullptr;
    CString srcPath;
    bool async = false;
    PhotoXMLType xmlType = PhotoXMLMlit;
};
