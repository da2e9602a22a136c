#pragma once

#include "platform/host/HostServices.h"

/// Puts another user in the place of the host's for as long as it lives.
class UserInPlace
{
public:
    explicit UserInPlace(UserInterface& user) : before(GetHostServices())
    {
        HostServices services = before;
        services.userInterface = &user;
        InstallHostServices(services);
    }
    UserInPlace(const UserInPlace&) = delete;
    UserInPlace& operator=(const UserInPlace&) = delete;
    ~UserInPlace() { InstallHostServices(before); }

private:
    HostServices before;
};
