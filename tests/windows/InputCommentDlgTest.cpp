#include "windows/dialogs/ToviInputCommentDlg.h"

#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>

namespace
{
TEST(InputCommentDlg, MakesALineWithShiftAndEndsWithoutIt)
{
    ToviInputCommentDlg dialog(nullptr);
    dialog.SetComment("一");
    QTimer::singleShot(0, &dialog, [&dialog] {
        auto* const edit = dialog.findChild<QPlainTextEdit*>();
        QTest::keyClick(edit, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(edit, QStringLiteral("2"));
        QTest::keyClick(edit, Qt::Key_Return);
    });
    EXPECT_TRUE(dialog.DoModal());
    EXPECT_EQ(dialog.GetComment(), "一\n2");
}
} // namespace
