#pragma once

#include "imagefacts/ToviCheckProcessor.h"
#include "platform/text/Text.h"

#include <memory>
#include <vector>

/// The chain of verifiers that a photograph goes through (画像加工検知).
class TOVI_EXPORT ToviImageCheckCommon
{
public:
    using CheckStatus = ToviCheckProcessor::CheckStatus;

    /// The types among which the user chooses. The numbers are what is stored.
    enum CameraType : int
    {
        /// The cameras that the maker's verifier knows.
        TypeRicohG800 = 0,
        /// Pictures with an electronic blackboard. The checker is that of TypeRicohG900: the two
        /// differ in name alone.
        TypeBlackboard = 1,
        TypeRicohG900 = 2
    };

    /// Without verifiers. A null \p path leaves the file to SetFile.
    explicit ToviImageCheckCommon(const char* path);
    virtual ~ToviImageCheckCommon() = default;

    /// Makes the chain anew: a verifier for each of \p types (see CameraType), in their order.
    /// Other numbers, and verifiers that can't be had, are left out.
    void SetCheckCameraType(const CWordArray& types);
    /// Sets the file that the next check is about. One that differs from the file before in letter
    /// case alone changes nothing.
    void SetFile(const char* path);
    /// Asks one verifier after the other until one judges the file: StatusUnaltered,
    /// StatusAltered, or a StatusOutsideTarget that is final. Else what the last one that was
    /// asked said; StatusError when none was.
    CheckStatus CheckProcessedImage();

    /// The types in the order in which they are offered; TypeBlackboard for an index of 2 and any
    /// other.
    static CameraType QueryCameraType(int index);
    /// The name under which \p type is offered; empty for a number that is no type.
    static CString QueryCameraName(const CameraType& type);

protected:
    /// For classes with something to do around a check.
    virtual bool Begin() { return true; }
    virtual void End() {}

private:
    CString file;
    std::vector<std::unique_ptr<ToviCheckProcessor>> processors;
};
