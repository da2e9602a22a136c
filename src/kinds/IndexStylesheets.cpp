#include "kinds/IndexStylesheets.h"

#include "platform/files/MibFile.h"
#include "platform/files/TextHead.h"

#include <algorithm>
#include <span>

namespace
{
constexpr std::string_view workWord = "constdata SYSTEM";
constexpr std::string_view consultingWord = "gyomudata SYSTEM";
constexpr int familyCount = 4;
constexpr std::string_view digits = "0123456789";

/// The stylesheets for one DTD by family; null where a family has none.
struct StylesheetRow
{
    const char* dtd;
    const char* byFamily[familyCount];
};

// The build makes a stylesheet of every path that stands in these tables.

constexpr StylesheetRow workRows[] = {
    {"INDE_C01.DTD", {"MLIT_E/INDEX_C.XSL"}},
    {"INDE_C02.DTD", {"MLIT/INDEX_C.XSL"}},
    {"INDE_C03.DTD", {"MLIT/INDE_C03.XSL", "KOWAN/INDE_C03.XSL", "MAFF/INDE_C03.XSL"}},
    {"INDE_C04.DTD", {"MLIT/INDE_C04.XSL", "KOWAN/INDE_C04.XSL", "MAFF/INDE_C04.XSL"}},
    {"INDE_C05.DTD", {"MLIT/INDE_C05.XSL", "KOWAN/INDE_C05.XSL", "MAFF/INDE_C05.XSL"}},
    {"INDE_C06.DTD", {"MLIT/INDE_C06.XSL", "KOWAN/INDE_C06.XSL"}},
    {"INDE_C07.DTD", {"MLIT/INDE_C07.XSL", "KOWAN/INDE_C07.XSL"}},
    {"INDEC02N.DTD", {nullptr, nullptr, "MAFF/INDEX_CN.XSL"}},
    {"IND_EC03.DTD", {"MLIT_E/INDEX_EC.XSL", "KOWAN_E/INDEX_EC.XSL", "MAFF_E/INDEX_EC.XSL"}},
    {"IND_EC05.DTD", {"MLIT_E/IND_EC05.XSL", "KOWAN_E/IND_EC05.XSL", "MAFF_E/IND_EC05.XSL"}},
    {"IND_MC01.DTD", {"MLIT_M/IND_MC01.XSL", nullptr, "MAFF_M/IND_MC01.XSL"}},
    {"IND_MC02.DTD", {"MLIT_M/IND_MC02.XSL", "KOWAN_M/IND_MC02.XSL", "MAFF_M/IND_MC02.XSL"}},
    {"IND_MC03.DTD", {"MLIT_M/IND_MC03.XSL", "KOWAN_M/IND_MC03.XSL", "MAFF_M/IND_MC03.XSL"}},
    {"PHOT_JH1.DTD", {nullptr, nullptr, nullptr, "MLIT/PHOT_JH1.XSL"}},
    {"PHOT_JH4.DTD", {nullptr, nullptr, nullptr, "NEXCO/PHOT_JH4.XSL"}},
    // Part of the installed set, though the row of the same DTD above always answers first.
    {"INDEC02N.DTD", {nullptr, nullptr, "MAFF_E/INDEX_C.XSL"}},
};

constexpr StylesheetRow consultingRows[] = {
    {"INDE_D02.DTD", {"MLIT/INDEX_D.XSL", nullptr, nullptr, "MLIT/INDEX_D.XSL"}},
    {"INDE_D03.DTD",
     {"MLIT/INDE_D03.XSL", "KOWAN/INDE_D03.XSL", "MAFF/INDE_D03.XSL", "NEXCO/INDE_D03.XSL"}},
    {"INDE_D04.DTD", {"MLIT/INDE_D04.XSL", "KOWAN/INDE_D04.XSL", "MAFF/INDE_D04.XSL"}},
    {"INDE_D05.DTD", {"MLIT/INDE_D05.XSL", "KOWAN/INDE_D05.XSL"}},
    {"INDE_D06.DTD", {"MLIT/INDE_D06.XSL", "KOWAN/INDE_D06.XSL"}},
    {"INDED02N.DTD", {nullptr, nullptr, "MAFF/INDEX_DN.XSL"}},
    {"IND_ED03.DTD", {"MLIT_E/INDEX_ED.XSL", "KOWAN_E/INDEX_ED.XSL", "MAFF_E/INDEX_ED.XSL"}},
    {"IND_ED04.DTD", {"MLIT_E/IND_ED04.XSL", "KOWAN_E/IND_ED04.XSL", "MAFF_E/IND_ED04.XSL"}},
    {"IND_MD01.DTD", {"MLIT_M/IND_MD01.XSL", nullptr, "MAFF_M/IND_MD01.XSL"}},
    {"IND_MD02.DTD", {"MLIT_M/IND_MD02.XSL", "KOWAN_M/IND_MD02.XSL", "MAFF_M/IND_MD02.XSL"}},
    {"IND_MD03.DTD", {"MLIT_M/IND_MD03.XSL", "KOWAN_M/IND_MD03.XSL", "MAFF_M/IND_MD03.XSL"}},
};

bool Holds(const CString& line, std::string_view word)
{
    return line.find(word) != CString::npos;
}

std::span<const StylesheetRow> RowsFor(const CString& doctypeLine)
{
    if (Holds(doctypeLine, consultingWord)) return consultingRows;
    if (Holds(doctypeLine, workWord)) return workRows;
    return {};
}
/// The name of the row's DTD without its number: "INDE_C" of INDE_C07.DTD; empty for one that ends
/// in no number.
std::string_view SeriesOf(const StylesheetRow& row)
{
    const std::string_view dtd = row.dtd;
    const std::string_view name = dtd.substr(0, dtd.find('.'));
    const std::size_t end = name.find_last_not_of(digits) + 1;
    return end < name.size() ? name.substr(0, end) : std::string_view();
}

/// The DTD of \p series that stands in \p line, whatever its number; empty when there is none.
CString DtdOfSeries(std::string_view line, std::string_view series)
{
    constexpr std::string_view extension = ".DTD";
    const std::size_t at = series.empty() ? line.npos : line.find(series);
    if (at == line.npos) return {};
    const std::string_view dtd = line.substr(at);
    const std::size_t end = dtd.find_first_not_of(digits, series.size());
    const bool isDtd =
        end > series.size() && end != dtd.npos && dtd.substr(end).starts_with(extension);
    return isDtd ? CString(dtd.substr(0, end + extension.size())) : CString();
}

bool IsKnown(std::span<const StylesheetRow> rows, const CString& dtd)
{
    return std::any_of(rows.begin(), rows.end(),
                       [&dtd](const StylesheetRow& row) { return dtd == row.dtd; });
}
} // namespace

