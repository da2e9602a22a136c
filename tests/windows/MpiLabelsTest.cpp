#include "platform/controls/LumImgWnd.h"
#include "review/SlideMode.h"
#include "support/Texts.h"
#include "windows/cell/ToviLabelButton.h"
#include "windows/list/ToviPhotoListCtrl.h"
#include "windows/page/EditEcho.h"
#include "windows/page/VerdictEcho.h"
#include "windows/panel/ToviPopUpMenu.h"
#include "windows/ShownDelivery.h"

#include <QAbstractItemView>
#include <QAccessible>

namespace
{
using Setting = ToviPhotoCtrlVisualSetting;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(MpiLabels, PastesAndRemovesLabels)
{
    ShownDelivery shown(2, Setting::DivideTwo);
    using Labels = std::vector<unsigned int>;
    const std::pair<std::function<void()>, Labels> steps[] = {
        {[&] { shown.panel.PasteLabel(LabelNg1); }, {LabelNg1}},
        {[&] { shown.panel.PasteLabel(LabelNg2); }, {LabelNg1, LabelNg2}},
        {[&] { shown.panel.ToggleLabel(LabelFree); }, {LabelNg1, LabelNg2, LabelFree}},
        {[&] { QTest::mouseClick(shown.Plate(0).Button(LabelOk), Qt::LeftButton); },
         {LabelOk, LabelFree}},
        {[&] { shown.panel.ToggleLabel(LabelFree); }, {LabelOk}},
        {[&] { shown.panel.ToggleLabel(LabelNg3); }, {LabelNg3}},
        {[&] { shown.panel.OnRemoveAllLabel(); }, {}},
        {[&] { shown.panel.PasteLabel(LabelOk); }, {LabelOk}},
        {[&] { shown.panel.AllPhotoAllLabelRemove(); }, {}}};
    for (const auto& [act, pasted] : steps) {
        shown.data->SetCheckStatusChanged(false);
        shown.host.hints.clear();
        act();
        EXPECT_TRUE(shown.data->IsCheckStatusChanged());
        EXPECT_THAT(shown.host.hints, SizeIs(1)) << "one edit";
        Labels found, pressed;
        for (unsigned int slot = 0; slot < labelCount; ++slot) {
            if (shown.Photo(0).IsLabelPasted(slot)) found.push_back(slot);
            if (shown.Plate(0).Button(slot)->IsPressed()) pressed.push_back(slot);
        }
        EXPECT_EQ(found, pasted);
        EXPECT_EQ(pressed, pasted);
    }
}

TEST(MpiLabels, ShowsCommentsOverThePhotographs)
{
    ShownDelivery shown(3, Setting::DivideTwo);
    shown.AnswerComment("　舗装厚を確認 ");
    shown.panel.PasteLabel(LabelComment);
    EXPECT_TRUE(shown.Photo(0).IsLabelPasted(LabelComment));
    EXPECT_THAT(shown.Strips(), ElementsAre("　舗装厚を確認 "));
    const auto* const image = shown.Cells()[0]->findChild<LumImgWnd*>();
    const auto* const strip = shown.Cells()[0]->findChild<ToviCommentWindow*>();
    EXPECT_EQ(strip->width(), image->width());
    EXPECT_EQ(strip->geometry().bottom() + 1, image->y()) << "the photograph makes room";
    for (const int strips : {0, 1}) {
        strips == 0 ? shown.panel.OperateNextPage() : shown.panel.OperatePrevPage();
        EXPECT_THAT(shown.Strips(), SizeIs(strips));
    }
    for (const bool visible : {false, true}) {
        shown.Set([visible](Setting& setting) { setting.SetVisibleComment(visible); });
        EXPECT_THAT(shown.Strips(), SizeIs(visible));
    }

    for (const char* text : {"二枚", "二枚目"}) {
        shown.AnswerComment(text);
        QTest::mouseClick(shown.Plate(1).Button(LabelComment), Qt::LeftButton);
        EXPECT_EQ(shown.Selected(), 1);
    }
    shown.AnswerComment("書き直し");
    QTest::mouseDClick(shown.Cells()[0]->findChild<ToviCommentWindow*>(), Qt::LeftButton);
    EXPECT_EQ(shown.Selected(), 0);
    EXPECT_THAT(shown.Strips(), ElementsAre("書き直し", "二枚目"));
    shown.AnswerComment(" 　");
    shown.panel.ToggleLabel(LabelComment);
    EXPECT_FALSE(shown.Photo(0).IsLabelPasted(LabelComment));
    EXPECT_THAT(shown.Strips(), ElementsAre("二枚目"));

    shown.data->SetCheckStatusChanged(false);
    shown.panel.OperateNextPhoto();
    shown.host.hints.clear();
    shown.AnswerComment(nullptr);
    QTest::mouseClick(shown.Plate(0).Button(LabelComment), Qt::LeftButton);
    EXPECT_FALSE(shown.data->IsCheckStatusChanged()) << "who gives up has changed nothing";
    EXPECT_THAT(shown.host.hints, ElementsAre(ToviData::HintPhotoSelected));
    EXPECT_FALSE(shown.Plate(0).Button(LabelComment)->IsPressed());

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
        EXPECT_TRUE(hasChanged()) << "the label, in mode " << mode;
        shown.panel.OnRemoveAllLabel();
    }
}

