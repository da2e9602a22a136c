#pragma once

#include "platform/text/Export.h"

/// The polymorphic base of everything that travels as the object of an update.
class TOVI_EXPORT CObject
{
public:
    virtual ~CObject() = default;
};
