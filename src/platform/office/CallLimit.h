#pragma once

#include "platform/office/OfficeProcess.h"

#include <thread>

/// Bounds the time of calls to an office in its lifetime: one that no longer answers is killed,
/// which makes the call fail.
class CallLimit
{
public:
    explicit CallLimit(const OfficeProcess& office);

private:
    std::jthread watch;
};
