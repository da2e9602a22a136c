#include "document/PhotoPaths.h"

#include "loading/ToviItemDef.h"
#include "platform/MibFile.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace
{
constexpr const char* photographFolder = "PIC/";
constexpr const char* drawingFolder = "DRA/";

struct PathTitles
{
    std::span<const char* const> drawings;
    const char* photograph;
};

constexpr std::array nameTitles = {"参考図1", "参考図2", "参考図3", "参考図ファイル名"};
constexpr std::array pathTitles = {"参考図ファイルパス1", "参考図ファイルパス2",
                                   "参考図ファイルパス3", "参考図ファイルパス"};

PathTitles TitlesFor(PhotoXMLType family, bool standAlone)
{
    const std::span<const char* const> all =
        standAlone ? std::span(nameTitles) : std::span(pathTitles);
    // Only the first family ever numbered its drawings.
    return {family == PhotoXMLMlit ? all : all.last(1),
            standAlone ? "写真ファイル名" : "写真ファイルパス"};
}

bool IsDrawing(const ToviItem& item, const PhotoPathItems& pathItems)
{
    return std::find(pathItems.drawings.begin(), pathItems.drawings.end(), item.GetDefIndex()) !=
           pathItems.drawings.end();
}

bool IsPhotograph(const ToviItem& item, const PhotoPathItems& pathItems)
{
    return item.GetDefIndex() == pathItems.photograph;
}

/// \p root + \p folder + the file name in \p value. A value that would lead out of the folder
/// counts as an empty one: the result is then the folder, which is no file.
CString DeliveredPath(const CString& root, const char* folder, const CString& value)
{
    CString path = root + folder;
    const std::size_t start = path.size();
    path += value;
    std::replace(path.begin() + static_cast<std::ptrdiff_t>(start), path.end(), '\\', '/');
    const std::string_view name = std::string_view(path).substr(start);
    const bool climbs = name == ".." || name.starts_with("../") || name.ends_with("/..") ||
                        name.find("/../") != std::string_view::npos;
    if (climbs || name.find('\0') != std::string_view::npos) path.resize(start);
    return path;
}

CStringArray ExistingOf(const CStringArray& paths)
{
    CStringArray existing;
    for (const CString& path : paths) {
        if (MibIsFileExist(path)) existing.Add(path);
    }
    return existing;
}

/// The path in \p kept that holds \p value, as a part of a longer name too; else the one under
/// \p root.
CString KeptOrNewPath(const CStringArray& kept, const CString& root, const CString& value)
{
    const auto found = std::find_if(kept.begin(), kept.end(), [&value](const CString& path) {
        return path.find(value) != CString::npos;
    });
    return found != kept.end() ? *found : DeliveredPath(root, drawingFolder, value);
}
} // namespace

PhotoPathItems FindPhotoPathItems(const ToviItemDef& def, bool standAlone)
{
    const PathTitles titles = TitlesFor(def.GetXMLType(), standAlone);
    PhotoPathItems found;
    for (const char* title : titles.drawings) {
        if (const int index = def.GetIndexFromTitle(title); index != -1) found.drawings.Add(index);
    }
    found.photograph = def.GetIndexFromTitle(titles.photograph);
    return found;
}

void TakeFullPaths(const ToviItemArray& items, const PhotoPathItems& pathItems, CString& imagePath,
                   CStringArray& picturePaths)
{
    imagePath.clear();
    picturePaths.RemoveAll();
    for (const ToviItem& item : items) {
        if (IsDrawing(item, pathItems) && !item.GetValue().empty())
            picturePaths.Add(item.GetValue());
        if (IsPhotograph(item, pathItems)) imagePath = item.GetValue();
    }
}

void MakeRelativePaths(const ToviItemArray& items, const PhotoPathItems& pathItems,
                       const CString& root, CString& imagePath, CStringArray& picturePaths)
{
    imagePath.clear();
    picturePaths.RemoveAll();
    for (const ToviItem& item : items) {
        if (IsDrawing(item, pathItems) && !item.GetValue().empty()) {
            picturePaths.Add(DeliveredPath(root, drawingFolder, item.GetValue()));
        }
        if (IsPhotograph(item, pathItems)) {
            imagePath = DeliveredPath(root, photographFolder, item.GetValue());
        }
    }
}

void RebuildRelativePaths(const ToviItemArray& items, const PhotoPathItems& pathItems,
                          const CString& root, CString& imagePath, CStringArray& picturePaths)
{
    if (!MibIsFileExist(imagePath)) imagePath.clear();
    const CStringArray kept = ExistingOf(picturePaths);
    picturePaths.RemoveAll();
    for (const ToviItem& item : items) {
        if (IsDrawing(item, pathItems) && !item.GetValue().empty()) {
            picturePaths.Add(KeptOrNewPath(kept, root, item.GetValue()));
        }
        if (imagePath.empty() && IsPhotograph(item, pathItems)) {
            imagePath = DeliveredPath(root, photographFolder, item.GetValue());
        }
    }
}

void FindMissingNames(const ToviItemArray& items, const PhotoPathItems& pathItems,
                      const CString& imagePath, const CStringArray& picturePaths,
                      CStringArray& names)
{
    const CStringArray existing = ExistingOf(picturePaths);
    for (const ToviItem& item : items) {
        const CString& value = item.GetValue();
        if (value.empty()) continue;
        // One drawing that exists stands for all of them: the names are compared with the front of
        // the paths found, where a bare file name never is.
        const bool found =
            std::any_of(existing.begin(), existing.end(),
                        [&value](const CString& path) { return !path.starts_with(value); });
        if (IsDrawing(item, pathItems) && !found) names.Add(value);
        if (IsPhotograph(item, pathItems) && !MibIsFileExist(imagePath)) names.Add(value);
    }
}
