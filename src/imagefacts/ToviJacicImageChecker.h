#pragma once

#include "imagefacts/ToviCheckProcessor.h"
#include "platform/files/DynamicLibrary.h"

/// Asks the public-works body's hash checker, a library in the folder of the program. It judges
/// every file, SVG photographs by a function of their own.
class TOVI_EXPORT ToviJacicImageChecker : public ToviCheckProcessor
{
public:
    /// The name of the library's file without its ending.
    static constexpr const char* libraryName = "JACICCHS";

    /// Looks for the library, and remembers for all checkers where it was found.
    bool IsEnableDLL() override;
    /// Loads the library unless that was done. False when it isn't there or is no library.
    bool Initiate() override;
    void Terminate() override { library = DynamicLibrary(); }
    bool IsTarget(const char*) override { return true; }
    CheckStatus Check(const char* path) override;

private:
    CheckStatus CheckJ(const CString& path) const;
    CheckStatus CheckS(const CString& path) const;

    static CString m_pathDllS;

    DynamicLibrary library;
};
