#include "review/ToviXmlLoadManager.h"

#include "work/ToviProgressDlg.h"

#include <algorithm>
#include <cstdlib>

ToviXmlLoadManager::ToviXmlLoadManager(const char* recordPath, const char* deliveryRoot)
    : ToviXmlManager(recordPath, deliveryRoot), place(&document)
{
    document.Initiate();
    document.KeepInstructions();
    // A file that can't be read leaves an empty tree, in which nothing will be found.
    if (document.Load(path, false, nullptr)) iterator = &place;
}

bool ToviXmlLoadManager::Load(PhotoReviews& reviews, int* result)
{
    const int count = static_cast<int>(reviews.size());
    if (const std::optional<RecordFailure> failure = WhyNot(count)) {
        *result = *failure;
        return false;
    }
    ToviProgressDlg progress(true);
    progress.SetCancelBtnEnabled(false);
    progress.Begin(count);
    for (int index = 0; index < count; ++index) {
        while (!place.IsTag(RecordTags::photo)) place.NextSibling();
        Apply(ReadEntry(), reviews[static_cast<std::size_t>(index)]);
        place.NextSibling();
        progress.SetMessage("検査状況読み込み中　", index + 1, count);
        progress.StepIt();
    }
    return true;
}

std::optional<RecordFailure> ToviXmlLoadManager::WhyNot(int count)
{
    if (!Find(RecordTags::photoCount) || ReadCount() != count) return RecordCountDiffers;
    if (!Find(RecordTags::states) || !place.Child()) return RecordNoStates;
    if (CountEntries() < count) return RecordCountDiffers;
    if (expected && !Origin().DifferenceFrom(*expected).empty()) return RecordOtherDelivery;
    return std::nullopt;
}

int ToviXmlLoadManager::CountEntries() const
{
    int count = 0;
    DoxIterator entry = place;
    do {
        count += entry.IsTag(RecordTags::photo);
    } while (entry.NextSibling());
    return count;
}

long ToviXmlLoadManager::ReadCount() const
{
    return std::strtol(place.GetText().c_str(), nullptr, 10);
}

ToviXmlLoadManager::Entry ToviXmlLoadManager::ReadEntry()
{
    Entry entry;
    if (!place.Child()) return entry;
    do {
        ReadField(entry);
    } while (place.NextSibling());
    place.Parent();
    return entry;
}

void ToviXmlLoadManager::ReadField(Entry& entry) const
{
    const std::string_view tag = place.TagName();
    if (tag == RecordTags::comment) {
        entry.comment = place.GetText();
        return;
    }
    const auto* label =
        std::find(std::begin(RecordTags::labels), std::end(RecordTags::labels), tag);
    if (label == std::end(RecordTags::labels)) return;
    const CString text = place.GetText();
    if (text == "0" || text == "1")
        entry.labels[label - std::begin(RecordTags::labels)] = text == "1";
}

void ToviXmlLoadManager::Apply(Entry entry, PhotoReview& review)
{
    if (entry.comment) review.comment = std::move(*entry.comment);
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        if (entry.labels[slot]) review.labels[slot] = *entry.labels[slot];
    }
}
