#pragma once

#include "document/ToviData.h"

#include <memory>
#include <optional>

class CDocument;

/// A delivery as far as it could be opened.
struct OpenedDelivery
{
    /// Null when there was nothing to hold.
    std::unique_ptr<ToviData> document;
    PhotoXMLType family = PhotoXMLMlit;
    /// The folder that the user named, and that of PHOTO.XML, which is it or beneath it.
    CString folder;
    CString photoFolder;
    /// Why it can't be used, in one sentence that says what to do; empty when it can.
    CString problem;

    bool IsLoaded() const { return document && document->GetErrorType() == ReadErrNone; }
};

/// Opens the delivery in the folder \p path, or in one beneath it, for \p host, with the family
/// that \p family gives or else the delivery tells. How far the load has come is told to the user
/// interface. \p familyHint says, as part of a sentence, where the user chooses the family.
TOVI_EXPORT OpenedDelivery OpenDelivery(CDocument& host, const CString& path,
                                        std::optional<PhotoXMLType> family,
                                        const CString& familyHint);
