#pragma once

#include "platform/text/Text.h"

/// Where \p path leads to several deliveries, has the user choose one, whose folder of PHOTO.XML
/// \p path then is. False when he gives up. Too many to be offered stay as they are.
bool ChooseAmongDeliveries(CString& path);
