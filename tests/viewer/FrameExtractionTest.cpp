// Extraction and the settings dialog in the main window.

#include "hosts/viewer/NoPhotosPage.h"
#include "review/ToviLabelManager.h"
#include "support/Controls.h"
#include "support/Labels.h"
#include "viewer/ShownFrame.h"
#include "windows/cell/ToviLabelButton.h"
#include "windows/extraction/ExtractionStrip.h"
#include "windows/extraction/NothingExtractedPage.h"
#include "windows/extraction/ToviExtractionWindow.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeWidget>

namespace
{
using testing::Contains;
using testing::Not;

constexpr int execute = 1015;
constexpr int keyPhoto = 1016;
constexpr int ngPhoto = 1017;
constexpr int notchecked = 1018;

/// The main window with eight photographs, the third of which is NG, and the conditions in view.
struct ExtractingFrame : ShownFrame
{
    ExtractingFrame()
    {
        Open();
        PasteLabel(Data(), 2, LabelNg1);
        Press(Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    }

    QWidget& Window() const { return *frame->findChild<ToviExtractionWindow*>(); }
    void Click(int id) const
    {
        Control<QAbstractButton>(Window(), id).click();
        QCoreApplication::processEvents();
    }
    /// What the strip tells; empty when it is out of sight.
    CString Strip() const
    {
        QCoreApplication::processEvents();
        const auto* strip = frame->findChild<ExtractionStrip*>();
        return strip->isVisible() ? FromQtText(strip->findChild<QLabel*>()->text()) : CString();
    }
    bool IsNothingPageShown() const
    {
        QCoreApplication::processEvents();
        return frame->findChild<NothingExtractedPage*>()->isVisible();
    }
    QTabWidget& Trees() const
    {
        return *frame->findChild<QDockWidget*>(QStringLiteral("trees"))->findChild<QTabWidget*>();
    }
};

TEST(FrameExtraction, IsAlwaysToBeSeenAndEndsByOneButton)
{
    const ExtractingFrame shown;
    EXPECT_TRUE(Control<QCheckBox>(shown.Window(), ngPhoto).isVisible());
    EXPECT_EQ(shown.Strip(), "");
    shown.Click(ngPhoto);
    shown.Click(execute);
    EXPECT_EQ(shown.Strip(), "抽出中： NG写真（8 枚のうち 1 枚を表示）");
    EXPECT_THAT(shown.Status(), Contains("抽出中"));

    shown.Trees().setCurrentIndex(1);
    EXPECT_THAT(shown.Strip(), testing::HasSubstr("付箋の写真は"));
    EXPECT_FALSE(Control<QPushButton>(shown.Window(), execute).isEnabled());
    shown.Trees().setCurrentIndex(0);
    EXPECT_EQ(shown.Strip(), "抽出中： NG写真（8 枚のうち 1 枚を表示）");

    shown.frame->findChild<ExtractionStrip*>()->findChild<QPushButton*>()->click();
    EXPECT_EQ(shown.Strip(), "");
    EXPECT_THAT(shown.Status(), Not(Contains("抽出中")));
    EXPECT_EQ(shown.Data().GetCurrentPhotoCount(), 8);
}

TEST(FrameExtraction, EndsOverTheListOfALabel)
{
    const ExtractingFrame shown;
    shown.Click(ngPhoto);
    shown.Click(execute);
    shown.Trees().setCurrentIndex(1);
    shown.Data().SetSelected(static_cast<int>(LabelOk));
    shown.Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(shown.Strip(), "");
    EXPECT_EQ(shown.Data().GetCurrentPhotoCount(), 0) << "the label's photographs stay";
    QCoreApplication::processEvents();
    auto* const page = shown.frame->findChild<NoPhotosPage*>();
    ASSERT_TRUE(page->isVisible());
    for (const QAction* action : shown.frame->findChildren<QAction*>()) {
        const bool isSlideMode = action->shortcut() == QKeySequence(QStringLiteral("F5"));
        EXPECT_FALSE(isSlideMode && action->isEnabled()) << "no show over nothing";
    }
    page->findChild<QPushButton*>()->click();
    QCoreApplication::processEvents();
    EXPECT_FALSE(page->isVisible());
    EXPECT_EQ(shown.Data().GetCurrentPhotoCount(), 8);
}

TEST(FrameExtraction, OffersAWayOnWhereNothingIsFound)
{
    const ExtractingFrame shown;
    shown.Click(ngPhoto);
    shown.Click(notchecked);
    shown.Click(execute);
    EXPECT_TRUE(shown.IsNothingPageShown());
    const QList<QPushButton*> buttons =
        shown.frame->findChild<NothingExtractedPage*>()->findChildren<QPushButton*>();
    buttons[0]->click();
    EXPECT_EQ(QApplication::focusWidget(), &Control<QCheckBox>(shown.Window(), keyPhoto));
    shown.Click(notchecked);
    EXPECT_FALSE(shown.IsNothingPageShown());
    shown.Click(notchecked);
    buttons[1]->click();
    EXPECT_FALSE(shown.IsNothingPageShown());
    EXPECT_EQ(shown.Data().GetCurrentPhotoCount(), 8);
    ASSERT_TRUE(shown.Open());
    EXPECT_FALSE(Control<QCheckBox>(shown.Window(), ngPhoto).isChecked());
}

/// Types by an input method where the focus is, which has to stay there.
void Type(const char* text)
{
    QWidget* const focus = QApplication::focusWidget();
    QInputMethodEvent converted;
    converted.setCommitString(QString::fromUtf8(text));
    QApplication::sendEvent(focus, &converted);
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), focus) << text;
}

