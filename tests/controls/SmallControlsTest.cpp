#include "platform/controls/GaluDSplitter.h"
#include "platform/controls/GaluFont.h"
#include "platform/controls/GaluMultiStatusButton.h"
#include "platform/controls/WenToolBarCtrl.h"
#include "platform/controls/WindowId.h"
#include "platform/host/JapaneseFont.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

namespace
{
QIcon Plain(const QColor& color)
{
    QPixmap picture(16, 16);
    picture.fill(color);
    return picture;
}

TEST(WindowId, IsWhatWasGiven)
{
    QWidget widget;
    EXPECT_EQ(WindowId(&widget), 0);
    SetWindowId(&widget, 1103);
    EXPECT_EQ(WindowId(&widget), 1103);
}

TEST(GaluFont, PrefersTheGothicThatWritesBothScripts)
{
    struct
    {
        const char* name;
        QStringList installed;
        QStringList japanese;
        const char* chosen;
    } const cases[] = {
        {"as meant", {"IPAPGothic", "MS PGothic"}, {"IPAPGothic", "MS PGothic"}, "MS PGothic"},
        {"stand-in", {"DejaVu Sans", "IPAGothic", "IPAPGothic"}, {"IPAGothic"}, "IPAPGothic"},
        {"gothic", {"A", "B Mincho", "C Gothic"}, {"B Mincho", "C Gothic"}, "C Gothic"},
        {"any", {"DejaVu Sans", "B Mincho"}, {"B Mincho"}, "B Mincho"},
        {"none", {"DejaVu Sans"}, {}, ""},
    };
    for (const auto& tried : cases) {
        EXPECT_EQ(ChooseJapaneseFamily(tried.installed, tried.japanese).toStdString(), tried.chosen)
            << tried.name;
    }
    EXPECT_EQ(GaluFont::MsPGothic9pt().pointSize(), 9);
    EXPECT_TRUE(GaluFont::MsPGothic9ptBold().bold());
}

TEST(GaluMultiStatusButton, GoesThroughItsStatesByMouseAndKey)
{
    GaluMultiStatusButton button({{Plain(Qt::red), "なし"}, {Plain(Qt::green), "あり"}}, 16);
    button.SetFlat(true);
    button.SetBackColor(Qt::blue);
    button.resize(20, 20);
    button.show();
    const QSignalSpy changed(&button, &GaluMultiStatusButton::StatusChanged);
    EXPECT_EQ(button.accessibleName(), u"なし");
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(changed.back(), QVariantList{1});
    EXPECT_EQ(button.toolTip(), u"あり");
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(button.GetStatus(), 0);
    EXPECT_EQ(changed.size(), 2);

    button.setEnabled(false);
    button.SetStatus(1);
    button.SetStatus(2);
    button.SetStatus(-1);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(button.GetStatus(), 1);
    EXPECT_EQ(changed.size(), 2) << "only the user's changes are told";
    const QImage shown = button.grab().toImage();
    EXPECT_EQ(shown.pixelColor(10, 10), QColor(Qt::green)) << "in full colour though disabled";
    EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::blue));
}

struct Panes
{
    explicit Panes(Qt::Orientation orientation) : splitter(orientation)
    {
        splitter.SetPane(0, new QWidget);
        splitter.SetPane(1, new QWidget);
        splitter.SetMinimums(60, 60);
    }

    void Show(QSize size)
    {
        splitter.resize(size);
        splitter.show();
        QCoreApplication::processEvents();
    }

    GaluDSplitter splitter;
};

TEST(GaluDSplitter, KeepsThePaneThatHasAPosition)
{
    Panes side(Qt::Horizontal);
    side.splitter.SetPosition(150);
    side.Show({500, 300});
    EXPECT_EQ(side.splitter.GetPosition(), 150) << "set before there was a size";
    side.Show({800, 300});
    EXPECT_EQ(side.splitter.GetPosition(), 150);
    side.splitter.SetPosition(10);
    EXPECT_EQ(side.splitter.GetPosition(), 60) << "no smaller than its least";
    side.splitter.SetPosition(10000);
    EXPECT_EQ(side.splitter.GetPane(1)->width(), 60);

    Panes stack(Qt::Vertical);
    stack.splitter.SetPosition(-75);
    stack.Show({300, 400});
    EXPECT_EQ(stack.splitter.GetPane(1)->height(), 75);
    stack.Show({300, 600});
    EXPECT_EQ(stack.splitter.GetPane(1)->height(), 75);
    stack.splitter.ShowPane(1, false);
    QCoreApplication::processEvents();
    EXPECT_EQ(stack.splitter.GetPane(0)->height(), 600);
    stack.splitter.ShowPane(1, true);
    QCoreApplication::processEvents();
    EXPECT_EQ(stack.splitter.GetPane(1)->height(), 75);
}

