#pragma once

#include "platform/text/Text.h"

/// Asks for the next disc of a delivery that is spread over several, showing which files are still
/// missing.
class TOVI_EXPORT OpenNextDataDlg
{
public:
    /// The question starts at \p lastFolder.
    OpenNextDataDlg(CString lastFolder, CStringArray missingNames);

    /// Asks until a folder with a PHOTO.XML is named, which GetFolder() then is. False when the
    /// user gave up, or nobody can be asked.
    bool DoModal();
    const CString& GetFolder() const { return folder; }

private:
    CString message;
    CString folder;
    CString listLabel;
    CStringArray names;
};
