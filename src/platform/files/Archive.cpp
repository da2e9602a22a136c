#include "platform/files/Archive.h"

#include "platform/files/FileDescriptor.h"
#include "platform/files/MibFile.h"
#include "platform/files/RegularFile.h"
#include "platform/text/Cp932.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <unordered_map>

#include <archive.h>
#include <archive_entry.h>
#include <fcntl.h>
#include <locale.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr std::size_t blockSize = std::size_t{1} << 16;
constexpr const char* damaged = "壊れているか、途中で切れています";

/// The library takes names through the locale of the thread, which has to know all characters.
class Utf8Locale
{
public:
    Utf8Locale() : mine(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)), before(uselocale(mine)) {}
    Utf8Locale(const Utf8Locale&) = delete;
    Utf8Locale& operator=(const Utf8Locale&) = delete;
    ~Utf8Locale()
    {
        uselocale(before);
        if (mine != nullptr) freelocale(mine);
    }

private:
    locale_t mine;
    locale_t before;
};

/// \p raw in UTF-8, with "/" between the names; nothing when it is in neither encoding.
std::optional<CString> NameOf(const char* raw)
{
    if (raw == nullptr) return std::nullopt;
    const std::string_view bytes = raw;
    std::optional<CString> name = IsUtf8(bytes) ? CString(bytes) : Cp932::Decode(bytes);
    if (name) std::replace(name->begin(), name->end(), '\\', '/');
    return name;
}

