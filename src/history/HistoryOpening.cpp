#include "history/HistoryOpening.h"

#include "delivery/ToviData.h"
#include "history/HistoryPlace.h"

namespace
{
/// The file \p path, claimed by \p owner; null when it can't be opened now.
std::unique_ptr<HistoryFile> OpenFile(const CString& path, const CString& owner)
{
    try {
        auto file = std::make_unique<HistoryFile>(path);
        file->Claim(owner);
        return file;
    } catch (const DatabaseError&) {
        // The writer tries again, and tells why.
        return nullptr;
    }
}
} // namespace

std::unique_ptr<InspectionHistory> OpenHistory(ToviData& document)
{
    const CString path = HistoryPathOf(document.RootPath());
    PastInspection inspection = InspectionHistory::New(document.GetTotalCountPhoto());
    const CString owner = std::to_string(inspection.id);
    std::unique_ptr<HistoryFile> file = OpenFile(path, owner);
    return std::make_unique<InspectionHistory>(document, std::move(inspection), path, owner,
                                               std::move(file));
}
