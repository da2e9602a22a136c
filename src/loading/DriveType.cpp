#include "loading/DriveType.h"

#include "loading/Environment.h"

unsigned int ToviGetDriveType(const char* path)
{
    if (path == nullptr || *path != '/') return static_cast<unsigned int>(DriveType::Unknown);
    return static_cast<unsigned int>(GetEnvironment().driveTypeOf(path));
}

int ToviGetUniversalName(const char* /*path*/, CString& /*out*/, bool /*upper*/)
{
    return 0;
}
