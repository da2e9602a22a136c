#pragma once

#include "platform/host/HostServices.h"
#include "platform/host/ScriptedUserInterface.h"
#include "platform/store/MemoryProfileStore.h"

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
