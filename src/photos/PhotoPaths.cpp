#include "photos/PhotoPaths.h"

#include "items/ToviItemDef.h"
#include "platform/files/MibFile.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace
{
constexpr std::string_view photographFolder = "PIC/";
constexpr std::string_view drawingFolder = "DRA/";

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

/// \p value with the separators of this file system.
CString NameOf(CString value)
{
    std::replace(value.begin(), value.end(), '\\', '/');
    return value;
}

/// False for an empty value, and for one that would lead out of the delivery's folder.
bool IsUsable(const CString& value)
{
    constexpr std::string_view separators = "/\\";
    constexpr std::string_view up = "..";
    const auto isEdge = [&](std::size_t at) {
        return at >= value.size() || separators.find(value[at]) != std::string_view::npos;
    };
    for (std::size_t at = value.find(up); at != CString::npos; at = value.find(up, at + 1)) {
        if ((at == 0 || isEdge(at - 1)) && isEdge(at + up.size())) return false;
    }
    return !value.empty() && value.find('\0') == CString::npos;
}

bool IsUsableDrawing(const ToviItem& item, const PhotoPathItems& pathItems)
{
    return IsDrawing(item, pathItems) && IsUsable(item.GetValue());
}

/// \p root + \p folder + the file name in \p value; without the name when that can't be used, which
/// is then no file.
CString DeliveredPath(std::string_view root, std::string_view folder, const CString& value)
{
    CString path;
    path.reserve(root.size() + folder.size() + value.size());
    path.append(root).append(folder);
    if (IsUsable(value)) path += NameOf(value);
    return path;
}

CStringArray ExistingOf(const CStringArray& paths, const IsFileThere& isThere)
{
    CStringArray existing;
    for (const CString& path : paths) {
        if (isThere(path)) existing.Add(path);
    }
    return existing;
}

/// The path that the first of \p items to name the photograph gives it; empty without one.
CString PathOfPhotograph(const ToviItemArray& items, const PhotoPathItems& pathItems,
                         std::string_view root)
{
    const auto found = std::find_if(items.begin(), items.end(), [&pathItems](const ToviItem& item) {
        return IsPhotograph(item, pathItems);
    });
    return found == items.end() ? CString()
                                : DeliveredPath(root, photographFolder, found->GetValue());
}

/// The path in \p kept that holds \p value, as a part of a longer name too; else the one under
/// \p root.
CString KeptOrNewPath(const CStringArray& kept, std::string_view root, const CString& value)
{
    const CString name = NameOf(value);
    const auto found = std::find_if(kept.begin(), kept.end(), [&name](const CString& path) {
        return path.find(name) != CString::npos;
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
                       std::string_view root, CString& imagePath, CStringArray& picturePaths)
{
    imagePath.clear();
    picturePaths.RemoveAll();
    for (const ToviItem& item : items) {
        if (IsUsableDrawing(item, pathItems)) {
            picturePaths.Add(DeliveredPath(root, drawingFolder, item.GetValue()));
        }
        if (IsPhotograph(item, pathItems)) {
            imagePath = DeliveredPath(root, photographFolder, item.GetValue());
        }
    }
}

void RebuildRelativePaths(const ToviItemArray& items, const PhotoPathItems& pathItems,
                          std::string_view root, CString& imagePath, CStringArray& picturePaths)
{
    CString path = PathOfPhotograph(items, pathItems, root);
    if (imagePath != path && !MibIsFileExist(imagePath)) imagePath = std::move(path);
    const CStringArray kept = ExistingOf(picturePaths, MibIsFileExist);
    picturePaths.RemoveAll();
    for (const ToviItem& item : items) {
        if (IsUsableDrawing(item, pathItems)) {
            picturePaths.Add(KeptOrNewPath(kept, root, item.GetValue()));
        }
    }
}

void FindMissingNames(const ToviItemArray& items, const PhotoPathItems& pathItems,
                      const CString& imagePath, const CStringArray& picturePaths,
                      CStringArray& names, const IsFileThere& isThere)
{
    const CStringArray existing = ExistingOf(picturePaths, isThere);
    for (const ToviItem& item : items) {
        const CString& value = item.GetValue();
        if (!IsUsable(value)) continue;
        // One drawing that exists stands for all of them: the names are compared with the front of
        // the paths found, where a bare file name never is.
        const bool found =
            std::any_of(existing.begin(), existing.end(),
                        [&value](const CString& path) { return !path.starts_with(value); });
        if (IsDrawing(item, pathItems) && !found) names.Add(value);
        if (IsPhotograph(item, pathItems) && !isThere(imagePath)) names.Add(value);
    }
}
