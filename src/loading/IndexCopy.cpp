#include "loading/IndexCopy.h"

#include "kinds/IndexStylesheets.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/Digest.h"
#include "platform/files/FolderLock.h"
#include "platform/files/MibFile.h"
#include "work/ListingFailure.h"
#include "work/WorkFolder.h"

#include <chrono>
#include <filesystem>
#include <optional>

namespace
{
constexpr std::string_view instructionStart = "<?xml-stylesheet";
constexpr std::string_view instructionWord = "xml-stylesheet";
constexpr std::string_view instructionEnd = "?>";
constexpr std::string_view rootWord = "DTD_version";
constexpr const char* copyFolderName = "IndexCopy";
/// How long a copy stays that nobody makes again.
constexpr std::chrono::hours longestStay(30 * 24);
constexpr std::size_t notFound = std::string_view::npos;

/// The characters from the first to behind the last, which the new instruction replaces.
struct Range
{
    std::size_t first;
    std::size_t end;
};

std::size_t LineStart(std::string_view text, std::size_t at)
{
    return at == 0 ? 0 : text.rfind('\n', at - 1) + 1;
}

std::size_t NextLine(std::string_view text, std::size_t at)
{
    const std::size_t end = text.find('\n', at);
    return end == notFound ? text.size() : end + 1;
}

bool IsBlank(std::string_view text)
{
    return text.find_first_not_of(" \t\r\n") == notFound;
}

/// Where the instruction around the word at \p word stands: its whole lines when nothing else
/// stands on them. The root element may follow on the same line and has to stay.
Range InstructionAt(std::string_view text, std::size_t word)
{
    const Range line = {LineStart(text, word), NextLine(text, word)};
    const std::size_t first = word - (instructionStart.size() - instructionWord.size());
    const std::size_t end = text.find(instructionEnd, word);
    const bool isInstruction =
        word >= 2 && end != notFound && text.substr(first).starts_with(instructionStart);
    if (!isInstruction) return line;
    const std::size_t behind = end + instructionEnd.size();
    const std::size_t next = NextLine(text, behind);
    return {IsBlank(text.substr(line.first, first - line.first)) ? line.first : first,
            IsBlank(text.substr(behind, next - behind)) ? next : behind};
}

/// The place in front of the root element whose attribute stands at \p word: the line that it
/// begins on, unless the XML declaration stands on it too.
Range InFrontOfRoot(std::string_view text, std::size_t word)
{
    const std::size_t tag = text.rfind('<', word);
    if (tag == notFound) return {LineStart(text, word), LineStart(text, word)};
    const std::size_t line = LineStart(text, tag);
    const std::size_t first = IsBlank(text.substr(line, tag - line)) ? line : tag;
    return {first, first};
}

/// Where the new instruction goes: whichever of the two words comes on the earlier line tells.
std::optional<Range> PlaceForInstruction(std::string_view text)
{
    const std::size_t instruction = text.find(instructionWord);
    const std::size_t root = text.find(rootWord);
    if (instruction != notFound && (root == notFound || instruction < NextLine(text, root))) {
        return InstructionAt(text, instruction);
    }
    if (root != notFound) return InFrontOfRoot(text, root);
    return std::nullopt;
}

/// UTF-16 as it can come: its byte order mark, else the first character, tells.
struct Width
{
    std::size_t bytesPerUnit;
    /// Which byte of a unit holds an ASCII character.
    std::size_t asciiByte;
};

Width WidthOf(std::string_view xml)
{
    using namespace std::string_view_literals;
    if (xml.starts_with("\xFF\xFE"sv) || xml.starts_with("<\0"sv)) return {2, 0};
    if (xml.starts_with("\xFE\xFF"sv) || xml.starts_with("\0<"sv)) return {2, 1};
    return {1, 0};
}

/// \p xml with one byte for each unit: its ASCII character, or NUL.
std::string Narrow(std::string_view xml, Width width)
{
    std::string narrow(xml.size() / 2, '\0');
    for (std::size_t i = 0; i < narrow.size(); ++i) {
        const bool isAscii = xml[2 * i + 1 - width.asciiByte] == '\0';
        if (isAscii) narrow[i] = xml[2 * i + width.asciiByte];
    }
    return narrow;
}

std::string Widened(std::string_view ascii, Width width)
{
    std::string wide(ascii.size() * width.bytesPerUnit, '\0');
    for (std::size_t i = 0; i < ascii.size(); ++i)
        wide[i * width.bytesPerUnit + width.asciiByte] = ascii[i];
    return wide;
}

/// The folder of the copy for this index file and stylesheet, the same in every run. What two
/// programs put there at once is the same.
CString NameOfCopy(const CString& indexPath, const CString& stylesheetPath)
{
    return TextDigest(MibAbsolutePath(indexPath) + '\n' + stylesheetPath);
}

/// Removes from \p copies what nobody has made again for long.
void RemoveOldCopies(const CString& copies)
{
    const auto oldest = std::filesystem::file_time_type::clock::now() - longestStay;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(copies, ignored)) {
        const auto time = entry.last_write_time(ignored);
        if (!ignored && time < oldest) std::filesystem::remove_all(entry.path(), ignored);
    }
}

