// The strip that tells of missing and damaged photographs.

#include "hosts/viewer/NoticeStrip.h"
#include "photos/ToviPhoto.h"
#include "support/Labels.h"
#include "viewer/ShownFrame.h"

#include <QPushButton>
#include <QTabWidget>

#include <filesystem>

namespace
{
/// The strip that begins with \p words; null while there is none.
NoticeStrip* StripWith(const ShownFrame& shown, const char* words)
{
    for (auto* const strip : shown.frame->findChildren<NoticeStrip*>()) {
        const auto* const text = strip->findChild<QLabel*>();
        if (strip->isVisible() && text->text().startsWith(QString::fromUtf8(words))) return strip;
    }
    return nullptr;
}

TEST(FrameSurvey, LeadsFromOneFaultToTheNextAlsoWhereTheyAreHidden)
{
    ShownFrame shown;
    DeliveryBuilder({.photos = 8, .drawings = 0}).Write(shown.temp.Path("whole"));
    ASSERT_TRUE(shown.Open("whole"));
    const std::vector<CString> gone = {shown.Data().GetPhotoActualPhotoArray(2)->GetImagePath(),
                                       shown.Data().GetPhotoActualPhotoArray(5)->GetImagePath()};
    QTest::qWait(300);
    EXPECT_EQ(StripWith(shown, "写真なし"), nullptr);
    for (const CString& path : gone) std::filesystem::remove(path);
    ASSERT_TRUE(shown.Open("whole"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return StripWith(shown, "写真なし 2枚"); }));
    PasteLabel(shown.Data(), 0, LabelNg1);
    shown.frame->findChild<QTabWidget*>()->setCurrentIndex(1);
    shown.Data().SetSelected(static_cast<int>(LabelNg1));
    ASSERT_EQ(shown.Data().GetCurrentPhotoCount(), 1);
    for (const int photo : {2, 5, 2}) {
        NoticeStrip* const strip = StripWith(shown, "写真なし 2枚");
        strip->findChild<QPushButton*>()->click();
        EXPECT_EQ(shown.Data().GetIndexPhotoArray(shown.Selected()), photo);
        const QString told = strip->findChild<QLabel*>()->text();
        EXPECT_TRUE(told.contains(photo == 2 ? QStringLiteral("1 / 2") : QStringLiteral("2 / 2")));
    }
    ASSERT_TRUE(shown.Open());
    EXPECT_TRUE(QTest::qWaitFor([&] { return StripWith(shown, "写真なし 8枚"); }))
        << "of another delivery";
}
} // namespace
