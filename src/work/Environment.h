#pragma once

#include "platform/files/MountTable.h"
#include "platform/files/UserFolders.h"
#include "platform/store/Registry.h"

#include <functional>

/// What the questions about work folders and drives ask of the machine.
struct Environment
{
    Registry registry;
    UserFolders folders;
    /// The class of the drive that holds an absolute path.
    std::function<DriveType(const CString&)> driveTypeOf;
};

/// The environment of the running program; the machine's own if no other was set.
Environment& GetEnvironment();

/// Puts \p environment in place of the one before.
void SetEnvironment(const Environment& environment);
