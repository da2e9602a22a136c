#include "review/RecordName.h"

#include "platform/files/MibFile.h"

#include <algorithm>

namespace
{
/// Bytes of the title; a file name has room for 255.
constexpr std::size_t longestTitle = 180;

CString FileNamePart(std::string_view title)
{
    constexpr std::string_view forbidden = "\\/:*?\"<>|";
    CString name;
    while (!title.empty()) {
        const char32_t letter = TakeCodePoint(title);
        const bool isControl = letter < U' ' || letter == 0x7f;
        const bool isForbidden =
            letter < 0x80 && forbidden.find(static_cast<char>(letter)) != std::string_view::npos;
        if (isControl || isForbidden) continue;
        CString longer = name;
        AppendUtf8(longer, letter);
        if (longer.size() > longestTitle) break;
        name = longer;
    }
    name = Trimmed(name);
    // A name that begins with a point would be hidden.
    return name.substr(std::min(name.find_first_not_of('.'), name.size()));
}

CString ProposedPath(const CString& folder, const CString& title, const char* what)
{
    const CString name = FileNamePart(title);
    return folder + '/' + (name.empty() ? what : name + ' ' + what);
}
} // namespace

CString ProposedRecordPath(const CString& folder, const CString& title)
{
    return ProposedPath(folder, title, "検査状況") + ".xml";
}

CString ProposedReportPath(const CString& folder, const CString& title)
{
    return ProposedPath(folder, ReplaceAll(title, ".", "．"), "検査結果");
}

CString ProposedOtherPath(const CString& path)
{
    const CString title = path.substr(0, path.rfind('/') + 1) + FileNamePart(MibGetFileTitle(path));
    for (int number = 2;; ++number) {
        const CString other = title + Format(" (%d)", number) + MibGetExt(path);
        if (!MibIsFileExist(other)) return other;
    }
}
