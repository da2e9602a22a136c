#pragma once

#include "platform/text/Text.h"
#include "platform/xml/DoxDocument.h"
#include "platform/xml/DoxIterator.h"

/// What saving and loading a record share: the file, and a place in its tree.
class ToviXmlManager
{
public:
    ToviXmlManager(const char* recordPath, const char* deliveryRoot)
        : path(recordPath), rootPath(deliveryRoot == nullptr ? "" : deliveryRoot)
    {}
    ToviXmlManager(const ToviXmlManager&) = delete;
    ToviXmlManager& operator=(const ToviXmlManager&) = delete;
    virtual ~ToviXmlManager() = default;

protected:
    /// Puts the iterator on the first element \p tag of the document. False when there is none.
    bool Find(const char* tag);

    CString path;
    CString rootPath;
    /// Not owned here; null without a tree.
    DoxIterator* iterator = nullptr;
};

/// The tree of a record to be written: a declaration and a document type line, without a root yet.
class ToviXmlHeaderManager
{
public:
    ToviXmlHeaderManager();

    DoxDocument document;
    DoxIterator iterator{&document};
};
