#pragma once

#include "platform/text/Text.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

/// A new empty folder in the system's folder for temporary files, removed with all that is in it at
/// the end of the object's life.
class TempFolder
{
public:
    TempFolder()
    {
        path = (std::filesystem::temp_directory_path() / "tovi-test-XXXXXX").string();
        if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("no folder for the test");
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    /// The folder's full path, without a trailing separator.
    const CString& Path() const { return path; }
    /// The full path of \p name in the folder.
    CString Path(const CString& name) const { return path + '/' + name; }

    /// Writes the file \p name, with the folders on its way, and returns its full path.
    CString Write(const CString& name, std::string_view bytes) const
    {
        const std::filesystem::path file = Path(name);
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << bytes;
        return file.string();
    }

    /// The bytes of the file \p name; empty when there is none.
    CString Read(const CString& name) const
    {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Makes the folder \p name, with those on its way, and returns its full path.
    CString MakeFolder(const CString& name) const
    {
        std::filesystem::create_directories(Path(name));
        return Path(name);
    }

private:
    CString path;
};
