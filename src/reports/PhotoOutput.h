#pragma once

#include "platform/text/Text.h"

#include <functional>

class ToviData;

/// Saves the photographs on show: one under a name that the user chooses, more or none into a
/// folder. What came of it is told in a message.
TOVI_EXPORT void OutputShownPhotos(ToviData& document);

/// Saves the first photograph on show under a chosen name.
TOVI_EXPORT void OutputOnePhoto(ToviData& document);

/// Saves all photographs on show into a chosen folder that has no file of their names.
TOVI_EXPORT void OutputAllPhoto(ToviData& document);

/// Lets the user choose where \p name is saved, has \p save make the file at the path that it is
/// given, tells whether it did, and remembers the folder.
void SaveUnderChosenName(const ToviData& document, const CString& name, bool isSvg,
                         const std::function<bool(const CString&)>& save);
