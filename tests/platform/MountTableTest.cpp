#include "platform/files/MountTable.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{
constexpr std::string_view mountInfo =
    "27 1 8:2 / / rw,relatime shared:1 - ext4 /dev/sda2 rw\n"
    "28 27 0:24 / /tmp rw - tmpfs tmpfs rw\n"
    "29 27 11:0 / /media/disc ro shared:5 master:2 - udf /dev/sr0 ro\n"
    "30 27 8:17 / /media/USB\\040\\346\\227\\245 rw - vfat /dev/sdb1 rw\n"
    "31 27 8:33 / /media/card rw - udf /dev/sdc1 rw\n"
    "32 27 8:49 / /media/image rw - iso9660 /dev/sdd1 ro\n"
    "33 27 0:50 / /srv/share rw - cifs //server/share rw\n"
    "34 27 0:51 / /srv/share/local rw - btrfs /dev/sda2 rw\n"
    "35 27 0:52 / /srv/stick rw - btrfs /dev/sdb1 rw\n"
    "36 27 253:0 / /srv/secret rw - ext4 /dev/mapper/secret rw\n"
    "37 27 8:2 /x /mnt/twice rw - ext4 /dev/sda2 rw\n"
    "38 37 0:53 / /mnt/twice rw - nfs4 server:/x rw\n"
    "39 27 0:54 / /run/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw\n"
    "40 27 0:55 / /merged rw - overlay overlay rw\n"
    "garbage\n"
    "41 27 8:2 / /short rw\n";

/// Devices as sysfs shows them: a fixed disk, a USB disk that says it is fixed, a card reader that
/// says removable, and an encrypted device on the USB disk.
void MakeDevices(const TempFolder& sysfs)
{
    const struct
    {
        CString folder;
        CString number;
        const char* removable;
    } devices[] = {
        {"devices/pci0/ata1/block/sda", "8:0", "0\n"},
        {"devices/pci0/ata1/block/sda/sda2", "8:2", nullptr},
        {"devices/pci0/usb1/1-1/host0/block/sdb", "8:16", "0\n"},
        {"devices/pci0/usb1/1-1/host0/block/sdb/sdb1", "8:17", nullptr},
        {"devices/pci0/reader/block/sdc", "8:32", "1\n"},
        {"devices/pci0/reader/block/sdc/sdc1", "8:33", nullptr},
        {"devices/virtual/block/dm-0", "253:0", "0\n"},
    };
    sysfs.MakeFolder("dev/block");
    sysfs.MakeFolder("class/block");
    for (const auto& device : devices) {
        const std::filesystem::path folder = sysfs.MakeFolder(device.folder);
        if (device.removable != nullptr)
            sysfs.Write(device.folder + "/removable", device.removable);
        create_directory_symlink(folder, sysfs.Path("dev/block/" + device.number));
        create_directory_symlink(folder, sysfs.Path("class/block/" + folder.filename().string()));
    }
    sysfs.MakeFolder("devices/virtual/block/dm-0/slaves");
    std::filesystem::create_directory_symlink(sysfs.Path("class/block/sdb1"),
                                              sysfs.Path("devices/virtual/block/dm-0/slaves/sdb1"));
}

TEST(MountTable, ClassOfDrive)
{
    const TempFolder sysfs;
    MakeDevices(sysfs);
    const MountTable table(mountInfo, sysfs.Path());
    const std::pair<const char*, DriveType> cases[] = {
        {"/", DriveType::Fixed},
        {"/home/user/納品", DriveType::Fixed},
        {"/tmp", DriveType::RamDisk},
        {"/tmp/../home", DriveType::Fixed},
        {"/tmpfile", DriveType::Fixed},
        {"/media/disc/PHOTO/", DriveType::Optical},
        {"/media/USB 日/PHOTO", DriveType::Removable},
        {"/media/card/PHOTO", DriveType::Removable},
        {"/media/image", DriveType::Optical},
        {"/srv/share/delivery", DriveType::Remote},
        {"/srv/share/local/delivery", DriveType::Fixed},
        {"/srv/stick", DriveType::Removable},
        {"/srv/secret", DriveType::Removable},
        {"/mnt/twice/x", DriveType::Remote},
        {"/run/gvfs/smb-share:server=s", DriveType::Remote},
        {"/merged", DriveType::Fixed},
        {"/short", DriveType::Fixed},
        {"", DriveType::Unknown},
        {"media/disc", DriveType::Unknown},
        {"C:\\media", DriveType::Unknown},
    };
    for (const auto& [path, expected] : cases) EXPECT_EQ(table.TypeOf(path), expected) << path;
    const MountTable empty("", sysfs.Path());
    EXPECT_EQ(empty.TypeOf("/tmp"), DriveType::NoRoot);
    EXPECT_EQ(empty.TypeOf("/tmp", "8:17"), DriveType::Removable);
    EXPECT_EQ(empty.TypeOf("/tmp", "8:2"), DriveType::Fixed);
    EXPECT_EQ(table.TypeOf("/merged", "8:17"), DriveType::Fixed);
}

TEST(MountTable, LiveSystemFollowsLinksAndForgivesMissingFolders)
{
    EXPECT_NE(DriveTypeOf("/"), DriveType::NoRoot);
    const TempFolder temp;
    std::filesystem::create_directory_symlink("/proc", temp.Path("link"));
    EXPECT_EQ(DriveTypeOf(temp.Path("link/missing")), DriveTypeOf("/proc"));
    EXPECT_EQ(DriveTypeOf(temp.Path("missing/deep")), DriveTypeOf(temp.Path()));
    EXPECT_EQ(DriveTypeOf("relative"), DriveType::Unknown);
}
} // namespace
