#pragma once

#include "platform/text/Text.h"

#include <sys/mount.h>

/// A small file system of its own on a folder, as far as the test's user may mount one.
class DiskMount
{
public:
    DiskMount(CString folder, const CString& type, const CString& options,
              const CString& source = "tovi-test", unsigned long flags = 0)
        : place(std::move(folder)),
          mounted(mount(source.c_str(), place.c_str(), type.c_str(), flags, options.c_str()) == 0)
    {}
    DiskMount(const DiskMount&) = delete;
    DiskMount& operator=(const DiskMount&) = delete;
    ~DiskMount() { PullOut(); }

    bool IsThere() const { return mounted; }
    /// Takes it off its folder, also while a file of it is open.
    void PullOut()
    {
        if (mounted) umount2(place.c_str(), MNT_DETACH);
        mounted = false;
    }

private:
    CString place;
    bool mounted;
};