TEST(GaluDSplitter, MovesByMouseAndKey)
{
    Panes side(Qt::Horizontal);
    side.splitter.SetPosition(200);
    side.Show({500, 300});
    const QSignalSpy moved(&side.splitter, &QSplitter::splitterMoved);
    QSplitterHandle* const handle = side.splitter.handle(1);
    EXPECT_TRUE(handle->focusPolicy() & Qt::TabFocus);
    QTest::keyClick(handle, Qt::Key_Right);
    EXPECT_EQ(side.splitter.GetPosition(), 210);
    QTest::keyClick(handle, Qt::Key_Left);
    EXPECT_EQ(side.splitter.GetPosition(), 200);
    QTest::keyClick(handle, Qt::Key_Home);
    EXPECT_EQ(side.splitter.GetPosition(), 60);
    QTest::keyClick(handle, Qt::Key_End);
    EXPECT_EQ(side.splitter.GetPane(1)->width(), 60);
    EXPECT_EQ(moved.size(), 4);
}

TEST(GaluDSplitter, ChangesAPane)
{
    QWidget window;
    auto* const splitter = new GaluDSplitter(Qt::Horizontal, &window);
    auto* const first = new QLabel;
    auto* const other = new QLabel;
    splitter->SetPane(0, first);
    splitter->SetPane(1, new QLabel);
    splitter->SetMinimums(60, 60);
    splitter->resize(400, 100);
    splitter->SetPosition(150);
    window.resize(400, 100);
    window.show();
    splitter->SetPane(0, other);
    splitter->SetPane(0, other);
    EXPECT_EQ(splitter->GetPane(0), other);
    EXPECT_EQ(splitter->GetPosition(), 150);
    EXPECT_TRUE(other->isVisible());
    EXPECT_FALSE(first->isVisible());
    EXPECT_EQ(first->parentWidget(), &window);
    splitter->SetPane(0, first);
    EXPECT_TRUE(first->isVisible());
    EXPECT_EQ(first->minimumWidth(), 60);
}

TEST(WenToolBarCtrl, KnowsItsButtonsByTheirIds)
{
    using Kind = WenToolBarButton::Kind;
    WenToolBarCtrl bar;
    bar.SetImages({Plain(Qt::red), Plain(Qt::green)});
    bar.AddButtons({{Kind::Push, 1097, 0}, {}, {Kind::Check, 1100, 1}, {Kind::Push, 1133, 9}},
                   "左回転|情報|写真保存||");
    bar.show();
    ASSERT_EQ(bar.actions().size(), 4);
    EXPECT_EQ(bar.actions()[2]->text(), u"情報") << "a separator takes no text";
    const QSignalSpy commands(&bar, &WenToolBarCtrl::Command);
    QWidget* const check = bar.widgetForAction(bar.actions()[2]);
    EXPECT_TRUE(check->focusPolicy() & Qt::TabFocus);
    QTest::keyClick(check, Qt::Key_Space);
    EXPECT_EQ(commands.back(), QVariantList{1100});
    EXPECT_TRUE(bar.IsButtonChecked(1100));
    bar.CheckButton(1100, false);
    EXPECT_FALSE(bar.IsButtonChecked(1100));
    EXPECT_EQ(commands.size(), 1) << "only the user commands";
    bar.EnableButton(1097, false);
    QTest::mouseClick(bar.widgetForAction(bar.actions()[0]), Qt::LeftButton);
    EXPECT_EQ(commands.size(), 1);
    bar.SetButtonImage(1133, 1);
    EXPECT_FALSE(bar.actions()[3]->icon().isNull());
    bar.EnableButton(0, false);
    EXPECT_FALSE(bar.IsButtonChecked(0));
}
} // namespace
