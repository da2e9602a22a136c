#pragma once

#include "imagefacts/ToviControlValue.h"

#include <memory>

/// The measurements of one photograph, in the order of its text, which the array owns.
class TOVI_EXPORT ToviControlValues : public CArray<std::unique_ptr<ToviControlValue>>
{
public:
    ToviControlValues() = default;
    ToviControlValues(const ToviControlValues&) = delete;
    ToviControlValues& operator=(const ToviControlValues&) = delete;
    virtual ~ToviControlValues() = default;

    /// False when some part of the text didn't parse. Such a part is left out.
    bool IsValid() const { return valid; }
    void SetInvalid() { valid = false; }

private:
    bool valid = true;
};
