#pragma once

#include "kinds/PhotoXMLType.h"
#include "platform/text/Text.h"

#include <optional>

/// One generation of a family's standard.
struct DeliveryKind
{
    /// The DTD name in the DOCTYPE line of PHOTO.XML.
    const char* dtd;
    /// The section of READITEM.XML with its definitions, which names the kind everywhere.
    const char* section;
    /// The generation has the key-photo flag 代表写真.
    bool hasKeyPhoto;
};

/// The kind that the DOCTYPE line of a PHOTO.XML tells for \p family, or null.
TOVI_EXPORT const DeliveryKind* FindDeliveryKind(PhotoXMLType family, const CString& doctypeLine);

/// The line at the front of the file \p xmlPath (see FindHeadLine) that holds "photodata SYSTEM",
/// or empty when none does. Nothing when the file can't be read.
std::optional<CString> ReadDoctypeLine(const CString& xmlPath);
