#pragma once

#include "platform/HostServices.h"
#include "platform/MemoryProfileStore.h"
#include "platform/ScriptedUserInterface.h"

/// A host for a test's life: a profile in memory, a scripted user, and the folder of the test
/// program as that of the application, where the build has put the installed data.
struct TestHost
{
    TestHost() { InstallHostServices({&user, &profile, "Tovi", RunningProgramPath()}); }
    ~TestHost() { InstallHostServices({}); }
    TestHost(const TestHost&) = delete;
    TestHost& operator=(const TestHost&) = delete;

    ScriptedUserInterface user;
    MemoryProfileStore profile;
};