TEST(MpiLabels, OffersTheLabelsInAMenu)
{
    ShownDelivery shown(2, Setting::DivideTwo);
    SetSlideMode(true);
    shown.Click(1, Qt::RightButton);
    QTest::mouseClick(shown.Plate(0).Button(LabelComment), Qt::LeftButton);
    SetSlideMode(false);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_THAT(Texts(shown.services.user.Messages()), SizeIs(2));

    shown.data->GetLabelManager()->GetLabelAttribute(LabelNg1).SetName("A&B");
    shown.Click(1, Qt::RightButton);
    EXPECT_EQ(shown.Selected(), 1);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    // 付箋の貼り付け, and there the second.
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_S);
    QWidget* const paste = QApplication::activePopupWidget();
    EXPECT_EQ(paste->actions()[1]->text(), QStringLiteral("NG1 A&&B"));
    if (paste->actions()[0] == qobject_cast<QMenu*>(paste)->activeAction())
        QTest::keyClick(paste, Qt::Key_Down);
    QTest::keyClick(paste, Qt::Key_Return);
    EXPECT_TRUE(shown.Photo(1).IsLabelPasted(LabelNg1));

    shown.panel.ShowPopUpMenu();
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_R);
    const QList<QAction*> remove = QApplication::activePopupWidget()->actions();
    EXPECT_TRUE(remove[1]->isEnabled() && !remove[0]->isEnabled());
    remove.last()->trigger();
    EXPECT_FALSE(shown.Photo(1).IsLabelPasted(LabelNg1));
    shown.panel.Detach();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST(MpiLabels, LabelsAndCommentsInTheLists)
{
    ShownDelivery shown(40, Setting::DivideThumbnails);
    shown.panel.ToggleLabel(LabelNg1);
    EXPECT_TRUE(shown.Photo(0).IsLabelPasted(LabelNg1));
    EXPECT_TRUE(shown.panel.SelectNextUnchecked());
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
    shown.Press(Qt::Key_End);
    EXPECT_EQ(shown.Selected(), 39);
    EXPECT_THAT(shown.Strips(), IsEmpty()) << "scrolled away";
    shown.Press(Qt::Key_Home);
    EXPECT_THAT(shown.Strips(), ElementsAre("書き直し"));

    for (const auto mode : {Setting::DivideList, Setting::DivideSix, Setting::DivideList}) {
        shown.SetMode(mode);
        EXPECT_EQ(shown.panel.findChildren<ToviPhotoListCtrl*>().size(), mode > 4 ? 1 : 0);
        EXPECT_EQ(shown.Selected(), 0) << mode;
    }
    shown.panel.setFocus();
    shown.Press(Qt::Key_Down);
    shown.panel.RemoveLabel(LabelComment);
    EXPECT_EQ(shown.Photo(1).GetComment(), "");
}

