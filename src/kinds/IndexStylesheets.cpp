#include "kinds/IndexStylesheets.h"

#include "kinds/DeliveryFamilies.h"
#include "kinds/StylesheetRows.h"
#include "platform/files/MibFile.h"
#include "platform/files/TextHead.h"

#include <algorithm>

namespace
{
constexpr std::string_view workWord = "constdata SYSTEM";
constexpr std::string_view consultingWord = "gyomudata SYSTEM";
constexpr std::string_view digits = "0123456789";

bool Holds(const CString& line, std::string_view word)
{
    return line.find(word) != CString::npos;
}

std::span<const StylesheetRow> RowsFor(const CString& doctypeLine)
{
    if (Holds(doctypeLine, consultingWord)) return consultingStylesheets;
    if (Holds(doctypeLine, workWord)) return workStylesheets;
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
    if (family < 0 || family >= static_cast<int>(deliveryFamilies.size())) return {};
    const auto rows = RowsFor(doctypeLine);
    const auto isFamilys = [family](const StylesheetRow& row) {
        return row.byFamily[static_cast<std::size_t>(family)] != nullptr;
    };
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const StylesheetRow& row) {
        return isFamilys(row) && Holds(doctypeLine, row.dtd);
    });
    if (found != rows.end()) return {found->byFamily[static_cast<std::size_t>(family)], ""};
    // The rows of one series go from the oldest to the newest.
    for (std::size_t i = rows.size(); i-- > 0;) {
        if (!isFamilys(rows[i])) continue;
        const CString dtd = DtdOfSeries(doctypeLine, SeriesOf(rows[i]));
        if (!dtd.empty() && !IsKnown(rows, dtd))
            return {rows[i].byFamily[static_cast<std::size_t>(family)], dtd};
    }
    return {};
}
