#include "platform/controls/GaluDSplitter.h"
#include "platform/controls/GaluMultiStatusButton.h"
#include "platform/controls/WenToolBarCtrl.h"
#include "platform/host/JapaneseFont.h"

#include <gtest/gtest.h>

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

TEST(GaluFont, PrefersTheGothicThatWritesBothScripts)
{
    const std::tuple<QStringList, QStringList, const char*> cases[] = {
        {{"IPAPGothic", "MS PGothic"}, {"IPAPGothic", "MS PGothic"}, "MS PGothic"},
        {{"DejaVu Sans", "IPAGothic", "IPAPGothic"}, {"IPAGothic"}, "IPAPGothic"},
        {{"A", "B Mincho", "C Gothic"}, {"B Mincho", "C Gothic"}, "C Gothic"},
        {{"DejaVu Sans", "B Mincho"}, {"B Mincho"}, "B Mincho"},
        {{"DejaVu Sans"}, {}, ""},
    };
    for (const auto& [installed, japanese, chosen] : cases)
        EXPECT_EQ(ChooseJapaneseFamily(installed, japanese).toStdString(), chosen);
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
    for (const int width : {500, 800}) {
        side.Show({width, 300});
        EXPECT_EQ(side.splitter.GetPosition(), 150);
    }
    side.splitter.SetPosition(10);
    QSplitterHandle* const handle = side.splitter.handle(1);
    const std::pair<Qt::Key, int> keys[] = {{Qt::Key_F, 60},     {Qt::Key_Right, 70},
                                            {Qt::Key_Right, 80}, {Qt::Key_Left, 70},
                                            {Qt::Key_Home, 60},  {Qt::Key_End, 734}};
    for (const auto& [key, position] : keys) {
        QTest::keyClick(handle, key);
        EXPECT_EQ(side.splitter.GetPosition(), position) << key;
    }

    Panes stack(Qt::Vertical);
    stack.splitter.SetPosition(-75);
    for (const int height : {400, 600}) {
        stack.Show({300, height});
        EXPECT_EQ(stack.splitter.GetPane(1)->height(), 75);
    }
    for (const bool shown : {false, true}) {
        stack.splitter.ShowPane(1, shown);
        QCoreApplication::processEvents();
        EXPECT_EQ(stack.splitter.GetPane(0)->height(), shown ? 519 : 600);
    }
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
    EXPECT_EQ(other->minimumWidth(), 60);
    splitter->SetPane(0, first);
    EXPECT_TRUE(first->isVisible());
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
