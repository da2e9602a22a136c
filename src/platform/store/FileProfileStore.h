#pragma once

#include "platform/store/SharedSectionFile.h"
#include "platform/store/TextProfileStore.h"

/// The user's profile in a file (see SectionFile), shared by all programs that run at the time. A
/// value that can't be written, as on a read-only disk, is kept for the life of the object. A
/// damaged file is given a name with ".damaged" added, the user is told, and all values are the
/// defaults again.
class TOVI_EXPORT FileProfileStore : public TextProfileStore
{
public:
    /// \p path is the full path of the file; it and its folder are created by the first write.
    explicit FileProfileStore(const CString& path);

    bool WriteProfileString(const CString& section, const CString& entry,
                            const CString& value) override;
    bool WriteTogether(const std::function<bool()>& write) override;

protected:
    std::optional<CString> Read(const CString& section, const CString& entry) const override;

private:
    void Follow() const;

    /// Reading follows what other programs write.
    mutable SharedSectionFile file;
};

/// The user's profile in a file as above, for programs that don't change it: what they write lasts
/// as long as the object.
class TOVI_EXPORT UnsavedProfileStore : public FileProfileStore
{
public:
    using FileProfileStore::FileProfileStore;

    bool WriteProfileString(const CString& section, const CString& entry,
                            const CString& value) override;
    bool WriteTogether(const std::function<bool()>& write) override { return write(); }

protected:
    std::optional<CString> Read(const CString& section, const CString& entry) const override;

private:
    SectionFile written;
};

/// The full path of the user's profile; empty when the user has no home folder.
TOVI_EXPORT CString DefaultProfilePath();
