#include "platform/files/CaseFallback.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>

namespace
{
/// The names of one folder by their folded form, as they stood when the folder was last changed.
struct Listing
{
    timespec changed;
    /// Not all of them, or taken so shortly after the change that a later one can carry the same
    /// time stamp.
    bool mayBeStale;
    std::unordered_map<CString, CString> names;
};

constexpr std::time_t coarsestTimeStampSeconds = 2;
constexpr std::size_t listingsKept = 64;

bool Exists(const CString& path)
{
    return access(path.c_str(), F_OK) == 0;
}

bool SameTime(const timespec& left, const timespec& right)
{
    return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
}

Listing MakeListing(const CString& folder, const timespec& changed)
{
    // A folder dated in the future by the clock of its own machine is as settled as an old one.
    const std::time_t age = std::abs(std::time(nullptr) - changed.tv_sec);
    Listing listing{changed, age <= coarsestTimeStampSeconds, {}};
    // Of two names that differ only in case the first in byte order answers.
    bool isWhole = true;
    for (const CString& name : ListFolder(folder, &isWhole)) {
        listing.names.try_emplace(FoldCase(name), name);
    }
    if (!isWhole) listing.mayBeStale = true;
    return listing;
}

/// The listing of the folder \p path, of the current one if that is empty; null when it is no
/// folder. Valid until the next call.
const Listing* ListingOf(const CString& path)
{
    const CString folder = path.empty() ? "." : path;
    // Each thread its own: one that waits for a share that doesn't answer holds up no other.
    thread_local std::map<CString, Listing> listings;
    struct stat facts;
    if (stat(folder.c_str(), &facts) != 0 || !S_ISDIR(facts.st_mode)) return nullptr;
    if (const auto known = listings.find(folder); known != listings.end()) {
        const Listing& listing = known->second;
        if (!listing.mayBeStale && SameTime(listing.changed, facts.st_mtim)) return &listing;
        listings.erase(known);
    }
    if (listings.size() >= listingsKept) listings.clear();
    return &listings.emplace(folder, MakeListing(folder, facts.st_mtim)).first->second;
}

/// \p parent followed by the name that \p listing, which is that of \p parent, has for \p name;
/// empty when there is none.
CString ListedChild(const Listing& listing, const CString& parent, const CString& name)
{
    const auto found = listing.names.find(FoldCase(name));
    return found == listing.names.end() ? CString() : parent + found->second;
}

/// \p parent followed by the name that stands in it for \p name; empty when there is none.
CString ExistingChild(const CString& parent, const CString& name)
{
    const CString exact = parent + name;
    if (name == "." || name == ".." || Exists(exact)) return exact;
    const Listing* listing = ListingOf(parent);
    return listing == nullptr ? CString() : ListedChild(*listing, parent, name);
}
} // namespace

CString ExistingPath(const CString& path)
{
    if (path.empty() || path.find('\0') != CString::npos) return {};
    if (Exists(path)) return path;
    // Mostly the folder is there as it is written, and its listing tells all the rest.
    const CString name = path.substr(path.rfind('/') + 1);
    const CString parent = path.substr(0, path.size() - name.size());
    if (!name.empty() && name != "." && name != "..") {
        if (const Listing* listing = ListingOf(parent)) return ListedChild(*listing, parent, name);
    }
    CString existing = path.front() == '/' ? "/" : "";
    std::size_t at = 0;
    while (at < path.size()) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        if (end > at) {
            if (!existing.empty() && existing.back() != '/') existing += '/';
            existing = ExistingChild(existing, path.substr(at, end - at));
            if (existing.empty()) return {};
        }
        at = end + 1;
    }
    return path.back() == '/' && existing.back() != '/' ? existing + '/' : existing;
}

CStringArray ListFolder(const CString& folder, bool* isWhole)
{
    CStringArray names;
    const std::unique_ptr<DIR, int (*)(DIR*)> handle(opendir(folder.c_str()), closedir);
    if (isWhole != nullptr) *isWhole = handle || errno == ENOENT || errno == ENOTDIR;
    if (!handle) return names;
    errno = 0;
    while (const dirent* entry = readdir(handle.get())) {
        const CString name = entry->d_name;
        if (name != "." && name != "..") names.Add(name);
        errno = 0;
    }
    if (isWhole != nullptr && errno != 0) *isWhole = false;
    std::sort(names.begin(), names.end());
    return names;
}
