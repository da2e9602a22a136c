#pragma once

#include "platform/text/Text.h"

#include <functional>

/// The host's store of integers and strings by section and entry, in which all settings persist.
/// Reading never fails: what is missing or of no use gives the default.
class TOVI_EXPORT ProfileStore
{
public:
    virtual ~ProfileStore() = default;

    virtual int GetProfileInt(const CString& section, const CString& entry, int def) const = 0;
    /// False when the value could not be kept.
    virtual bool WriteProfileInt(const CString& section, const CString& entry, int value) = 0;
    virtual CString GetProfileString(const CString& section, const CString& entry,
                                     const CString& def) const = 0;
    /// False when the value could not be kept.
    virtual bool WriteProfileString(const CString& section, const CString& entry,
                                    const CString& value) = 0;
    /// Runs \p write, whose reads and writes here are one to all other programs: none of them
    /// writes in between. False when \p write says so or its values could not be kept.
    virtual bool WriteTogether(const std::function<bool()>& write) { return write(); }
};
