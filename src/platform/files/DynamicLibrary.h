#pragma once

#include "platform/text/Text.h"

#include <memory>

/// The file of the library \p name (without the platform's ending) in the folder of the program;
/// empty when there is none.
TOVI_EXPORT CString FindLibraryBesideProgram(const CString& name);

/// A library of an outside party, loaded while the object lives. Its code runs inside the program,
/// so it is loaded by full path alone, never from where the system would search for it.
class TOVI_EXPORT DynamicLibrary
{
public:
    /// No library.
    DynamicLibrary();
    /// Loads the regular file of the full path \p path. What is missing, no library or lacks
    /// something that it needs leaves the object without one.
    explicit DynamicLibrary(const CString& path);

    bool IsLoaded() const { return handle != nullptr; }
    /// The function \p name, which the caller knows to be a \p Signature; null when the library has
    /// none or isn't loaded. Valid as long as the library is loaded.
    template <class Signature>
    Signature* Function(const char* name) const
    {
        return reinterpret_cast<Signature*>(Find(name));
    }

private:
    void* Find(const char* name) const;

    std::unique_ptr<void, void (*)(void*)> handle;
};
