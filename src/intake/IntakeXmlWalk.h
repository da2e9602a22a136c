#pragma once

#include "intake/IntakeDelivery.h"

/// Goes through the elements of the PHOTO.XML at \p path beside the definitions \p def. \p photos
/// is the number of photographs that were read of it: oddities are told by photo indexes, which
/// need each 写真情報 to be one.
IntakeXml WalkPhotoXml(const CString& path, const ToviItemDef& def, int photos);
