#pragma once

#include "imagefacts/ToviCheckProcessor.h"

#include <algorithm>
#include <span>

/// What a number that a verifier returns means.
struct VerifierAnswer
{
    int code;
    ToviCheckProcessor::CheckStatus status;
};

/// The meaning of \p code in \p known; StatusError when it isn't there.
inline ToviCheckProcessor::CheckStatus MeaningOf(int code, std::span<const VerifierAnswer> known)
{
    const auto found =
        std::find_if(known.begin(), known.end(),
                     [code](const VerifierAnswer& answer) { return answer.code == code; });
    return found == known.end() ? ToviCheckProcessor::StatusError : found->status;
}
