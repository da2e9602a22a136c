#pragma once

#include "platform/text/Text.h"
#include "platform/xml/DoxDocument.h"
#include "platform/xml/DoxIterator.h"

#include <memory>

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
    /// Seeds the tree from a template in the work folder, since a tree can't be given a document
    /// type line otherwise. When that fails a message says so, and there is no tree.
    bool Make();

    DoxDocument document;
    std::unique_ptr<DoxIterator> iterator;
};
