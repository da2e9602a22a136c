#include "support/OpenedSample.h"
#include "windows/pictures/ThumbnailTile.h"

#include <gtest/gtest.h>

namespace
{
TEST(ThumbnailTile, MarksAPhotographWithASingleDrawing)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 1, .drawings = 1, .images = false}));
    ToviPhoto& photo = sample.Photo(0);
    ASSERT_EQ(photo.GetPictureCount(), 1);
    const ThumbnailTile tile;
    const QImage marked = tile.CreateThumbImage(photo, nullptr, {}, 1);
    for (ToviItem& item : photo.GetItems()) {
        if (item.GetDefIndex() == sample.DefIndex("参考図ファイル名")) item.SetValue("");
    }
    photo.MakePath();
    EXPECT_NE(tile.CreateThumbImage(photo, nullptr, {}, 1), marked);
}
} // namespace
