#include "review/RecordMerge.h"

#include <gtest/gtest.h>

namespace
{
/// One photograph of each way in which two can have changed it: "5無" is the free label with a
/// comment.
struct Way
{
    const char* base;
    const char* mine;
    const char* theirs;
    const char* ifMine;
    const char* ifTheirs;
};

constexpr Way ways[] = {
    {"", "", "", "", ""},
    {"", "0", "", "0", "0"},
    {"", "", "1無", "1無", "1無"},
    {"0", "", "0", "", ""},
    {"4前", "4前", "", "", ""},
    {"", "0", "0", "0", "0"},
    {"", "0", "1", "0", "1"},
    {"0", "", "01", "", "01"},
    {"5", "5無", "5有", "5無", "5有"},
    {"5", "05", "5有", "05", "5有"},
};

PhotoReview Read(std::string_view text)
{
    PhotoReview review;
    for (; !text.empty() && text.front() >= '0' && text.front() <= '5'; text.remove_prefix(1)) {
        review.labels.set(static_cast<std::size_t>(text.front() - '0'));
    }
    review.comment = text;
    return review;
}

PhotoReviews Column(const char* Way::*column)
{
    PhotoReviews reviews;
    for (const Way& way : ways) reviews.push_back(Read(way.*column));
    return reviews;
}

TEST(RecordMerge, TakesWhatOneHasChangedAndTellsWhatBothHave)
{
    const RecordMerge merge(Column(&Way::base), Column(&Way::mine), Column(&Way::theirs));
    EXPECT_EQ(merge.Merged(RecordMerge::Side::Mine), Column(&Way::ifMine));
    EXPECT_EQ(merge.Merged(RecordMerge::Side::Theirs), Column(&Way::ifTheirs));
    EXPECT_EQ(merge.Contradictions(), (std::vector<int>{6, 7, 8, 9}));
    EXPECT_EQ(merge.CountOf(RecordMerge::Side::Mine), 7);
    EXPECT_EQ(merge.CountOf(RecordMerge::Side::Theirs), 7);
}
} // namespace
