#pragma once

#include "loading/PhotoXMLType.h"
#include "platform/Text.h"

/// The folder of PHOTO.XML for the folder \p path that a user names: itself, its PHOTO/, or PHOTO/
/// in a wrapper folder such as DISK1/. Empty when there is none.
TOVI_EXPORT CString FindPhotoFolder(const CString& path);

/// The family whose standard the PHOTO.XML in \p photoFolder follows, as far as the delivery tells:
/// the one whose kinds know its DTD; where several do, the index file above it and 適用要領基準
/// decide; in doubt 国交省.
TOVI_EXPORT PhotoXMLType GuessFamily(const CString& photoFolder);