CString FindIndexFile(const CString& folder,
                      const std::function<void(const CString&)>& tellNotListed)
{
    for (const char* pattern : {"INDEX_*.XML", "PHOTO_*.XML"}) {
        bool isWhole = true;
        const CStringArray found = MibFileFind(folder, pattern, &isWhole);
        if (!isWhole && tellNotListed) tellNotListed(folder + pattern);
        if (!found.IsEmpty()) return found[found.GetSize() - 1];
    }
    return {};
}

CString ReadIndexDoctypeLine(const CString& indexPath)
{
    if (MibFileSize(indexPath) > largestIndexFile) return {};
    return FindHeadLine(indexPath, {consultingWord, workWord}).value_or("");
}

IndexStylesheet FindIndexStylesheet(PhotoXMLType family, const CString& doctypeLine)
{
    if (family < 0 || family >= familyCount) return {};
    const auto rows = RowsFor(doctypeLine);
    const auto isFamilys = [family](const StylesheetRow& row) {
        return row.byFamily[family] != nullptr;
    };
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const StylesheetRow& row) {
        return isFamilys(row) && Holds(doctypeLine, row.dtd);
    });
    if (found != rows.end()) return {found->byFamily[family], ""};
    // The rows of one series go from the oldest to the newest.
    for (std::size_t i = rows.size(); i-- > 0;) {
        if (!isFamilys(rows[i])) continue;
        const CString dtd = DtdOfSeries(doctypeLine, SeriesOf(rows[i]));
        if (!dtd.empty() && !IsKnown(rows, dtd)) return {rows[i].byFamily[family], dtd};
    }
    return {};
}
