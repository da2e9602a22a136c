#pragma once

#include "platform/text/Text.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

/// The bytes and the time of change by path.
using FileTree = std::map<CString, std::pair<CString, std::filesystem::file_time_type>>;

/// All that is under \p folder.
inline FileTree ReadFileTree(const CString& folder)
{
    FileTree files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        CString bytes;
        if (entry.is_regular_file()) {
            std::ifstream file(entry.path(), std::ios::binary);
            bytes.assign(std::istreambuf_iterator<char>(file), {});
        }
        files[entry.path()] = {bytes, entry.last_write_time()};
    }
    return files;
}
