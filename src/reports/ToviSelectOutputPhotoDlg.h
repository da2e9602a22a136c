#pragma once

#include "platform/text/Export.h"

/// Asks whether a photograph is saved as it was corrected on the screen or as it was delivered.
class TOVI_EXPORT ToviSelectOutputPhotoDlg
{
public:
    /// False when the user gave up, or nobody can be asked.
    bool DoModal();
    /// True, also at first, for the corrected picture.
    bool IsSelectedWorkedPhotoMode() const { return workedPhoto; }

private:
    bool workedPhoto = true;
};
