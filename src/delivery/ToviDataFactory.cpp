#include "delivery/ToviDataFactory.h"

#include "delivery/ToviData.h"

ToviData* ToviDataFactory::Create(CDocument* host, const char* path, PhotoXMLType type,
                                  ToviLoadCallback callback, void* arg)
{
    srcPath = path;
    xmlType = type;
    document = OnNewDocumentInstance(host);
    if (document == nullptr || document->GetErrorType() != ReadErrNone || async) return document;
    try {
        if (OnLoad(callback, arg)) return document;
    } catch (...) {
        // Unbalanced definitions end the load in an exception, and nobody else knows the document.
        delete document;
        document = nullptr;
        throw;
    }
    delete document;
    document = nullptr;
    return nullptr;
}

bool ToviDataFactory::Load(ToviLoadCallback callback, void* arg)
{
    return async && document != nullptr && OnLoad(callback, arg);
}

ToviData* ToviDataFactory::OnNewDocumentInstance(CDocument* host)
{
    return new ToviData(host, "", PhotoXMLMlit);
}

bool ToviDataFactory::OnLoad(ToviLoadCallback callback, void* arg)
{
    return document != nullptr && OnProgress(callback, "", arg);
}

bool ToviDataFactory::OnProgress(ToviLoadCallback callback, const char* text, void* arg)
{
    return callback != nullptr && callback(this, document, text, arg);
}
