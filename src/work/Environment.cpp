#include "work/Environment.h"

Environment& GetEnvironment()
{
    static Environment environment{Registry::OfThisMachine(), CurrentUserFolders(), DriveTypeOf};
    return environment;
}

void SetEnvironment(const Environment& environment)
{
    GetEnvironment() = environment;
}
