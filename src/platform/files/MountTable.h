#pragma once

#include "platform/text/Text.h"

#include <vector>

/// The class of drive that a path lies on; the numbers are part of the interface.
enum class DriveType
{
    Unknown = 0,
    NoRoot = 1,
    Removable = 2,
    Fixed = 3,
    Remote = 4,
    Optical = 5,
    RamDisk = 6
};

/// What is mounted where, and on what kind of device.
class MountTable
{
public:
    /// \p mountInfo is the text of /proc/self/mountinfo; lines that don't have its form are left
    /// out. \p sysfs is the folder where the system tells of its devices.
    explicit MountTable(std::string_view mountInfo, CString sysfs = "/sys");

    /// The class of the drive that holds \p path, by the names in the path alone. Unknown for a
    /// path that isn't absolute. When nothing is mounted above it the class is that of \p device
    /// (major and minor number with a colon between), NoRoot where that is empty.
    DriveType TypeOf(const CString& path, const CString& device = {}) const;

private:
    struct Mount
    {
        CString folder;
        CString fileSystem;
        CString source;
        /// Major and minor number with a colon between. The major number is 0 when the file system
        /// stands for no single device.
        CString device;
    };

    const Mount* MountOf(const CString& path) const;
    DriveType TypeOfDevice(const Mount& mount) const;

    std::vector<Mount> mounts;
    CString sysfs;
};

/// The class of the drive that holds \p path now, symbolic links followed. What is missing from the
/// end of the path doesn't matter.
DriveType DriveTypeOf(const CString& path);
