#include "platform/sheets/SpreadsheetApplication.h"

#include "platform/files/MibFile.h"

#include <dlfcn.h>
#include <sys/stat.h>

namespace
{
/// Without the office's libraries the module can't be loaded. It is never unloaded: threads of
/// those libraries outlive what they were made for.
StartSpreadsheetEntry* LoadEntry()
{
    const CString path = MibBesideProgram(spreadsheetModuleName);
    if (path.empty()) return nullptr;
    void* const module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (module == nullptr) return nullptr;
    return reinterpret_cast<StartSpreadsheetEntry*>(dlsym(module, spreadsheetEntryName));
}

bool Exists(const CString& path)
{
    struct stat facts;
    return lstat(path.c_str(), &facts) == 0;
}
} // namespace

std::unique_ptr<SpreadsheetApplication> StartSpreadsheet(const CString& folder,
                                                         const std::function<bool()>& giveUp)
{
    StartSpreadsheetEntry* const entry = LoadEntry();
    if (entry == nullptr) return nullptr;
    return std::unique_ptr<SpreadsheetApplication>(entry(folder, giveUp));
}

bool IsOpenInOffice(const CString& path)
{
    const CString name = MibGetFileName(path);
    const CString folder = path.substr(0, path.size() - name.size());
    return Exists(folder + ".~lock." + name + '#') || Exists(folder + "~$" + name);
}
