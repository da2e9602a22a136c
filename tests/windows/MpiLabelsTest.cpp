#include "platform/controls/LumImgWnd.h"
#include "review/SlideMode.h"
#include "support/Texts.h"
#include "windows/cell/ToviLabelButton.h"
#include "windows/list/ToviPhotoListCtrl.h"
#include "windows/panel/ToviPopUpMenu.h"
#include "windows/ShownDelivery.h"

#include <gmock/gmock.h>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(MpiLabels, PastesAndRemovesLabels)
{
    ShownDelivery shown(2, Setting::DivideTwo);
    const auto pasted = [&shown] {
        std::vector<unsigned int> found;
        for (unsigned int slot = 0; slot < labelCount; ++slot) {
            if (shown.Photo(0).IsLabelPasted(slot)) found.push_back(slot);
            EXPECT_EQ(shown.Plate(0).Button(slot)->IsPressed(), shown.Photo(0).IsLabelPasted(slot));
        }
        return found;
    };
    shown.data->SetCheckStatusChanged(false);
    shown.panel.PasteLabel(LabelNg1);
    EXPECT_TRUE(shown.data->IsCheckStatusChanged());
    EXPECT_THAT(shown.host.hints, Contains(ToviData::HintPhotoInfoChanged));
    shown.panel.PasteLabel(LabelNg2);
    shown.panel.ToggleLabel(LabelFree);
    EXPECT_THAT(pasted(), ElementsAre(LabelNg1, LabelNg2, LabelFree));
    shown.host.hints.clear();
    QTest::mouseClick(shown.Plate(0).Button(LabelOk), Qt::LeftButton);
    EXPECT_THAT(pasted(), ElementsAre(LabelOk, LabelFree));
    EXPECT_THAT(shown.host.hints, ElementsAre(ToviData::HintPhotoInfoChanged)) << "one edit";
    shown.panel.ToggleLabel(LabelFree);
    shown.panel.ToggleLabel(LabelNg3);
    EXPECT_THAT(pasted(), ElementsAre(LabelNg3));
    shown.panel.PasteLabel(6);
    shown.panel.OnRemoveAllLabel();
    EXPECT_THAT(pasted(), IsEmpty());

    shown.panel.PasteLabel(LabelOk);
    shown.data->SetCheckStatusChanged(false);
    shown.panel.AllPhotoAllLabelRemove();
    EXPECT_THAT(pasted(), IsEmpty());
    EXPECT_TRUE(shown.data->IsCheckStatusChanged());
}

