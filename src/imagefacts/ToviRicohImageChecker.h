#pragma once

#include "imagefacts/RicohVerifier.h"
#include "imagefacts/ToviCheckProcessor.h"

/// Asks the camera maker's verifier about the photographs of its own cameras. It stands in the
/// chain even where the verifier isn't installed: its answer is StatusError then.
class TOVI_EXPORT ToviRicohImageChecker : public ToviCheckProcessor
{
public:
    /// True when the Exif data name one of the cameras that sign their pictures.
    bool IsTarget(const char* path) override;
    bool IsContinueOutsideTarget() override { return false; }
    CheckStatus Check(const char* path) override;

private:
    RicohVerifier verifier;
};
