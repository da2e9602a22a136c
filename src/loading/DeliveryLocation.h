#pragma once

#include "kinds/PhotoXMLType.h"
#include "platform/text/Text.h"

#include <map>

/// The folders of PHOTO.XML that a user can mean by \p path. For a folder these are itself, else
/// its PHOTO/, else PHOTO/ in the wrapper folders in it; the discs DISK1/, DISK2/ and so on with
/// the same PHOTO.XML, byte for byte, are one delivery, for which the first disc stands. For a
/// PHOTO.XML it is the folder that it stands in, for an index file (INDEX_*.XML, PHOTO_*.XML)
/// PHOTO/ beside it, else the folder that it stands in. There are none for whatever else. Where
/// there are several, only the user can tell which one is meant.
TOVI_EXPORT CStringArray FindPhotoFolders(const CString& path);

/// The folders of PHOTO.XML on the discs of the delivery with PHOTO.XML in \p photoFolder, by the
/// number of the disc: those beside it in DISK1/, DISK2/ and so on with the same PHOTO.XML, byte
/// for byte. Nothing where it doesn't stand in such a folder itself.
TOVI_EXPORT std::map<int, CString> FindDiscs(const CString& photoFolder);

/// The family whose standard the PHOTO.XML in \p photoFolder follows, as far as the delivery tells:
/// the one whose kinds know its DTD; where several do, the index file above it and 適用要領基準
/// decide; in doubt 国交省.
TOVI_EXPORT PhotoXMLType GuessFamily(const CString& photoFolder);
