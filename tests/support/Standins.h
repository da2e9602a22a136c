#pragma once

#include "platform/host/HostServices.h"
#include "support/TempFolder.h"

#include <cstdlib>

/// Stand-ins for the verifiers' libraries (see tests/standins/), and what was asked of them.
class Standins
{
public:
    Standins() { setenv("TOVI_STANDIN_CALLS", notes.Path("calls").c_str(), 1); }
    Standins(const Standins&) = delete;
    Standins& operator=(const Standins&) = delete;
    ~Standins() { unsetenv("TOVI_STANDIN_CALLS"); }

    /// Puts the library \p name into \p folder as \p fileName. Of the kind "lacking" it has not all
    /// its functions.
    static void Install(const CString& name, const CString& folder, const CString& fileName,
                        const CString& kind = "whole")
    {
        const CString program = RunningProgramPath();
        const CString built = program.substr(0, program.rfind('/')) + "/../standins/";
        std::filesystem::create_directories(folder);
        std::filesystem::copy_file(built + kind + '/' + name + ".so", folder + '/' + fileName);
    }
    static void Install(const CString& name, const CString& folder)
    {
        Install(name, folder, name + ".so");
    }

    /// The calls since this was last asked, a line for each: the function and what it got.
    CString TakeCalls() const
    {
        const CString calls = notes.Read("calls");
        std::filesystem::remove(notes.Path("calls"));
        return calls;
    }

private:
    TempFolder notes;
};
