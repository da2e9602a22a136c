#pragma once

#include "platform/host/ProfileStore.h"

#include <optional>

/// A profile store whose values are all kept as text; what remains is where.
class TOVI_EXPORT TextProfileStore : public ProfileStore
{
public:
    int GetProfileInt(const CString& section, const CString& entry, int def) const override;
    bool WriteProfileInt(const CString& section, const CString& entry, int value) override;
    CString GetProfileString(const CString& section, const CString& entry,
                             const CString& def) const override;

protected:
    /// The text of an entry, or nothing when there is none.
    virtual std::optional<CString> Read(const CString& section, const CString& entry) const = 0;
};
