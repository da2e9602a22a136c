#include "platform/files/MountTable.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <utility>

namespace fs = std::filesystem;

namespace
{
struct FileSystemClass
{
    std::string_view name;
    DriveType type;
};

/// File systems that tell the class by themselves. With all others the device does: "udf" too,
/// which is found on discs and on sticks.
constexpr FileSystemClass fileSystemClasses[] = {
    {"iso9660", DriveType::Optical},
    {"cdfs", DriveType::Optical},
    {"tmpfs", DriveType::RamDisk},
    {"ramfs", DriveType::RamDisk},
    {"nfs", DriveType::Remote},
    {"nfs4", DriveType::Remote},
    {"cifs", DriveType::Remote},
    {"smb3", DriveType::Remote},
    {"smbfs", DriveType::Remote},
    {"ncpfs", DriveType::Remote},
    {"9p", DriveType::Remote},
    {"virtiofs", DriveType::Remote},
    {"vboxsf", DriveType::Remote},
    {"prl_fs", DriveType::Remote},
    {"fuse.vmhgfs-fuse", DriveType::Remote},
    {"afs", DriveType::Remote},
    {"coda", DriveType::Remote},
    {"ceph", DriveType::Remote},
    {"fuse.ceph", DriveType::Remote},
    {"fuse.ceph-fuse", DriveType::Remote},
    {"glusterfs", DriveType::Remote},
    {"fuse.glusterfs", DriveType::Remote},
    {"lustre", DriveType::Remote},
    {"beegfs", DriveType::Remote},
    {"pvfs2", DriveType::Remote},
    {"davfs", DriveType::Remote},
    {"fuse.davfs", DriveType::Remote},
    {"fuse.sshfs", DriveType::Remote},
    {"fuse.rclone", DriveType::Remote},
    {"fuse.s3fs", DriveType::Remote},
    {"fuse.curlftpfs", DriveType::Remote},
    {"fuse.gvfsd-fuse", DriveType::Remote},
    {"fuse.kio-fuse", DriveType::Remote},
};

constexpr std::string_view opticalDevice = "/dev/sr";
constexpr std::string_view deviceFolder = "/dev/";
/// Layers of devices (encryption on a partition on a stick) that are followed down.
constexpr int deepestLayer = 4;

bool IsOctal(char digit)
{
    return digit >= '0' && digit <= '7';
}

/// Blanks, line breaks and backslashes stand in the table as "\" with three octal digits.
CString WithoutOctal(const CString& field)
{
    CString plain;
    for (std::size_t i = 0; i < field.size(); ++i) {
        const bool escape = field[i] == '\\' && i + 3 < field.size() && IsOctal(field[i + 1]) &&
                            IsOctal(field[i + 2]) && IsOctal(field[i + 3]);
        if (escape) {
            plain += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 +
                                       (field[i + 3] - '0'));
            i += 3;
        } else {
            plain += field[i];
        }
    }
    return plain;
}

/// True when the folder \p above is \p path or holds it.
bool Holds(const CString& above, const CString& path)
{
    return above == "/" ||
           (path.starts_with(above) && (path.size() == above.size() || path[above.size()] == '/'));
}

bool SaysRemovable(const fs::path& device)
{
    return std::ifstream(device / "removable").get() == '1';
}

bool IsUsbBus(const fs::path& name)
{
    const CString text = name.string();
    return text.size() > 3 && text.starts_with("usb") &&
           text.find_first_not_of("0123456789", 3) == CString::npos;
}

/// Whether the device of the folder \p device in sysfs, or one that it is made of, can be taken off
/// the machine.
bool IsRemovable(const fs::path& device, int layer = 0)
{
    std::error_code error;
    const fs::path real = fs::canonical(device, error);
    if (error || layer > deepestLayer) return false;
    // A partition says nothing itself; the folder around it is its disk's.
    if (SaysRemovable(real) || SaysRemovable(real.parent_path())) return true;
    if (std::any_of(real.begin(), real.end(), IsUsbBus)) return true;
    const fs::directory_iterator below(real / "slaves", error);
    return std::any_of(begin(below), end(below), [layer](const fs::directory_entry& part) {
        return IsRemovable(part.path(), layer + 1);
    });
}

/// The number of the device that holds what there is of \p path. A program that was given a folder
/// as its root sees no mount of it.
CString DeviceOf(fs::path path)
{
    struct stat facts;
    while (stat(path.c_str(), &facts) != 0) {
        if (!path.has_relative_path()) return {};
        path = path.parent_path();
    }
    return Format("%u:%u", major(facts.st_dev), minor(facts.st_dev));
}
} // namespace

MountTable::MountTable(std::string_view mountInfo, CString sysfsFolder)
    : sysfs(std::move(sysfsFolder))
{
    std::istringstream lines{CString(mountInfo)};
    for (CString line; std::getline(lines, line);) {
        std::istringstream words(line);
        const std::vector<CString> fields{std::istream_iterator<CString>(words), {}};
        // Number, number of the mount above, device, root, mount point, options, any number of
        // further fields, "-", file system, source, options.
        const auto dash = std::find(fields.begin(), fields.end(), "-");
        if (dash - fields.begin() < 6 || fields.end() - dash < 3) continue;
        mounts.push_back({WithoutOctal(fields[4]), dash[1], WithoutOctal(dash[2]), fields[2]});
    }
}

DriveType MountTable::TypeOf(const CString& path, const CString& device) const
{
    if (!path.starts_with('/')) return DriveType::Unknown;
    const Mount* mount = MountOf(fs::path(path).lexically_normal().string());
    if (mount == nullptr) {
        return device.empty() ? DriveType::NoRoot : TypeOfDevice({path, {}, {}, device});
    }
    const auto* const known = std::find_if(
        std::begin(fileSystemClasses), std::end(fileSystemClasses),
        [mount](const FileSystemClass& entry) { return entry.name == mount->fileSystem; });
    return known != std::end(fileSystemClasses) ? known->type : TypeOfDevice(*mount);
}

const MountTable::Mount* MountTable::MountOf(const CString& path) const
{
    const Mount* nearest = nullptr;
    for (const Mount& mount : mounts) {
        // Of two at one place the later one covers the earlier.
        const bool nearer = nearest == nullptr || mount.folder.size() >= nearest->folder.size();
        if (nearer && Holds(mount.folder, path)) nearest = &mount;
    }
    return nearest;
}

DriveType MountTable::TypeOfDevice(const Mount& mount) const
{
    if (mount.source.starts_with(opticalDevice)) return DriveType::Optical;
    fs::path device = fs::path(sysfs) / "dev/block" / mount.device;
    if (mount.device.starts_with("0:") && mount.source.starts_with(deviceFolder)) {
        std::error_code error;
        const fs::path node = fs::weakly_canonical(mount.source, error);
        device = fs::path(sysfs) / "class/block" / node.filename();
    }
    return IsRemovable(device) ? DriveType::Removable : DriveType::Fixed;
}

DriveType DriveTypeOf(const CString& path)
{
    if (!path.starts_with('/')) return DriveType::Unknown;
    std::error_code error;
    const fs::path real = fs::weakly_canonical(path, error);
    // Read anew each time: discs are changed while the program runs.
    std::ifstream file("/proc/self/mountinfo");
    const CString mountInfo{std::istreambuf_iterator<char>(file), {}};
    return MountTable(mountInfo).TypeOf(error ? path : real.string(), DeviceOf(real));
}
