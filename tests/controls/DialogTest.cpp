#include "platform/controls/GaluWaitMovieDlg.h"
#include "platform/controls/WenDialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <stdexcept>
#include <thread>

namespace
{
class Question : public WenDialog
{
public:
    explicit Question(QWidget* parent = nullptr) : WenDialog(parent) {}

    int initialised = 0;
    QLineEdit* edit = nullptr;
    QDialogButtonBox* buttons = nullptr;

protected:
    void OnInitDialog() override
    {
        ++initialised;
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(edit = new QLineEdit);
        layout->addWidget(buttons = MakeOkCancel());
    }
};

/// Runs the dialog and does \p what in it once it is open.
template <class What>
bool Modal(Question& dialog, What what)
{
    QTimer::singleShot(0, &dialog, what);
    return dialog.DoModal();
}

TEST(WenDialog, AnswersAsTheUserLeavesIt)
{
    Question dialog;
    EXPECT_TRUE(Modal(dialog, [&] { QTest::keyClick(dialog.edit, Qt::Key_Return); }));
    EXPECT_FALSE(Modal(dialog, [&] { QTest::keyClick(dialog.edit, Qt::Key_Escape); }));
    EXPECT_FALSE(Modal(dialog, [&] { dialog.close(); }));
    QPushButton* const cancel = dialog.buttons->button(QDialogButtonBox::Cancel);
    EXPECT_FALSE(Modal(dialog, [&] { QTest::mouseClick(cancel, Qt::LeftButton); }));
    EXPECT_EQ(dialog.initialised, 1);
}

TEST(WenDialog, LeavesEscapeToTheWindowInWhichItStands)
{
    Question outer;
    auto* const inner = new Question(&outer);
    inner->setWindowFlags(Qt::Widget);
    outer.show();
    inner->show();
    QTest::keyClick(inner->edit, Qt::Key_Escape);
    EXPECT_FALSE(outer.isVisible());
}

TEST(GaluWaitMovieDlg, MovesWhileTheWorkIsDoneBeside)
{
    GaluWaitMovieDlg wait;
    wait.Create(nullptr);
    wait.SetEnableCancel(false);
    const std::thread::id here = std::this_thread::get_id();
    std::thread::id there = here;
    std::atomic<bool> ticked = false;
    QTimer::singleShot(0, &wait, [&] { EXPECT_FALSE(wait.isVisible()) << "too early"; });
    QTimer::singleShot(GaluWaitMovieDlg::delay + std::chrono::milliseconds(100), &wait, [&] {
        QTest::keyClick(&wait, Qt::Key_Escape);
        EXPECT_TRUE(wait.isVisible()) << "there is no cancel";
        ticked = true;
    });
    wait.Run([&] {
        there = std::this_thread::get_id();
        while (!ticked) std::this_thread::yield();
    });
    EXPECT_NE(there, here);
    EXPECT_FALSE(wait.isVisible());
    EXPECT_FALSE(wait.GetCancel());
    EXPECT_THROW(wait.Run([] { throw std::runtime_error("disk full"); }), std::runtime_error);
}

TEST(GaluWaitMovieDlg, ComesUpOnlyOverALongWorkAndTellsOnceOfCancel)
{
    GaluWaitMovieDlg wait;
    wait.Create(nullptr);
    wait.Start();
    wait.Message("数え中...");
    EXPECT_FALSE(wait.isVisible());
    std::this_thread::sleep_for(GaluWaitMovieDlg::delay);
    wait.Message("数え中...", 50);
    EXPECT_TRUE(wait.isVisible());
    QTest::keyClick(&wait, Qt::Key_Escape);
    EXPECT_TRUE(wait.isVisible());
    EXPECT_TRUE(wait.GetCancel());
    EXPECT_FALSE(wait.GetCancel());
    wait.Start();
    wait.End();
    EXPECT_FALSE(QTest::qWaitFor([&wait] { return wait.isVisible(); }, 600)) << "after the end";
}
} // namespace
