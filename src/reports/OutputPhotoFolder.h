#pragma once

#include "platform/text/Text.h"

class ToviData;

/// The folder that a photograph was saved into last during this run of the program; empty at the
/// start.
TOVI_EXPORT CString GetOutputPhotoFolder();
TOVI_EXPORT void SetOutputPhotoFolderPath(const CString& folder);

/// True when \p folder lies in a delivered folder, where nothing is ever written (see
/// platform/files/DeliveredFolder.h). Of this delivery that is all below the folder of PHOTO.XML,
/// and the one above when the index file stands there, on each disc that it came on.
TOVI_EXPORT bool IsDeliveryFolder(const ToviData& document, const CString& folder);
