#include "review/ToviXmlManager.h"

#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "work/WorkFolder.h"

namespace
{
constexpr const char* headerTemplate = "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n"
                                       "<!DOCTYPE examinationdata SYSTEM \"\">\n"
                                       "<DAMY/>\n";

bool LoadTemplate(DoxDocument& document)
{
    const CString folder = SuiteFolder();
    MibCreateDirectory(folder);
    return document.LoadThroughFile(folder + "HeaderExamination.tmp", headerTemplate);
}
} // namespace

bool ToviXmlManager::Find(const char* tag)
{
    if (iterator == nullptr || !iterator->Root()) return false;
    while (!iterator->IsTag(tag)) {
        if (!iterator->Next()) return false;
    }
    return true;
}

bool ToviXmlHeaderManager::Make()
{
    document.Initiate();
    if (!LoadTemplate(document)) {
        const HostServices& host = GetHostServices();
        if (host.userInterface != nullptr) {
            host.userInterface->ShowMessage("エラー発生", host.applicationName, MessageButtons::Ok,
                                            MessageIcon::Error);
        }
        return false;
    }
    iterator = std::make_unique<DoxIterator>(&document);
    iterator->Root();
    iterator->Remove();
    iterator->Root();
    return true;
}
