#pragma once

#include "platform/text/Text.h"

#include <functional>

class ToviData;
class ToviPhoto;

/// Saves the photographs on show: one under a name that the user chooses, more or none into a
/// folder. What came of it is told in a message.
TOVI_EXPORT void OutputShownPhotos(ToviData& document);

/// Saves the first photograph on show under a chosen name.
TOVI_EXPORT void OutputOnePhoto(ToviData& document);

/// Saves all photographs on show into a chosen folder that has no file of their names.
TOVI_EXPORT void OutputAllPhoto(ToviData& document);

/// Lets the user choose where \p name is saved, has \p save make the file at the path that it is
/// given, tells what came of it, and remembers the folder. \p save returns what is wrong in a
/// sentence, empty when nothing is.
void SaveUnderChosenName(const ToviData& document, const CString& name, bool isSvg,
                         const std::function<CString(const CString&)>& save);

/// Saves the delivered file of \p photo at \p path. As such a function.
CString SaveDelivered(ToviPhoto& photo, const CString& path);
