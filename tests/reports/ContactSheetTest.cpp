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
    for (const int shown : {3, 0}) {
        if (shown == 0) sample.document->SetCurPhotoArray(false, false);
        std::string bytes;
        const ContactSheetLayout layout(shown, 2);
        LumStripWriter writer(LumPng, 2, layout.Width(), layout.Height(),
                              [&](std::string_view more) {
                                  bytes += more;
                                  return true;
                              });
        std::vector<int> reported;
        const auto report = [&reported](int position) { reported.push_back(position); };
        const auto notShown = WriteContactSheet(*sample.document, layout, writer, report);
        EXPECT_EQ(notShown, shown / 3);
        EXPECT_EQ(static_cast<int>(reported.size()), shown);
        EXPECT_TRUE(std::is_sorted(reported.begin(), reported.end()));
        LumImage sheet;
        ASSERT_TRUE(sheet.Load(sample.temp.Write("sheet.png", bytes).c_str()));
        EXPECT_EQ(sheet.GetHeight(), layout.Height());
    }
}

TEST(ContactSheet, EndsWhenNobodyTakesIt)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 3, .drawings = 0}));
    const ContactSheetLayout layout(3, 1);
    for (const LumImageType type : {LumPng, LumJpeg}) {
        LumStripWriter writer(type, 2, layout.Width(), layout.Height(),
                              [](std::string_view) { return false; });
        EXPECT_FALSE(WriteContactSheet(*sample.document, layout, writer, [](int) {}));
    }
}
} // namespace
