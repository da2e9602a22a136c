#pragma once

#include "platform/store/SectionFile.h"
#include "platform/store/TextProfileStore.h"

/// A profile store that is forgotten with its object: for tests and for hosts that leave no trace.
class TOVI_EXPORT MemoryProfileStore : public TextProfileStore
{
public:
    bool WriteProfileString(const CString& section, const CString& entry,
                            const CString& value) override;

protected:
    std::optional<CString> Read(const CString& section, const CString& entry) const override;

private:
    SectionFile entries;
};
