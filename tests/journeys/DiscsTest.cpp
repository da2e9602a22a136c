#include "sample/DeliveryBuilder.h"
#include "support/DiskMount.h"
#include "support/FileTree.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <fcntl.h>
#include <linux/loop.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <map>

namespace
{
namespace fs = std::filesystem;
using Json = nlohmann::json;
using testing::HasSubstr;

class Discs : public testing::Test
{
protected:
    ProgramResult Run(std::vector<CString> arguments) const
    {
        return RunProgram(arguments, temp.Path("config"));
    }

    TempFolder temp;
    CString set = temp.Path("set");
};

TEST_F(Discs, AreGatheredAndExportedWithoutBeingTouched)
{
    ASSERT_EQ(Run({"tovi-sample", set, "--photos", "9", "--discs", "3"}).status, 0);
    const auto before = ReadFileTree(set);
    const CString photoXml = before.at(set + "/DISK1/PHOTO/PHOTO.XML").first;
    EXPECT_TRUE(photoXml == before.at(set + "/DISK3/PHOTO/PHOTO.XML").first);

    const ProgramResult all =
        Run({"tovi", "combine", set + "/DISK1", "--next", set + "/DISK2", set + "/DISK3"});
    EXPECT_EQ(all.status, 0) << all.errors;
    EXPECT_EQ(all.errors, "");
    EXPECT_EQ(Json::parse(all.output)["found"], 9);

    const ProgramResult two = Run({"tovi", "combine", set, "--next", set + "/DISK2/PHOTO"});
    EXPECT_EQ(two.status, 1);
    const Json summary = Json::parse(two.output);
    EXPECT_EQ(summary["found"], 6);
    EXPECT_GE(summary["missing"].size(), 3u);
    for (const Json& name : summary["missing"]) {
        const CString file = name;
        const CString kind = file.starts_with("D") ? "DRA/" : "PIC/";
        EXPECT_TRUE(before.contains(set + "/DISK3/PHOTO/" + kind + file)) << file;
    }
    EXPECT_EQ(Run({"tovi", "combine", set, "--next", temp.Path()}).status, 1);

    const CString out = temp.MakeFolder("保存 先");
    const ProgramResult saved = Run({"tovi", "export", set + "/DISK1", out});
    EXPECT_EQ(saved.status, 1) << "two discs are missing";
    const Json counts = Json::parse(saved.output);
    EXPECT_EQ(counts["photos"], 9);
    EXPECT_EQ(counts["copied"], 3);
    EXPECT_EQ(counts["missing"].size(), 6u);
    std::uintmax_t bytes = 0;
    for (const auto& [path, file] : ReadFileTree(out)) {
        const CString source = set + "/DISK1/PHOTO/PIC" + path.substr(path.rfind('/'));
        EXPECT_TRUE(file == before.at(source)) << path;
        bytes += file.first.size();
    }
    EXPECT_EQ(counts["bytes"], bytes);

    const struct
    {
        CString folder;
        int status;
        const char* sentence;
    } refused[] = {
        {out, 1, "がもうあります。"},
        {temp.Path("none"), 1, "というフォルダがありません。"},
        {set + "/DISK1", 2, "納品データのフォルダには書き込みません。"},
        {set + "/DISK1/PHOTO/PIC/", 2, "納品データのフォルダには書き込みません。"},
    };
    for (const auto& c : refused) {
        const ProgramResult result = Run({"tovi", "export", set + "/DISK1/PHOTO", c.folder});
        EXPECT_EQ(result.status, c.status) << c.folder;
        EXPECT_THAT(result.errors, HasSubstr(c.sentence));
    }
    const CString first = temp.MakeFolder("first");
    EXPECT_EQ(Run({"tovi", "export", set + "/DISK1", first, "--date-from", "1900-01-01",
                   "--date-to", "1900-01-02"})
                  .output,
              "{\"folder\":\"" + first +
                  "\",\"photos\":0,\"copied\":0,\"bytes\":0,\"missing\":[],\"failed\":[],"
                  "\"cancelled\":false}\n");
    EXPECT_TRUE(ReadFileTree(set) == before);
}

/// An image file on a loop device, as long as the object lives; no path where that can't be had.
class LoopDevice
{
public:
    explicit LoopDevice(const CString& image)
        : control(open("/dev/loop-control", O_RDWR | O_CLOEXEC)),
          backing(open(image.c_str(), O_RDONLY | O_CLOEXEC))
    {
        const int number = control >= 0 ? ioctl(control, LOOP_CTL_GET_FREE) : -1;
        const CString name = "/dev/loop" + std::to_string(number);
        device = number >= 0 ? open(name.c_str(), O_RDONLY | O_CLOEXEC) : -1;
        if (device >= 0 && ioctl(device, LOOP_SET_FD, backing) == 0) path = name;
    }
    LoopDevice(const LoopDevice&) = delete;
    LoopDevice& operator=(const LoopDevice&) = delete;
    ~LoopDevice()
    {
        if (!path.empty()) ioctl(device, LOOP_CLR_FD);
        for (const int opened : {device, backing, control}) close(opened);
    }
    const CString& Path() const { return path; }

private:
    int control;
    int backing;
    int device = -1;
    CString path;
};

TEST_F(Discs, RealOnesAreCopiedIntoTheWorkArea)
{
    ASSERT_EQ(Run({"tovi-sample", set, "--photos", "4", "--discs", "2"}).status, 0);
    const CString image = temp.Path("disc.iso");
    const CString make = "xorriso -as mkisofs -quiet -iso-level 1 -o " + image + " " + set +
                         "/DISK1 >/dev/null 2>&1";
    if (std::system(make.c_str()) != 0) GTEST_SKIP() << "xorriso isn't installed";
    const LoopDevice device(image);
    const CString place = temp.MakeFolder("disc");
    const DiskMount disc(place, "iso9660", "", device.Path(), MS_RDONLY);
    if (!disc.IsThere()) GTEST_SKIP() << "this machine mounts no discs";

    setenv("HOME", temp.Path().c_str(), 1);
    const ProgramResult result = Run({"tovi", "combine", place, "--next", set + "/DISK2"});
    EXPECT_EQ(result.status, 0) << result.errors;
    const Json summary = Json::parse(result.output);
    EXPECT_EQ(summary["found"], 4);
    const ProgramResult copied = Run({"tovi", "combine", place});
    EXPECT_THAT(Json::parse(copied.output)["dataFolder"].get<CString>(),
                HasSubstr("QV-CombineData/PHOTO"));
}
} // namespace
