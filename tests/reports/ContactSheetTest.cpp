#include "reports/ContactSheet.h"
#include "photos/ToviPhoto.h"
#include "support/OpenedSample.h"

#include <gtest/gtest.h>

namespace
{
TEST(ContactSheetLayout, PutsEveryPhotographInItsOwnPlace)
{
    for (const auto& [count, columns] : {std::pair{1, 5}, {5, 5}, {6, 5}, {7, 1}, {60, 7}}) {
        const ContactSheetLayout layout(count, columns);
        for (int position = 0; position < count; ++position) {
            const LumRect place = layout.Thumbnail(position);
            const LumRect title = layout.Title(position);
            EXPECT_GE(place.left, 0);
            EXPECT_LE(place.left + place.width, layout.Width());
            EXPECT_EQ(title.top, place.top + place.height);
            EXPECT_LE(title.top + title.height, layout.Height());
            if (position + columns < count) {
                EXPECT_GE(layout.Thumbnail(position + columns).top, title.top + title.height);
            }
        }
    }
    EXPECT_TRUE(ContactSheetLayout(0, 5).Fits());
    EXPECT_TRUE(ContactSheetLayout(600, 5).Fits());
    EXPECT_FALSE(ContactSheetLayout(100000, 5).Fits());
    EXPECT_FALSE(ContactSheetLayout(2000000000, 100).Fits());
}

TEST(ContactSheet, ShowsWhatCanBeDecodedAndGoesOn)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 3, .drawings = 0}));
    std::filesystem::remove(sample.Photo(1).GetImagePath());
    std::vector<int> reported;
    const ContactSheet made = MakeContactSheet(
        *sample.document, 2, [&reported](int position) { reported.push_back(position); });
    EXPECT_TRUE(made.image.IsValid());
    EXPECT_EQ(made.notShown, 1);
    EXPECT_EQ(made.image.GetWidth(), ContactSheetLayout(3, 2).Width());
    EXPECT_EQ(reported, (std::vector{0, 1, 2}));
    EXPECT_FALSE(sample.Photo(0).GetImage().IsValid()) << "pictures don't stay in memory";
}
} // namespace