bool HasControls(const CString& name)
{
    return std::any_of(name.begin(), name.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
}

/// What is wrong with \p name as that of a file below \p depth folders; empty when nothing is.
CString WhyNoName(const CString& name, std::size_t depth)
{
    constexpr std::size_t longest = 255;
    const CString why = "中の名前が納品データの外を指すか正しくありません";
    if (name.empty() || name.starts_with('/') || HasControls(name)) return why;
    std::size_t folders = 0;
    for (std::size_t at = 0; at <= name.size();) {
        const std::size_t end = std::min(name.find('/', at), name.size());
        const std::string_view part = std::string_view(name).substr(at, end - at);
        if (part.empty() || part == "." || part == ".." || part.size() > longest) return why;
        ++folders;
        at = end + 1;
    }
    return folders > depth ? "フォルダが深すぎます" : "";
}

/// An archive that is gone through from its front.
class Reading
{
public:
    Reading(const CString& path, const ArchiveLimits& theLimits)
        : limits(theLimits), file(path), archive(archive_read_new(), &archive_read_free)
    {
        mostBytes = std::min(limits.bytes, limits.bytesOfAny + limits.ratio * SizeOfFile());
        if (!archive || !file.IsOpen()) return;
        archive_read_support_format_zip(archive.get());
        archive_read_support_format_iso9660(archive.get());
        isOpen = archive_read_open_fd(archive.get(), file.Descriptor(), blockSize) == ARCHIVE_OK;
    }

    /// Goes to the next file. False behind the last one, and when there is a problem.
    bool Next()
    {
        if (!isOpen) return Fail("ZIPファイルかISOイメージとして読めません");
        for (;;) {
            const int result = archive_read_next_header(archive.get(), &header);
            if (result == ARCHIVE_EOF) return false;
            if (result != ARCHIVE_OK && result != ARCHIVE_WARN) return Fail(damaged);
            if (!Judge()) return false;
            if (archive_entry_filetype(header) == AE_IFREG) return true;
        }
    }

    const ArchiveEntry& Entry() const { return entry; }
    const CString& Problem() const { return problem; }

    /// Hands the content of the file to \p take. False when there is a problem, or \p take says so.
    bool Read(const std::function<bool(std::string_view bytes)>& take)
    {
        char block[blockSize];
        std::uint64_t left = entry.bytes;
        for (;;) {
            const la_ssize_t count = archive_read_data(archive.get(), block, sizeof(block));
            if (count == 0) return left == 0 || Fail(damaged);
            if (count < 0) return Fail(damaged);
            if (static_cast<std::uint64_t>(count) > left) return Fail(damaged);
            left -= static_cast<std::uint64_t>(count);
            if (!take({block, static_cast<std::size_t>(count)})) return false;
        }
    }

private:
    std::uint64_t SizeOfFile() const { return file.IsOpen() ? file.Size() : 0; }

    bool Fail(const CString& why)
    {
        problem = why;
        return false;
    }

    /// Takes over what the header says. False when the archive is refused for it.
    bool Judge()
    {
        const auto type = archive_entry_filetype(header);
        const bool isLink =
            archive_entry_symlink(header) != nullptr || archive_entry_hardlink(header) != nullptr;
        if (isLink || (type != AE_IFREG && type != AE_IFDIR))
            return Fail("中にリンクか特殊なファイルがあります");
        if (archive_entry_is_encrypted(header) != 0) return Fail("パスワードで暗号化されています");
        std::optional<CString> name = NameOf(archive_entry_pathname(header));
        if (!name) return Fail("中の名前が UTF-8 でも Shift_JIS でもありません");
        while (name->ends_with('/')) name->pop_back();
        // The root of an image.
        if (type == AE_IFDIR && (name->empty() || *name == ".")) return true;
        if (CString why = WhyNoName(*name, limits.depth); !why.empty()) return Fail(why);
        if (++entries > limits.files) return Fail("中のファイルが多すぎます");
        if (!IsOneName(*name, type == AE_IFDIR))
            return Fail("同じ名前か、大文字と小文字だけが違う名前があります");
        if (type == AE_IFDIR) return true;
        if (archive_entry_size_is_set(header) == 0) return Fail(damaged);
        entry = {std::move(*name), static_cast<std::uint64_t>(archive_entry_size(header))};
        allBytes += entry.bytes;
        return entry.bytes <= mostBytes && allBytes <= mostBytes
                   ? true
                   : Fail("中のファイルが大きすぎます");
    }

    /// False when another file or folder has a name that a file system without letter case takes
    /// for \p name, or for a folder in it.
    bool IsOneName(const CString& name, bool isFolder)
    {
        for (std::size_t end = name.find('/'); end != CString::npos;
             end = name.find('/', end + 1)) {
            if (!IsOneFolder(name.substr(0, end))) return false;
        }
        if (isFolder) return IsOneFolder(name);
        return names.emplace(FoldCase(name), CString()).second;
    }

    /// A folder is noted by its name, a file by none.
    bool IsOneFolder(const CString& name)
    {
        return names.emplace(FoldCase(name), name).first->second == name;
    }

    const ArchiveLimits limits;
    RegularFile file;
    std::unique_ptr<struct archive, int (*)(struct archive*)> archive;
    struct archive_entry* header = nullptr;
    bool isOpen = false;
    std::uint64_t mostBytes = 0;
    std::uint64_t allBytes = 0;
    std::size_t entries = 0;
    ArchiveEntry entry;
    std::unordered_map<CString, CString> names;
    CString problem;
};

/// Writes all of \p bytes.
bool WriteAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = write(descriptor, bytes.data(), bytes.size());
        if (count <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// Makes the folders on the way to \p name in \p target, a delivery's that we have for ourselves.
bool MakeFolders(const CString& target, const CString& name)
{
    const std::size_t slash = name.rfind('/');
    return slash == CString::npos ||
           MibCreateDirectory(target + "/" + name.substr(0, slash), IntoDelivery::Allowed);
}
} // namespace

bool IsArchiveName(const CString& path)
{
    const CString ending = MibGetExt(path);
    return EqualNoCase(ending, ".zip") || EqualNoCase(ending, ".iso");
}

ArchiveOutcome ListArchive(const CString& path, const ArchiveLimits& limits)
{
    const Utf8Locale locale;
    Reading reading(path, limits);
    ArchiveOutcome outcome;
    while (reading.Next()) outcome.entries.push_back(reading.Entry());
    outcome.problem = reading.Problem();
    return outcome;
}

ArchiveOutcome UnpackArchive(const CString& path, const CString& target,
                             const std::function<bool(const CString& name)>& isWanted,
                             const std::function<bool(std::uint64_t bytes)>& tell,
                             const ArchiveLimits& limits)
{
    const Utf8Locale locale;
    Reading reading(path, limits);
    ArchiveOutcome outcome;
    std::uint64_t done = 0;
    bool goesOn = true;
    while (goesOn && reading.Next()) {
        const ArchiveEntry entry = reading.Entry();
        if (!isWanted(entry.path)) continue;
        const CString file = target + "/" + entry.path;
        FileDescriptor out;
        if (MakeFolders(target, entry.path))
            out.Reset(
                open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
        bool isWritten = out.IsOpen();
        const bool isRead = isWritten && reading.Read([&](std::string_view bytes) {
            isWritten = WriteAll(out.Get(), bytes);
            done += bytes.size();
            goesOn = tell(done);
            return isWritten && goesOn;
        });
        if (!isWritten) {
            outcome.problem = target + " に展開できません。空き容量を確かめてください";
            return outcome;
        }
        if (!isRead) break;
        outcome.entries.push_back(entry);
    }
    outcome.problem = reading.Problem();
    return outcome;
}
