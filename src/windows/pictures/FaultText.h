#pragma once

#include "platform/pictures/PictureFault.h"
#include "platform/text/Text.h"

#include <QColor>
#include <QString>

/// What is written where a picture can't be shown.

/// On a ground that no verdict has.
inline constexpr QColor faultColor(255, 233, 205);

/// "ファイルがありません"; empty for no fault.
TOVI_EXPORT QString FaultReason(PictureFault fault);
/// In three lines that the picture can't be shown, the name of the file \p path, and why.
TOVI_EXPORT QString FaultText(PictureFault fault, const CString& path);
