#pragma once

#include "items/ToviItem.h"
#include "platform/text/Text.h"

#include <functional>

class ToviItemDef;

/// Whether a file is there and may be read.
using IsFileThere = std::function<bool(const CString& path)>;

/// Which items of a photograph name its files.
struct PhotoPathItems
{
    /// Definition indexes of the reference drawings, those alone that the delivery defines.
    CArray<int> drawings;
    /// Definition index of the photograph's own file; -1 when it isn't defined.
    int photograph = -1;
};

/// \p standAlone: the items hold file names, relative to the delivery; else they hold full paths.
PhotoPathItems FindPhotoPathItems(const ToviItemDef& def, bool standAlone);

/// The paths as the items hold them.
void TakeFullPaths(const ToviItemArray& items, const PhotoPathItems& pathItems, CString& imagePath,
                   CStringArray& picturePaths);

/// The paths under \p root (ending in a path separator) with the delivery's fixed subfolders.
void MakeRelativePaths(const ToviItemArray& items, const PhotoPathItems& pathItems,
                       std::string_view root, CString& imagePath, CStringArray& picturePaths);

/// The same after a change of media: a file that was found under an earlier root keeps its path.
void RebuildRelativePaths(const ToviItemArray& items, const PhotoPathItems& pathItems,
                          std::string_view root, CString& imagePath, CStringArray& picturePaths);

/// Appends the names of the files that are missing to \p names. \p pathItems are those of the
/// stand-alone case.
void FindMissingNames(const ToviItemArray& items, const PhotoPathItems& pathItems,
                      const CString& imagePath, const CStringArray& picturePaths,
                      CStringArray& names, const IsFileThere& isThere);
