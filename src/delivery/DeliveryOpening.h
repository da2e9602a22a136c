#pragma once

#include "delivery/ToviData.h"

#include <memory>
#include <optional>

class CDocument;

/// A delivery as far as it could be opened.
struct OpenedDelivery
{
    /// Null when there was nothing to hold.
    std::unique_ptr<ToviData> document;
    PhotoXMLType family = PhotoXMLMlit;
    /// The folder that the user named, or that stands for the file, and that of PHOTO.XML, which is
    /// it or beneath it.
    CString folder;
    CString photoFolder;
    /// Why it can't be used, in one sentence that says what to do; empty when it can.
    CString problem;
    /// What has to be known of one that can: photographs in its PHOTO.XML that could not be read,
    /// in a sentence as above; empty when there is nothing.
    CString notice;

    bool IsLoaded() const { return document && document->GetErrorType() == ReadErrNone; }
};

/// The name that tells the delivery with PHOTO.XML in \p photoFolder from others: that of the
/// folder above.
TOVI_EXPORT CString DeliveryFolderName(const CString& photoFolder);

/// Why \p path, which leads to \p photoFolders (see FindPhotoFolders), tells no delivery, in a
/// sentence as above.
TOVI_EXPORT CString WhyNoDelivery(const CString& path, const CStringArray& photoFolders);

/// Opens the delivery that \p path leads to (see FindPhotoFolders), if it is one, for \p host, with
/// the family that \p family gives or else the delivery tells. How far the load has come is told to
/// the user interface. A ZIP file or an ISO image is unpacked into a folder of this run first. \p
/// familyHint says, as part of a sentence, where the user chooses the
/// family.
TOVI_EXPORT OpenedDelivery OpenDelivery(CDocument& host, const CString& path,
                                        std::optional<PhotoXMLType> family,
                                        const CString& familyHint);
