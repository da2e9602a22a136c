#pragma once

#include "platform/text/Text.h"

struct Environment;

/// Finds the work folder, in which all temporary files go, and puts its full path without a
/// trailing separator into \p path. The folder itself need not exist; who uses it creates it.
/// False, with \p path left alone, when there is no place for it. A location that only the
/// machine's registry names is copied into the user's.
TOVI_EXPORT bool GetWorkFolder(CString& path);

/// The same in a given environment.
bool GetWorkFolder(Environment& environment, CString& path);

/// The suite folder: our part of the work folder, with a trailing separator. Empty when there is no
/// work folder.
TOVI_EXPORT CString SuiteFolder();

/// Copies the suite folder and a closing zero into \p buffer of \p size bytes and returns its
/// length in bytes. When \p size is too small, nothing is copied and the size that is needed
/// returned; 0 when \p buffer is null or there is no work folder.
TOVI_EXPORT unsigned int GetSuiteFolder(unsigned int size, char* buffer);
