#pragma once

#include "platform/Text.h"
#include "platform/UserInterface.h"

/// Tells the user that the files \p pattern (a folder with a pattern of names) can't be listed.
void TellNotListed(const CString& pattern, MessageIcon icon);
