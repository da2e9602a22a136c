#pragma once

#include "extraction/ExtractionConditions.h"
#include "platform/text/Export.h"

/// What happens to the extraction window when extraction ends without it.
enum CancelExt : int
{
    /// Its button goes off.
    CancelExtButton = 0,
    /// It forgets its conditions and its document, too.
    CancelExtReset = 1
};

/// The window that holds the conditions of the extraction, as the document knows it.
class TOVI_EXPORT ToviExtractionDlg
{
public:
    virtual ~ToviExtractionDlg() = default;

    virtual const ExtractionConditions& GetConditions() const = 0;
    /// Tells the window that extraction is off now.
    virtual void CancelExtraction(CancelExt value) = 0;
};
