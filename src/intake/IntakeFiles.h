#pragma once

#include "intake/IntakeDelivery.h"

/// What of a delivery lies in folders, for IntakeDelivery.

/// The discs with the delivery, with what is in their folders.
std::vector<IntakeDisc> FindIntakeDiscs(const CString& photoFolder);

/// The index files of \p discs, those alone that are there. A disc whose folder tells no number
/// gets the one in its index file.
std::vector<IntakeIndex> ReadIntakeIndexes(std::vector<IntakeDisc>& discs);

/// The files that the photographs name, and where they are.
std::vector<NamedFile> FindNamedFiles(const IntakeDelivery& delivery);
