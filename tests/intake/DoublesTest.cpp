#include "intake/DeliveryRegister.h"
#include "sample/SampleDamage.h"
#include "support/OpenedSample.h"

#include <gmock/gmock.h>

#include <QPainter>

#include <algorithm>
#include <tuple>

namespace
{
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// Kind and both photographs.
using Told = std::tuple<PhotoPair::Kind, int, int>;

bool GoOn(int, int)
{
    return true;
}

std::vector<PhotoMarks> MarksIn(const CString& folder)
{
    const TestHost services;
    NotingDocument host;
    const OpenedDelivery opened = OpenDelivery(host, folder, std::nullopt, "");
    const IntakeDelivery delivery(opened, OwnerMlit, *DayOf("2026-01-01"));
    return ReadPhotoMarks(delivery, GoOn);
}

std::vector<Told> DoublesOf(const std::vector<PhotoMarks>& marks,
                            const std::vector<EarlierDelivery>& earlier = {})
{
    std::vector<Told> told;
    for (const PhotoPair& pair : FindDoubles(marks, earlier, GoOn)) {
        told.emplace_back(pair.kind, pair.photo, pair.other);
    }
    return told;
}

CString WrittenSample(const CString& folder, unsigned seed)
{
    // The last one is an SVG photograph.
    DeliveryBuilder({.photos = 9, .drawings = 0, .seed = seed, .tidy = true}).Write(folder);
    return folder;
}

CString PictureOf(const CString& folder, int photo)
{
    return folder + Format("/PHOTO/PIC/P%07d.JPG", photo + 1);
}

void Copy(const CString& folder, int from, int to)
{
    std::filesystem::copy_file(PictureOf(folder, from), PictureOf(folder, to),
                               std::filesystem::copy_options::overwrite_existing);
}

QImage WithoutLeftEdge(const QImage& image)
{
    const int cut = image.width() * 3 / 100;
    return image.copy(cut, 0, image.width() - cut, image.height());
}

/// What another photograph of the same place shows: some strokes of chalk.
QImage WithChalk(const QImage& image)
{
    QImage changed = image;
    QPainter painter(&changed);
    painter.setPen(QPen(Qt::white, 4));
    for (int stroke = 0; stroke < 3; ++stroke) {
        const int x = image.width() / 2 + 12 * stroke;
        painter.drawLine(x, image.height() / 2, x + 8, image.height() / 2 + 40);
    }
    return changed;
}

TEST(Doubles, AreToldByBytesPicturesAndMoments)
{
    const TempFolder temp;
    const CString folder = WrittenSample(temp.Path(), 1);
    for (const int photo : {1, 2, 3, 4, 5}) Copy(folder, 0, photo);
    const auto asItIs = [](const QImage& image) { return image; };
    ChangePicture(PictureOf(folder, 2), asItIs, 60);
    ResizePicture(PictureOf(folder, 3), 700);
    ChangePicture(PictureOf(folder, 4), WithoutLeftEdge);
    ChangePicture(PictureOf(folder, 5), WithChalk);
    const auto own = [](const Told& told) { return std::get<1>(told) == 0; };
    std::vector<Told> told = DoublesOf(MarksIn(folder));
    EXPECT_TRUE(std::ranges::none_of(told, [](const Told& pair) {
        return std::get<0>(pair) == PhotoPair::Picture && std::get<2>(pair) == 5;
    }));
    std::erase_if(told, [&own](const Told& pair) { return !own(pair); });
    EXPECT_THAT(told,
                UnorderedElementsAre(Told(PhotoPair::Bytes, 0, 1), Told(PhotoPair::Picture, 0, 2),
                                     Told(PhotoPair::Picture, 0, 3), Told(PhotoPair::Picture, 0, 4),
                                     Told(PhotoPair::Moment, 0, 5)));
}

TEST(Doubles, AreFoundInTheRegisterOfDeliveriesThatAreGone)
{
    const TempFolder temp;
    const CString earlier = WrittenSample(temp.Path("earlier"), 1);
    const CString present = WrittenSample(temp.Path("present"), 2);
    std::filesystem::copy_file(PictureOf(earlier, 1), PictureOf(present, 2),
                               std::filesystem::copy_options::overwrite_existing);
    std::filesystem::copy_file(PictureOf(earlier, 3), PictureOf(present, 4),
                               std::filesystem::copy_options::overwrite_existing);
    ChangePicture(
        PictureOf(present, 4), [](const QImage& image) { return image; }, 70);
    DeliveryRegister deliveries(temp.Path("register/deliveries.db"));
    const std::vector<PhotoMarks> marks = MarksIn(present);
    const auto identity = [](const CString& folder) {
        return DeliveryIdentity(folder + "/PHOTO/");
    };
    deliveries.Add(identity(earlier), "earlier", earlier, MarksIn(earlier));
    deliveries.Add(identity(earlier), "earlier", earlier, MarksIn(earlier));
    deliveries.Add(identity(present), "present", present, marks);
    std::filesystem::remove_all(earlier);
    EXPECT_THAT(DoublesOf(marks, deliveries.AllBut(identity(present))),
                UnorderedElementsAre(Told(PhotoPair::Bytes, 2, 1), Told(PhotoPair::Picture, 4, 3)));

    ASSERT_EQ(deliveries.List().size(), 2U);
    const RegisteredDelivery first = deliveries.List().front();
    EXPECT_EQ(first.path, earlier);
    EXPECT_EQ(first.photos, 9);
    EXPECT_TRUE(deliveries.Remove(first.id));
    EXPECT_FALSE(deliveries.Remove(first.id));
    EXPECT_THAT(DoublesOf(marks, deliveries.AllBut(identity(present))), IsEmpty());
}
} // namespace