TEST(MpiLabels, ShowsCommentsOverThePhotographs)
{
    ShownDelivery shown(3, Setting::DivideTwo);
    shown.AnswerComment("　舗装厚を確認 ");
    shown.panel.PasteLabel(LabelComment);
    EXPECT_EQ(shown.Photo(0).GetComment(), "　舗装厚を確認 ");
    EXPECT_TRUE(shown.Photo(0).IsLabelPasted(LabelComment));
    EXPECT_THAT(shown.Strips(), ElementsAre("　舗装厚を確認 "));
    const auto* const image = shown.Cells()[0]->findChild<LumImgWnd*>();
    const auto* const strip = shown.Cells()[0]->findChild<ToviCommentWindow*>();
    EXPECT_EQ(strip->width(), image->width());
    EXPECT_EQ(strip->geometry().bottom() + 1, image->y()) << "the photograph makes room";

    shown.panel.OperateNextPage();
    EXPECT_THAT(shown.Strips(), IsEmpty());
    shown.panel.OperatePrevPage();
    EXPECT_THAT(shown.Strips(), testing::SizeIs(1));
    shown.Set([](Setting& setting) { setting.SetVisibleComment(false); });
    EXPECT_THAT(shown.Strips(), IsEmpty());
    shown.Set([](Setting& setting) { setting.SetVisibleComment(true); });
    EXPECT_THAT(shown.Strips(), testing::SizeIs(1));

    shown.AnswerComment("二枚目");
    QTest::mouseClick(shown.Plate(1).Button(LabelComment), Qt::LeftButton);
    EXPECT_EQ(shown.Selected(), 1);
    shown.AnswerComment("書き直し");
    QTest::mouseDClick(shown.Cells()[0]->findChild<ToviCommentWindow*>(), Qt::LeftButton);
    EXPECT_EQ(shown.Selected(), 0);
    EXPECT_THAT(shown.Strips(), ElementsAre("書き直し", "二枚目"));

    shown.AnswerComment(" 　");
    shown.panel.ToggleLabel(LabelComment);
    EXPECT_FALSE(shown.Photo(0).IsLabelPasted(LabelComment));
    EXPECT_EQ(shown.Photo(0).GetComment(), "");
    EXPECT_THAT(shown.Strips(), ElementsAre("二枚目"));

    shown.data->SetCheckStatusChanged(false);
    shown.panel.OperateNextPhoto();
    shown.host.hints.clear();
    shown.AnswerComment(nullptr);
    QTest::mouseClick(shown.Plate(0).Button(LabelComment), Qt::LeftButton);
    EXPECT_FALSE(shown.data->IsCheckStatusChanged()) << "who gives up has changed nothing";
    EXPECT_THAT(shown.host.hints, ElementsAre(ToviData::HintPhotoSelected));
    EXPECT_FALSE(shown.Plate(0).Button(LabelComment)->IsPressed());
    EXPECT_THROW(shown.panel.UpdateComment(2, "x"), InvalidArgument);

    // The second one is corrected, with all others, in one go.
    shown.services.user.options = {2};
    shown.services.user.answers = {MessageAnswer::Ok};
    EXPECT_TRUE(shown.data->AllLabelCorrection());
    EXPECT_THAT(shown.Strips(), IsEmpty());
    EXPECT_FALSE(shown.Plate(1).Button(LabelComment)->IsPressed());
}

TEST(MpiLabels, ShowsWhatAnotherWindowChanges)
{
    ShownDelivery shown(3, Setting::DivideTwo);
    QWidget window;
    window.resize(1000, 700);
    ToviMpiPanel other(&shown.host);
    other.Create(&window, 2);
    other.resize(window.size());
    other.Attach(shown.data.get());
    window.show();
    shown.host.panels.push_back(&other);
    Setting setting = shown.data->GetVisualSetting();
    // The comment is the only column, and so in sight.
    setting.SetItemShowSettings({});
    for (const auto mode : {Setting::DivideTwo, Setting::DivideThumbnails, Setting::DivideList}) {
        setting.SetDivType(mode);
        other.SetVisualSetting(setting, true);
        QTest::qWait(0);
        QImage last = other.grab().toImage();
        const auto hasChanged = [&] {
            const QImage now = other.grab().toImage();
            return std::exchange(last, now) != now;
        };
        ASSERT_FALSE(hasChanged());
        shown.AnswerComment("確認");
        shown.panel.PasteLabel(LabelComment);
        EXPECT_TRUE(hasChanged()) << "the comment, in mode " << mode;
        shown.panel.ToggleLabel(LabelNg1);
        EXPECT_EQ(hasChanged(), mode != Setting::DivideList) << "the label, in mode " << mode;
        shown.panel.OnRemoveAllLabel();
    }
}

