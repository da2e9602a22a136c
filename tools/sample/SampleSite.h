#pragma once

#include "sample/SampleBoard.h"

/// Paints the construction site of \p scene in \p size, with the blackboard standing in it when
/// \p withBoard is set.
QImage PaintSite(const SampleScene& scene, QSize size, bool withBoard);
