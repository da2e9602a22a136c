#pragma once

#include "platform/text/Text.h"

/// A text that tells the content of the file \p path from every other content; empty when there is
/// no file that could be read. It is taken from all of its bytes: size, time and number of two
/// files that were saved within one tick of the clock can be the same.
TOVI_EXPORT CString FileVersion(const CString& path);
