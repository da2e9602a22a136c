#include "windows/dialogs/QtUserInterface.h"
#include "platform/host/HostServices.h"
#include "windows/dialogs/FileDialog.h"
#include "windows/dialogs/ProgressWindow.h"
#include "work/ToviProgressDlg.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>

namespace
{
/// A main window with the user interface over it, installed as the host's.
struct Host
{
    Host()
    {
        user.SetMainWindow(main.get());
        InstallHostServices({&user, nullptr, "Tovi", ""});
        main->show();
    }
    ~Host() { InstallHostServices({}); }

    std::unique_ptr<QWidget> main = std::make_unique<QWidget>();
    QtUserInterface user;
};

/// Presses \p key in the window that comes up next.
void PressInNextWindow(Qt::Key key)
{
    QTimer::singleShot(0, qApp, [key] {
        ASSERT_NE(QApplication::activeModalWidget(), nullptr);
        QTest::keyClick(QApplication::activeModalWidget(), key);
    });
}

TEST(QtUserInterface, AnswersAsTheKeysSay)
{
    using enum MessageButtons;
    using Answer = MessageAnswer;
    const std::tuple<MessageButtons, Answer, Answer> cases[] = {
        {Ok, Answer::Ok, Answer::Ok},
        {OkCancel, Answer::Cancel, Answer::Cancel},
        {YesNo, Answer::Yes, Answer::No},
        {YesNoCancel, Answer::Yes, Answer::Cancel}};
    Host host;
    for (const auto& [buttons, byReturn, byEscape] : cases) {
        for (const auto& [key, answer] :
             {std::pair(Qt::Key_Return, byReturn), std::pair(Qt::Key_Escape, byEscape)}) {
            PressInNextWindow(key);
            EXPECT_EQ(host.user.ShowMessage("本文", "見出し", buttons, MessageIcon::Question),
                      answer);
        }
    }
}

TEST(QtUserInterface, ProposesTheFirstOptionAndCancelToEnter)
{
    Host host;
    Choice choice;
    choice.options.Add({"一つ目", "一つ目の説明"});
    choice.options.Add({"二つ目", ""});
    int option = -1;
    PressInNextWindow(Qt::Key_Return);
    EXPECT_FALSE(host.user.Choose(choice, option));
    EXPECT_EQ(option, -1);
    QTimer::singleShot(0, qApp, [] {
        QWidget* dialog = QApplication::activeModalWidget();
        const auto radios = dialog->findChildren<QRadioButton*>();
        EXPECT_TRUE(radios.at(0)->isChecked());
        QTest::mouseClick(radios.at(1), Qt::LeftButton, {}, QPoint(8, radios.at(1)->height() / 2));
        for (QPushButton* button : dialog->findChildren<QPushButton*>()) {
            if (!button->isDefault()) QTest::mouseClick(button, Qt::LeftButton);
        }
    });
    EXPECT_TRUE(host.user.Choose(choice, option));
    EXPECT_EQ(option, 1);
}

TEST(QtUserInterface, GivesAFileTheEndingOfTheChosenKind)
{
    const struct
    {
        int kind;
        const char* typed;
        const char* saved;
    } cases[] = {{0, "検査 結果", "検査 結果.xls"},
                 {1, "検査 結果", "検査 結果.pdf"},
                 {1, "a.XLSX", "a.XLSX"},
                 {0, "none/x.xls", "x.xls"}};
    Host host;
    const QTemporaryDir folder;
    const CString place = folder.path().toStdString();
    const auto enter = [&folder](const QString& name) {
        QWidget* const dialog = QApplication::activeModalWidget();
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(folder.filePath(name));
        QTest::keyClick(dialog, Qt::Key_Return);
    };
    for (const auto& expected : cases) {
        const QString typed = QString::fromUtf8(expected.typed);
        QTimer::singleShot(0, qApp, [&] {
            auto* kinds = QApplication::activeModalWidget()->findChild<QComboBox*>(
                QStringLiteral("fileTypeCombo"));
            for (int i = 0; i < expected.kind; ++i) QTest::keyClick(kinds, Qt::Key_Down);
            if (typed.startsWith(QStringLiteral("none"))) {
                // It asks again for a folder that is not there.
                PressInNextWindow(Qt::Key_Return);
                QTimer::singleShot(50, qApp, [&] { enter(typed.mid(5)); });
            }
            enter(typed);
        });
        SaveQuestion question = {place, "検査結果", "xls", "EXCELファイル(*.xls)", "*.xls"};
        question.otherKinds = {{"pdf", "PDF(*.pdf)", "*.pdf"}};
        CString path;
        EXPECT_TRUE(host.user.ChooseSaveFile(question, path));
        EXPECT_EQ(path, place + '/' + expected.saved);
    }
}

TEST(FileDialog, WritesNothingIntoADelivery)
{
    using enum FileDialog::Use;
    const struct
    {
        FileDialog::Use use;
        const char* start;
        bool canMakeFolder, makesOne;
    } cases[] = {{OpenFile, "", false, false},
                 {OpenFolder, "", false, false},
                 {SaveFile, "", true, true},
                 {SaveFolder, "", true, true},
                 {SaveFile, "/delivery/PIC", true, false},
                 {SaveFolder, "/delivery", true, false}};
    for (const auto& expected : cases) {
        const QTemporaryDir folder;
        QDir(folder.path()).mkpath(QStringLiteral("delivery/PIC"));
        QFile(folder.filePath(QStringLiteral("delivery/PHOTO.XML"))).open(QIODevice::WriteOnly);
        const QString start = folder.path() + QString::fromUtf8(expected.start);
        FileDialog dialog(expected.use, QStringLiteral("選択"), start, nullptr);
        dialog.show();
        QPushButton* make = nullptr;
        for (QPushButton* button : dialog.findChildren<QPushButton*>())
            if (button->text().startsWith(QStringLiteral("新しいフォルダ"))) make = button;
        ASSERT_EQ(make != nullptr, expected.canMakeFolder);
        EXPECT_FALSE(dialog.findChild<QWidget*>(QStringLiteral("newFolderButton"))->isVisible());
        if (make == nullptr) continue;
        PressInNextWindow(Qt::Key_Return);
        make->click();
        EXPECT_EQ(QDir(start + QStringLiteral("/新しいフォルダ")).exists(), expected.makesOne);
        if (expected.makesOne) continue;
        PressInNextWindow(Qt::Key_Return);
        dialog.selectFile(QStringLiteral("x.xml"));
        QTest::keyClick(dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")),
                        Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible()) << "a place in the delivery was taken";
    }
}

/// Stands in for the desktop's programs.
class Opener : public QObject
{
    Q_OBJECT

public:
    Opener() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "Open"); }
    ~Opener() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
    Q_INVOKABLE void Open(const QUrl& url) { opened = url.toLocalFile(); }

    QString opened;
};

