#pragma once

#include "imagefacts/ToviImageCheckCommon.h"
#include "photos/ToviPhoto.h"

#include <mutex>

/// The tamper check (画像加工検知) by the verifiers of some types (see CameraType), for any thread:
/// of two that ask at once one waits, since nobody knows what an outside party's library bears.
class TOVI_EXPORT TamperCheck
{
public:
    explicit TamperCheck(const CWordArray& types) { chain.SetCheckCameraType(types); }

    /// What the verifiers say of the file \p path; EditCheckUnknown for an empty one.
    ToviPhoto::EditJPEGCheckResult Check(const CString& path);

private:
    std::mutex busy;
    ToviImageCheckCommon chain{nullptr};
};
