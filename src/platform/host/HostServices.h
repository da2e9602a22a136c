#pragma once

#include "platform/host/ProfileStore.h"
#include "platform/host/UserInterface.h"

/// What a host gives the library at its start. The pointers are the host's and outlive every use of
/// the library; a null one means that the service is not there.
struct HostServices
{
    UserInterface* userInterface = nullptr;
    ProfileStore* profile = nullptr;
    /// The caption of message boxes.
    CString applicationName;
    /// Full path of the running program; the data files are searched in its folder. Empty when it
    /// can't be had.
    CString programPath;
};

/// Installs the host's services in place of those before.
TOVI_EXPORT void InstallHostServices(const HostServices& services);

/// The services that are installed; all empty before the first call of InstallHostServices.
TOVI_EXPORT const HostServices& GetHostServices();

/// The path of the running program as the system tells it, or empty.
TOVI_EXPORT CString RunningProgramPath();
