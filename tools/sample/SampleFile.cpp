#include "sample/SampleFile.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>

SampleFile::SampleFile(const CString& path)
    : filePath(path), file(std::fopen(path.c_str(), "wb"), &std::fclose)
{
    if (!file) Fail();
}

void SampleFile::Append(std::string_view bytes)
{
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) Fail();
}

void SampleFile::Close()
{
    if (std::fclose(file.release()) != 0) Fail();
}

void SampleFile::Fail() const
{
    throw std::runtime_error("cannot write \"" + filePath + "\": " + std::strerror(errno));
}

void WriteSampleFile(const CString& path, std::string_view bytes)
{
    SampleFile file(path);
    file.Append(bytes);
    file.Close();
}

void MakeSampleFolder(const CString& path)
{
    std::error_code error;
    std::filesystem::create_directories(path, error);
    if (error) {
        throw std::runtime_error("cannot make the folder \"" + path + "\": " + error.message());
    }
}
