#pragma once

#include "review/PhotoReview.h"
#include "review/RecordOrigin.h"
#include "review/RecordTags.h"
#include "review/ToviXmlManager.h"

#include <array>
#include <optional>

/// Reads an inspection record back. What it has no element for keeps its present value.
class ToviXmlLoadManager : public ToviXmlManager
{
public:
    /// \p deliveryRoot may be null.
    ToviXmlLoadManager(const char* recordPath, const char* deliveryRoot);

    /// What the record says of the delivery that it was made of.
    RecordOrigin Origin() const { return RecordOrigin(document.Instruction(RecordTags::origin)); }

    /// Has Load refuse a record that was made of another delivery than \p origin.
    void Expect(RecordOrigin origin) { expected = std::move(origin); }

    /// Changes \p reviews as the record says. False, with a RecordFailure in \p result, before
    /// anything has changed.
    bool Load(PhotoReviews& reviews, int* result);

private:
    /// What one 写真 says.
    struct Entry
    {
        std::optional<CString> comment;
        std::array<std::optional<bool>, labelCount> labels;
    };

    /// Nothing when the record can be loaded into \p count photographs.
    std::optional<RecordFailure> WhyNot(int count);
    long ReadCount() const;
    /// The number of 写真 from the place on.
    int CountEntries() const;
    Entry ReadEntry();
    void ReadField(Entry& entry) const;
    static void Apply(Entry entry, PhotoReview& review);

    std::optional<RecordOrigin> expected;
    DoxDocument document;
    DoxIterator place;
};