/// Copies the file \p from into \p folder under its own name.
void CopyInto(const CString& folder, const CString& from)
{
    const auto bytes = MibReadFile(from, largestIndexFile);
    if (bytes) static_cast<void>(WriteWorkFile(folder + MibGetFileName(from), *bytes));
}

/// The last DTD in \p folder that lies there in truth, or empty. Nothing, after a message, when it
/// can't be looked for.
std::optional<CString> FindDtd(const CString& folder)
{
    constexpr const char* pattern = "*.DTD";
    bool isWhole = true;
    CString last;
    for (const CString& path : MibFileFind(folder, pattern, &isWhole)) {
        if (MibIsInside(folder, path)) last = path;
    }
    if (isWhole) return last;
    TellNotListed(folder + pattern, MessageIcon::Error);
    return std::nullopt;
}
} // namespace

CString IndexCopyFolder()
{
    const CString suite = SuiteFolder();
    return suite.empty() ? suite : suite + copyFolderName;
}

std::string WithStylesheet(std::string xml, const CString& name)
{
    const Width width = WidthOf(xml);
    const std::string narrow = width.bytesPerUnit == 1 ? std::string() : Narrow(xml, width);
    const std::string_view text = width.bytesPerUnit == 1 ? xml : narrow;
    const bool isCut = xml.size() % width.bytesPerUnit != 0;
    const bool endsInLine = text.empty() || text.back() == '\n' || isCut;
    const auto place = PlaceForInstruction(text);
    if (!endsInLine) xml += Widened("\n", width);
    if (!place) return xml;
    const CString line = Format("<?xml-stylesheet type=\"text/xsl\" href=\"%s\"?>\n", name.c_str());
    return xml.replace(place->first * width.bytesPerUnit,
                       (place->end - place->first) * width.bytesPerUnit, Widened(line, width));
}

CString MakeIndexCopy(const CString& indexPath, const CString& stylesheetPath)
{
    const CString copies = IndexCopyFolder();
    if (copies.empty() || !MibCreateDirectory(copies)) return {};
    CString source = indexPath;
    MibParentDir(source);
    // Neither a link out of the delivery is followed nor a delivery overwritten that lies here.
    if (!MibIsInside(source, indexPath) || MibIsInside(copies, indexPath)) return {};
    if (stylesheetPath.find('/') == CString::npos) return {};
    const auto bytes = MibReadFile(indexPath, largestIndexFile);
    const std::optional<CString> dtd = FindDtd(source);
    if (!bytes || !dtd) return {};
    const CString folder = copies + '/' + NameOfCopy(indexPath, stylesheetPath) + '/';
    const CString copy = folder + MibGetFileName(indexPath);
    const FolderLock lock(copies);
    RemoveOldCopies(copies);
    if (!MibCreateDirectory(folder) ||
        !WriteWorkFile(copy, WithStylesheet(*bytes, MibGetFileName(stylesheetPath)))) {
        return {};
    }
    // A browser shows the page without its DTD, and the failure of the other shows in the page.
    CopyInto(folder, *dtd);
    CopyInto(folder, stylesheetPath);
    return copy;
}