TEST(MpiLabels, OffersTheLabelsInAMenu)
{
    ShownDelivery shown(2, Setting::DivideTwo);
    SetSlideMode(true);
    shown.Click(1, Qt::RightButton);
    SetSlideMode(false);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_THAT(Texts(shown.services.user.Messages()),
                ElementsAre("スライドモード中は右クリック操作はできません。"));

    shown.data->GetLabelManager()->GetLabelAttribute(LabelNg1).SetName("A&B");
    shown.Click(1, Qt::RightButton);
    EXPECT_EQ(shown.Selected(), 1);
    auto* menu = qobject_cast<ToviPopUpMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    // 付箋の貼り付け, and there the second.
    QTest::keyClick(menu, Qt::Key_S);
    QWidget* const paste = QApplication::activePopupWidget();
    EXPECT_EQ(paste->actions()[1]->text(), QStringLiteral("A&&B"));
    if (paste->actions()[0] == qobject_cast<QMenu*>(paste)->activeAction())
        QTest::keyClick(paste, Qt::Key_Down);
    QTest::keyClick(paste, Qt::Key_Return);
    EXPECT_TRUE(shown.Photo(1).IsLabelPasted(LabelNg1));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);

    shown.panel.ShowPopUpMenu();
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_R);
    const QList<QAction*> remove = QApplication::activePopupWidget()->actions();
    EXPECT_FALSE(remove[0]->isEnabled());
    EXPECT_TRUE(remove[1]->isEnabled());
    EXPECT_EQ(remove.last()->text(), QStringLiteral("全て"));
    remove.last()->trigger();
    EXPECT_FALSE(shown.Photo(1).IsLabelPasted(LabelNg1));
    shown.panel.Detach();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST(MpiLabels, LabelsAndCommentsInTheLists)
{
    ShownDelivery shown(40, Setting::DivideThumbnails);
    EXPECT_EQ(shown.Selected(), 0);
    shown.panel.ToggleLabel(LabelNg1);
    EXPECT_TRUE(shown.Photo(0).IsLabelPasted(LabelNg1));
    EXPECT_TRUE(shown.panel.SelectNextUnchecked());
    EXPECT_EQ(shown.Selected(), 1);
    shown.AnswerComment("二枚目");
    shown.panel.ToggleLabel(LabelComment);
    EXPECT_THAT(shown.Strips(), ElementsAre("二枚目"));
    auto* const list = shown.panel.findChild<ToviPhotoListCtrl*>();
    const QList<ToviCommentWindow*> strips = list->findChildren<ToviCommentWindow*>();
    const auto strip = std::ranges::find_if(strips, &ToviCommentWindow::isVisible);
    ASSERT_NE(strip, strips.end());
    EXPECT_EQ((*strip)->geometry().center().x(), list->GetItemRect(1).center().x());
    EXPECT_LT(strips.size(), 40) << "only what is in sight has one";

    shown.panel.OperateNextPhoto();
    QTest::mouseClick(*strip, Qt::LeftButton);
    EXPECT_EQ(shown.Selected(), 1);
    shown.AnswerComment("書き直し");
    QTest::mouseDClick(*strip, Qt::LeftButton);
    EXPECT_THAT(shown.Strips(), ElementsAre("書き直し"));
    shown.Press(Qt::Key_End);
    EXPECT_EQ(shown.Selected(), 39);
    EXPECT_THAT(shown.Strips(), IsEmpty()) << "scrolled away";
    shown.Press(Qt::Key_Home);
    EXPECT_THAT(shown.Strips(), ElementsAre("書き直し"));

    for (const Setting::DivideType mode : {Setting::DivideList, Setting::DivideSix,
                                           Setting::DivideThumbnails, Setting::DivideList}) {
        shown.SetMode(mode);
        EXPECT_EQ(shown.panel.findChildren<ToviPhotoListCtrl*>().size(), mode > 4 ? 1 : 0);
        EXPECT_EQ(shown.Selected(), 0) << mode;
    }
    shown.panel.setFocus();
    shown.Press(Qt::Key_Down);
    EXPECT_EQ(shown.Selected(), 1);
    shown.panel.RemoveLabel(LabelComment);
    EXPECT_EQ(shown.Photo(1).GetComment(), "");
    EXPECT_THAT(shown.Strips(), IsEmpty());
    shown.panel.ShowPopUpMenu();
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    shown.panel.AllPhotoAllLabelRemove();
    shown.panel.Detach();
}
} // namespace
