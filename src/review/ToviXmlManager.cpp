#include "review/ToviXmlManager.h"

namespace
{
constexpr const char* headerTemplate = "<?xml version=\"1.0\" encoding=\"Shift_JIS\"?>\n"
                                       "<!DOCTYPE examinationdata SYSTEM \"\">\n"
                                       "<DAMY/>\n";
} // namespace

bool ToviXmlManager::Find(const char* tag)
{
    if (iterator == nullptr || !iterator->Root()) return false;
    while (!iterator->IsTag(tag)) {
        if (!iterator->Next()) return false;
    }
    return true;
}

ToviXmlHeaderManager::ToviXmlHeaderManager()
{
    document.LoadText(headerTemplate);
    iterator.Root();
    iterator.Remove();
    iterator.Root();
}