TEST(MpiLabels, ActOnAllThatAreSelectedAsOneEdit)
{
    for (const auto mode : {Setting::DivideThumbnails, Setting::DivideList}) {
        SCOPED_TRACE(mode);
        ShownDelivery shown(12, mode);
        const auto with = [&shown](unsigned int label) { return shown.data->CountLabel(label); };
        auto* const list = shown.panel.findChild<ToviPhotoListCtrl*>();
        const auto click = [&](int row, Qt::KeyboardModifiers held) {
            QTest::mouseClick(list->View()->viewport(), Qt::LeftButton, held,
                              list->GetItemRect(row).topLeft() + QPoint(30, 10));
        };
        click(2, {});
        click(4, Qt::ShiftModifier);
        click(7, Qt::ControlModifier);
        EXPECT_EQ(shown.panel.CountSelected(), 4);
        shown.host.hints.clear();
        EXPECT_TRUE(shown.panel.ToggleLabel(LabelNg2));
        EXPECT_EQ(shown.host.hints.size(), 1u) << "one edit";
        EXPECT_EQ(with(LabelNg2), 4);
        EXPECT_FALSE(shown.Photo(5).IsLabelPasted(LabelNg2));
        EXPECT_EQ(shown.panel.CountSelected(), 4) << "they stay selected";
        click(8, Qt::ControlModifier);
        EXPECT_TRUE(shown.panel.ToggleLabel(LabelNg2)) << "one hasn't got it yet";
        EXPECT_EQ(with(LabelNg2), 5);
        EXPECT_FALSE(shown.panel.ToggleLabel(LabelNg2));
        EXPECT_EQ(with(LabelNg2), 0);
        shown.AnswerComment("再撮影");
        shown.panel.ToggleLabel(LabelComment);
        EXPECT_EQ(with(LabelComment), 5);
        shown.Press(Qt::Key_A, Qt::ControlModifier);
        EXPECT_EQ(shown.panel.CountSelected(), 12);
        shown.panel.OnRemoveAllLabel();
        EXPECT_EQ(with(LabelComment), 0);
        QTest::mouseClick(list->View()->viewport(), Qt::LeftButton, {},
                          QPoint(list->View()->viewport()->rect().bottomRight() - QPoint(3, 3)));
        EXPECT_EQ(shown.panel.CountSelected(), 12) << "beside the photographs";
        shown.panel.OperateLastPhoto();
        EXPECT_EQ(shown.panel.CountSelected(), 1);
        EXPECT_EQ(shown.Selected(), 11);
    }
}

TEST(Echo, SaysWhatWasDone)
{
    const auto set = [](std::initializer_list<unsigned int> pasted) {
        PhotoReview review;
        for (const unsigned int slot : pasted) review.labels.set(slot);
        return review;
    };
    const PhotoReview none, ok = set({LabelOk}), ng = set({LabelNg1, LabelNg2});
    const struct
    {
        std::vector<std::pair<PhotoReview, PhotoReview>> changes;
        const char* words;
    } cases[] = {{{{none, ok}}, "OK"},
                 {{{ng, ok}}, "OK"},
                 {{{set({LabelNg1}), ng}}, "NG2 誤記"},
                 {{{ng, none}}, "外す：NG1 追記、NG2 誤記"},
                 {{{none, set({LabelFree})}, {ok, set({LabelFree, LabelOk})}}, "任意 印刷（2枚）"},
                 {{{none, set({LabelComment})}}, ""},
                 {{}, ""}};
    const ToviLabelManager names;
    for (const auto& [changes, words] : cases) {
        LabelEdit edit(LabelEdit::Batch);
        for (const auto& [before, after] : changes) edit.changes.push_back({0, before, after});
        EXPECT_EQ(FromQtText(EchoOf(edit, names)), words);
    }
}

TEST(Echo, ShowsAndIsSpokenForASecond)
{
    ShownDelivery shown(8, Setting::DivideSix);
    shown.panel.OperateNextPhoto();
    shown.panel.ToggleLabel(LabelNg2);
    auto* const echo = shown.panel.findChild<VerdictEcho*>();
    ASSERT_TRUE(echo->isVisible());
    EXPECT_TRUE(shown.Cells()[1]->geometry().contains(echo->geometry().center()));
    const auto* const spoken = QAccessible::queryAccessibleInterface(echo);
    EXPECT_EQ(spoken->role(), QAccessible::AlertMessage);
    EXPECT_EQ(FromQtText(spoken->text(QAccessible::Name)), "NG2 誤記");
    EXPECT_TRUE(QTest::qWaitFor([echo] { return echo->isHidden(); }, 2000));
}
} // namespace