TEST(FrameSearch, NarrowsWhileTypingAndEndsByOneButton)
{
    const ExtractingFrame shown;
    SetComment(shown.Data(), 2, "要再撮影");
    SetComment(shown.Data(), 4, "要再撮影 p1");
    shown.Press(Qt::Key_F, Qt::ControlModifier);
    Type("再撮影");
    EXPECT_EQ(shown.Strip(), "8 枚のうち 2 枚を表示");
    EXPECT_THAT(shown.Status(), Contains("検索中"));
    shown.Click(ngPhoto);
    shown.Click(execute);
    EXPECT_EQ(shown.Strip(), "抽出中： NG写真（8 枚のうち 1 枚を表示）");
    shown.Trees().setCurrentIndex(1);
    shown.Data().SetSelected(static_cast<int>(LabelNg1));
    EXPECT_EQ(shown.Strip(), "1 枚のうち 1 枚を表示（付箋の写真は抽出されません）");
    shown.Trees().setCurrentIndex(0);
    shown.frame->findChild<ExtractionStrip*>()->findChild<QPushButton*>()->click();
    EXPECT_EQ(shown.Strip(), "");
    EXPECT_EQ(shown.Data().GetCurrentPhotoCount(), 8);

    shown.Press(Qt::Key_F, Qt::ControlModifier);
    Type("　");
    Type("再撮影 p1");
    EXPECT_EQ(shown.Data().GetCurrentPhotoCount(), 1);
    Type(" ない");
    EXPECT_TRUE(shown.IsNothingPageShown());
    shown.Press(Qt::Key_Escape);
    EXPECT_FALSE(shown.IsNothingPageShown());
    EXPECT_EQ(shown.Data().GetCurrentPhotoCount(), 8);
    EXPECT_TRUE(shown.Panel().isAncestorOf(QApplication::focusWidget()));

    shown.Press(Qt::Key_F, Qt::ControlModifier);
    Type("再撮影");
    ASSERT_TRUE(shown.Open());
    EXPECT_EQ(shown.Strip(), "") << "what was looked for in another delivery";
}

TEST(FrameSetUp, IsSeenAtOnceInEveryWindow)
{
    ExtractingFrame shown;
    shown.Trees().setCurrentIndex(1);
    shown.OnDialogs({[](QWidget& dialog) {
        Control<QLineEdit>(dialog, 1064).setText(QStringLiteral("日付なし"));
        for (const int id : {1074, 1081, 1085, 1070, 1073}) {
            Control<QRadioButton>(dialog, id).click();
        }
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    }});
    shown.Press(Qt::Key_Comma, Qt::ControlModifier);
    const auto* labels =
        static_cast<QTreeWidget*>(shown.Trees().widget(1)->findChild<QTreeWidget*>());
    EXPECT_EQ(labels->topLevelItem(0)->child(1)->text(0), QStringLiteral("NG1 日付なし <1>"));
    EXPECT_EQ(shown.Panel().GetVisualSetting().GetDivType(), ToviPhotoCtrlVisualSetting::DivideOne);
    shown.Trees().setCurrentIndex(0);
    EXPECT_EQ(shown.Data().GetPhotoIndex(0), 7) << "sorted downwards";
    // On a page that stays as it is but for its comments.
    shown.OnDialogs({[](QWidget& dialog) {
        Control<QLineEdit>(dialog, 1064).setText(QStringLiteral("再撮影"));
        Control<QRadioButton>(dialog, 1130).click();
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    }});
    shown.Press(Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(shown.Panel().findChildren<ToviLabelButton*>()[LabelNg1]->accessibleName(),
              QStringLiteral("NG1 再撮影"));
    shown.Start();
    ASSERT_TRUE(shown.Open());
    EXPECT_EQ(shown.Data().GetPhotoIndex(0), 7) << "and so after a restart";
    EXPECT_STREQ(shown.Data().GetLabelManager()->GetLabelAttribute(LabelNg1).GetName(), "再撮影");
    shown.Panel().AllPhotoAllLabelRemove();
}
} // namespace
