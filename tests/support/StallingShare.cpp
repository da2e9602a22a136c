#include "support/StallingShare.h"

#include "platform/files/CaseFallback.h"

#include <fcntl.h>
#include <linux/fuse.h>
#include <poll.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>

namespace
{
constexpr std::size_t largestRequest = 1 << 20;

template <class Record>
Record As(const char* bytes)
{
    Record record;
    std::memcpy(&record, bytes, sizeof record);
    return record;
}

template <class Record>
std::string_view Bytes(const Record& record)
{
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

fuse_attr AttributesOf(const struct stat& facts, std::uint64_t node)
{
    fuse_attr attributes = {};
    attributes.ino = node;
    attributes.size = static_cast<std::uint64_t>(facts.st_size);
    attributes.blocks = static_cast<std::uint64_t>(facts.st_blocks);
    attributes.mtime = static_cast<std::uint64_t>(facts.st_mtim.tv_sec);
    attributes.mtimensec = static_cast<std::uint32_t>(facts.st_mtim.tv_nsec);
    attributes.ctime = attributes.mtime;
    attributes.mode = facts.st_mode;
    attributes.nlink = 1;
    attributes.blksize = 4096;
    return attributes;
}
} // namespace

StallingShare::StallingShare(CString folder, CString mountPoint)
    : source(std::move(folder)), place(std::move(mountPoint)), paths{"", source}
{
    nodes[source] = FUSE_ROOT_ID;
    device = open("/dev/fuse", O_RDWR | O_CLOEXEC);
    if (device < 0) return;
    const CString options =
        Format("fd=%d,rootmode=40000,user_id=%u,group_id=%u", device, getuid(), getgid());
    mounted = mount("tovi-test", place.c_str(), "fuse", MS_NOSUID | MS_NODEV, options.c_str()) == 0;
    if (mounted) server = std::thread([this] { Serve(); });
}

StallingShare::~StallingShare()
{
    ended = true;
    if (mounted) umount2(place.c_str(), MNT_FORCE | MNT_DETACH);
    if (server.joinable()) server.join();
    if (device >= 0) close(device);
}

/// A request that waits isn't read: one that was could not be given up even by a process that ends.
void StallingShare::Serve()
{
    std::vector<char> request(largestRequest);
    while (!ended) {
        pollfd asked = {device, POLLIN, 0};
        const bool isAsked = poll(&asked, 1, 20) > 0;
        isWaitedFor = isAsked && stalled;
        if (!isAsked) continue;
        if (stalled) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            continue;
        }
        const ssize_t got = read(device, request.data(), request.size());
        if (got < 0 && (errno == EINTR || errno == EAGAIN || errno == ENOENT)) continue;
        if (got < static_cast<ssize_t>(sizeof(fuse_in_header))) return;
        Answer(As<fuse_in_header>(request.data()), request.data() + sizeof(fuse_in_header));
    }
}

void StallingShare::Answer(const fuse_in_header& head, const char* body)
{
    const CString& path = paths[head.nodeid < paths.size() ? head.nodeid : 0];
    switch (head.opcode) {
    case FUSE_INIT: {
        fuse_init_out answer = {};
        answer.major = FUSE_KERNEL_VERSION;
        answer.minor = FUSE_KERNEL_MINOR_VERSION;
        answer.max_write = 128 << 10;
        return Reply(head, 0, Bytes(answer));
    }
    case FUSE_LOOKUP:
        return ReplyAttributes(head, path + '/' + body, true);
    case FUSE_GETATTR:
        return ReplyAttributes(head, path, false);
    case FUSE_OPEN:
    case FUSE_OPENDIR:
        return Reply(head, 0, Bytes(fuse_open_out{}));
    case FUSE_READ:
    case FUSE_READDIR: {
        const auto asked = As<fuse_read_in>(body);
        if (head.opcode == FUSE_READ) return ReplyBytes(head, asked.offset, asked.size);
        return ReplyListing(head, asked.offset, asked.size);
    }
    case FUSE_RELEASE:
    case FUSE_RELEASEDIR:
    case FUSE_FLUSH:
        return Reply(head, 0);
    case FUSE_FORGET:
    case FUSE_BATCH_FORGET:
    case FUSE_INTERRUPT:
        return;
    default:
        return Reply(head, ENOSYS);
    }
}

void StallingShare::Reply(const fuse_in_header& head, int error, std::string_view bytes) const
{
    fuse_out_header answer = {};
    answer.len = static_cast<std::uint32_t>(sizeof answer + bytes.size());
    answer.error = -error;
    answer.unique = head.unique;
    std::string whole(Bytes(answer));
    whole += bytes;
    [[maybe_unused]] const ssize_t written = write(device, whole.data(), whole.size());
}

void StallingShare::ReplyAttributes(const fuse_in_header& head, const CString& path, bool withEntry)
{
    struct stat facts;
    if (lstat(path.c_str(), &facts) != 0) return Reply(head, errno);
    const fuse_attr attributes = AttributesOf(facts, NodeOf(path));
    if (withEntry) {
        fuse_entry_out entry = {};
        entry.nodeid = attributes.ino;
        entry.attr = attributes;
        return Reply(head, 0, Bytes(entry));
    }
    fuse_attr_out answer = {};
    answer.attr = attributes;
    Reply(head, 0, Bytes(answer));
}

void StallingShare::ReplyListing(const fuse_in_header& head, std::uint64_t offset, std::size_t size)
{
    const CStringArray names = ListFolder(paths[head.nodeid]);
    std::string listing;
    for (int at = static_cast<int>(offset); at < names.GetSize(); ++at) {
        fuse_dirent entry = {};
        entry.ino = entry.off = static_cast<std::uint64_t>(at) + 1;
        entry.namelen = static_cast<std::uint32_t>(names[at].size());
        std::string packed(Bytes(entry).substr(0, FUSE_NAME_OFFSET));
        packed += names[at];
        packed.resize(FUSE_DIRENT_ALIGN(packed.size()));
        if (listing.size() + packed.size() > size) break;
        listing += packed;
    }
    Reply(head, 0, listing);
}

void StallingShare::ReplyBytes(const fuse_in_header& head, std::uint64_t offset, std::size_t size)
{
    std::string bytes(size, '\0');
    const int file = open(paths[head.nodeid].c_str(), O_RDONLY | O_CLOEXEC);
    const ssize_t got = pread(file, bytes.data(), size, static_cast<off_t>(offset));
    close(file);
    bytes.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    Reply(head, got < 0 ? EIO : 0, bytes);
}

std::uint64_t StallingShare::NodeOf(const CString& path)
{
    const auto [found, isNew] = nodes.try_emplace(path, paths.size());
    if (isNew) paths.push_back(path);
    return found->second;
}
