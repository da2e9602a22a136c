#pragma once

#include "platform/host/UserInterface.h"
#include "platform/text/Text.h"

/// Tells the user that the files \p pattern (a folder with a pattern of names) can't be listed.
void TellNotListed(const CString& pattern, MessageIcon icon);
