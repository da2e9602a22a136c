#include "work/DriveType.h"

#include "work/Environment.h"

unsigned int ToviGetDriveType(const char* path)
{
    if (path == nullptr || *path != '/') return static_cast<unsigned int>(DriveType::Unknown);
    return static_cast<unsigned int>(GetEnvironment().driveTypeOf(path));
}

int ToviGetUniversalName(const char* /*path*/, CString& /*out*/, bool /*upper*/)
{
    return 0;
}

bool IsOnDisc(const CString& path)
{
    const auto drive = static_cast<DriveType>(ToviGetDriveType(path.c_str()));
    return drive == DriveType::Removable || drive == DriveType::Optical;
}
