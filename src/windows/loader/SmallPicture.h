#pragma once

#include "platform/text/Export.h"

#include <QImage>

class ToviData;

/// A picture that stands for the delivery of \p document: its selected photograph or the first one
/// on show, as large as fits into \p room. Null unless its thumbnail is in memory: no file is read.
TOVI_EXPORT QImage SmallPictureOf(ToviData& document, const QSize& room);
