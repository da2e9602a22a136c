#include "loading/WorkTitle.h"

#include "kinds/IndexStylesheets.h"
#include "platform/xml/DoxDocument.h"
#include "platform/xml/DoxIterator.h"

#include <algorithm>
#include <iterator>

CString ReadWorkTitle(const CString& parentPath)
{
    constexpr std::string_view titles[] = {"工事名称", "工事件名等"};
    const CString path = FindIndexFile(parentPath);
    DoxDocument index;
    if (path.empty() || !index.Initiate() || !index.Load(path, false, nullptr)) return {};
    DoxIterator element(&index);
    if (!element.Root()) return {};
    do {
        const bool isTitle = std::any_of(std::begin(titles), std::end(titles),
                                         [&](std::string_view tag) { return element.IsTag(tag); });
        if (!isTitle) continue;
        if (CString title = Trimmed(element.GetText()); !title.empty()) return title;
    } while (element.Next());
    return {};
}
