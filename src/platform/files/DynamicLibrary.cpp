#include "platform/files/DynamicLibrary.h"

#include "platform/files/CaseFallback.h"
#include "platform/files/MibFile.h"

#include <dlfcn.h>

namespace
{
constexpr const char* libraryEnding = ".so";

void* Open(const CString& path)
{
    const CString existing = ExistingPath(path);
    // Anything but a regular file could keep the loader waiting.
    const bool isFile = existing.starts_with('/') && MibIsFileExist(existing);
    return isFile ? dlopen(existing.c_str(), RTLD_NOW | RTLD_LOCAL) : nullptr;
}

void Close(void* handle)
{
    dlclose(handle);
}
} // namespace

CString FindLibraryBesideProgram(const CString& name)
{
    for (const CString& path : MibFileFind(MibProgramPath(), name + libraryEnding)) {
        if (MibIsFileExist(path)) return path;
    }
    return {};
}

DynamicLibrary::DynamicLibrary() : handle(nullptr, Close) {}

DynamicLibrary::DynamicLibrary(const CString& path) : handle(Open(path), Close) {}

void* DynamicLibrary::Find(const char* name) const
{
    return IsLoaded() ? dlsym(handle.get(), name) : nullptr;
}
