#include "history/DeliveredFiles.h"

#include "delivery/ToviData.h"
#include "photos/ToviPhotoArray.h"

#include <charconv>
#include <filesystem>
#include <thread>

namespace fs = std::filesystem;

struct FileLook::Shared
{
    CString folder;
    /// What to look for, as FileSizes names it.
    std::set<CString> wanted;
    FileSizes found;
    std::atomic<bool> isOver = false;
    std::atomic<bool> isUnwanted = false;
};

namespace
{
constexpr int mostNamed = 3;

/// The path beneath the folder \p root, which ends in a separator; empty for one elsewhere.
CString BeneathOf(const CString& root, const CString& path)
{
    return path.starts_with(root) ? FoldCase(path.substr(root.size())) : CString();
}

CString Part(const char* what, const CStringArray& names)
{
    CString text = CString(what) + Format(" %d件（", names.GetSize());
    for (int i = 0; i < names.GetSize() && i < mostNamed; ++i) {
        if (i > 0) text += "、";
        text += names[i].substr(names[i].rfind('/') + 1);
    }
    return text + (names.GetSize() > mostNamed ? " ほか）" : "）");
}
} // namespace

CString PackSizes(const FileSizes& sizes)
{
    CString text;
    for (const auto& [name, size] : sizes) text += std::to_string(size) + ' ' + name + '\n';
    return text;
}

FileSizes UnpackSizes(std::string_view text)
{
    FileSizes sizes;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        std::uint64_t size = 0;
        const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), size);
        if (error != std::errc() || end == line.data() + line.size()) continue;
        sizes.emplace(line.substr(static_cast<std::size_t>(end + 1 - line.data())), size);
    }
    return sizes;
}

FileDifference DifferenceOf(const FileSizes& before, const FileSizes& now)
{
    FileDifference difference;
    for (const auto& [name, size] : before) {
        const auto there = now.find(name);
        if (there == now.end()) {
            difference.missing.Add(name);
        } else if (there->second != size) {
            difference.changed.Add(name);
        }
    }
    for (const auto& [name, size] : now) {
        if (!before.contains(name)) difference.added.Add(name);
    }
    return difference;
}

CString TellDifference(const FileDifference& difference)
{
    const std::pair<const char*, const CStringArray*> parts[] = {
        {"増えたファイル", &difference.added},
        {"なくなったファイル", &difference.missing},
        {"大きさが変わったファイル", &difference.changed}};
    CString text;
    for (const auto& [what, names] : parts) {
        if (names->IsEmpty()) continue;
        text += (text.empty() ? "" : "、") + Part(what, *names);
    }
    return text.empty() ? text
                        : "前の検査のときから、納品データの写真と参考図が変わっています: " + text +
                              "。付箋とコメントはそのまま残っています。";
}

FileLook::FileLook(ToviData& document) : shared(std::make_shared<Shared>())
{
    shared->folder = document.RootPath();
    const auto want = [this](const CString& path) {
        CString name = BeneathOf(shared->folder, path);
        if (!name.empty()) shared->wanted.insert(std::move(name));
    };
    for (ToviPhoto* photo : *document.GetPhotoDataArray()) {
        want(photo->GetImagePath());
        for (const CString& drawing : photo->GetPicturePaths()) want(drawing);
    }
    std::thread([mine = shared] {
        std::error_code error;
        fs::recursive_directory_iterator file(mine->folder,
                                              fs::directory_options::skip_permission_denied, error);
        for (; !error && file != end(file) && !mine->isUnwanted; file.increment(error)) {
            CString name = BeneathOf(mine->folder, file->path().string());
            if (!mine->wanted.contains(name)) continue;
            std::error_code gone;
            const std::uint64_t size = file->file_size(gone);
            if (!gone) mine->found.emplace(std::move(name), size);
        }
        mine->isOver = !error && !mine->isUnwanted;
    }).detach();
}

FileLook::~FileLook()
{
    shared->isUnwanted = true;
}

std::optional<FileSizes> FileLook::Found() const
{
    return shared->isOver ? std::optional(shared->found) : std::nullopt;
}
