#pragma once

#include "platform/text/Export.h"

class QWidget;

/// The number by which others tell \p widget apart from its siblings; 0 until it has one.
TOVI_EXPORT int WindowId(const QWidget* widget);

/// Gives \p widget the number \p id.
TOVI_EXPORT void SetWindowId(QWidget* widget, int id);
