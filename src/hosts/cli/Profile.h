#pragma once

#include "platform/text/Text.h"

#include <functional>

/// Lets the commands read the user's settings in the file \p path. What they set on the way, as
/// every opening of a delivery does, lasts as long as the run; only SaveInProfile() keeps it.
void UseProfile(const CString& path);

/// Runs \p save, which saves settings, for good and as one write to all other programs. False when
/// \p save says so or the file could not be written.
bool SaveInProfile(const std::function<bool()>& save);
