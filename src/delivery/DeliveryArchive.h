#pragma once

#include "platform/text/Text.h"

/// A delivery that came as an archive.
struct UnpackedDelivery
{
    /// A folder of this run, which goes with it: what of the archive belongs to the delivery stands
    /// there and below. Empty when there is a problem.
    CString folder;
    /// Why it can't be opened, in a sentence that says what to do.
    CString problem;
};

/// Unpacks the index file, the folder PHOTO and what stands beside them from the ZIP file or ISO
/// image \p path. How far it has come is told to the user interface.
UnpackedDelivery UnpackDelivery(const CString& path);