TEST(QtUserInterface, OpensAFileOfAnyName)
{
    Opener opener;
    EXPECT_TRUE(Host().user.OpenFile("/tmp/100% #1 検査?.html"));
    EXPECT_EQ(opener.opened, QStringLiteral("/tmp/100% #1 検査?.html"));
}

TEST(ProgressWindow, CountsAndTellsOfACancelOnce)
{
    Host host;
    ToviProgressDlg progress(false);
    ASSERT_TRUE(progress.Create(nullptr));
    progress.SetRange(0, 4);
    progress.Show();
    progress.StepIt();
    auto* window = host.main->findChild<ProgressWindow*>();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isEnabled() && !host.main->isEnabled());
    EXPECT_EQ(window->percent->text(), QStringLiteral("25%"));
    // The owner gets keys though it is disabled, which the framework's own click takes for a fault.
    const auto pressEscape = [](QWidget& where) {
        QKeyEvent pressed(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&where, &pressed);
    };
    const std::function<void()> cancels[] = {
        [&] { QTest::mouseClick(window->cancelButton, Qt::LeftButton); }, [&] { window->close(); },
        [&] { pressEscape(*host.main); }, [&] { pressEscape(*window); }};
    for (const auto& cancel : cancels) {
        cancel();
        EXPECT_TRUE(progress.GetCancel());
        EXPECT_FALSE(progress.GetCancel());
        EXPECT_TRUE(window->isVisible());
    }
    progress.DestroyWindow();
    EXPECT_TRUE(host.main->isEnabled());
    EXPECT_EQ(host.main->findChild<ProgressWindow*>(), nullptr);
}

TEST(ProgressWindow, KeepsItsOwnerOpenUntilTheWorkIsDoneAndSurvivesIt)
{
    Host host;
    ToviProgressDlg progress(false);
    const auto begin = [&progress] {
        progress.SetCancelBtnEnabled(false);
        progress.Create(nullptr);
        progress.SetRange(0, 2);
        progress.Show();
    };
    begin();
    auto* window = host.main->findChild<ProgressWindow*>();
    EXPECT_FALSE(window->cancelButton->isVisible());
    window->close();
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(window, &escape);
    EXPECT_FALSE(progress.GetCancel()) << "what can't be cancelled was";
    host.main->close();
    EXPECT_TRUE(host.main->isVisible());
    progress.StepIt();
    progress.DestroyWindow();
    QCoreApplication::processEvents();
    EXPECT_FALSE(host.main->isVisible()) << "the request was forgotten";

    begin();
    host.main.reset();
    progress.StepIt();
    EXPECT_FALSE(progress.GetCancel());
    EXPECT_FALSE(progress.DestroyWindow());
}
} // namespace

#include "QtUserInterfaceTest.moc"
