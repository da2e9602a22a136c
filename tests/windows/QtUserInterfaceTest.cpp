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
#include <QProgressBar>
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
        user.SetMainWindow(&main);
        InstallHostServices({&user, nullptr, "Tovi", ""});
        main.show();
    }
    ~Host() { InstallHostServices({}); }

    QWidget main;
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
    const struct
    {
        MessageButtons buttons;
        Qt::Key key;
        MessageAnswer answer;
    } cases[] = {{MessageButtons::Ok, Qt::Key_Return, MessageAnswer::Ok},
                 {MessageButtons::Ok, Qt::Key_Escape, MessageAnswer::Ok},
                 {MessageButtons::OkCancel, Qt::Key_Return, MessageAnswer::Ok},
                 {MessageButtons::OkCancel, Qt::Key_Escape, MessageAnswer::Cancel},
                 {MessageButtons::YesNo, Qt::Key_Return, MessageAnswer::Yes},
                 {MessageButtons::YesNo, Qt::Key_Escape, MessageAnswer::No},
                 {MessageButtons::YesNoCancel, Qt::Key_Escape, MessageAnswer::Cancel}};
    Host host;
    for (const auto& expected : cases) {
        PressInNextWindow(expected.key);
        EXPECT_EQ(
            host.user.ShowMessage("<b>本文</b>", "見出し", expected.buttons, MessageIcon::Question),
            expected.answer);
    }
}

TEST(QtUserInterface, ProposesTheFirstOptionAndCancelToEnter)
{
    Host host;
    Choice choice;
    choice.title = "付箋の一括訂正";
    choice.notes.Add("説明");
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

TEST(QtUserInterface, AsksAgainForAFolderThatIsNotThere)
{
    Host host;
    const QTemporaryDir folder;
    const auto enter = [&folder](const char* name) {
        QWidget* const dialog = QApplication::activeModalWidget();
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(folder.filePath(QString::fromUtf8(name)));
        QTest::keyClick(dialog, Qt::Key_Return);
    };
    QTimer::singleShot(0, qApp, [&] {
        PressInNextWindow(Qt::Key_Return);
        QTimer::singleShot(50, qApp, [&] { enter("x.xls"); });
        enter("none/x.xls");
    });
    const SaveQuestion question = {folder.path().toStdString(), "x", "xls", "EXCEL(*.xls)",
                                   "*.xls"};
    CString path;
    EXPECT_TRUE(host.user.ChooseSaveFile(question, path));
    EXPECT_EQ(path, folder.filePath(QStringLiteral("x.xls")).toStdString());
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
                 {1, "a.XLSX", "a.XLSX"}};
    Host host;
    const QTemporaryDir folder;
    const CString place = folder.path().toStdString();
    for (const auto& expected : cases) {
        QTimer::singleShot(0, qApp, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            auto* kinds = dialog->findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
            for (int i = 0; i < expected.kind; ++i) QTest::keyClick(kinds, Qt::Key_Down);
            dialog->selectFile(QString::fromUtf8(expected.typed));
            QTest::keyClick(dialog, Qt::Key_Return);
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
        bool canMakeFolder;
        bool makesOne;
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
    EXPECT_FALSE(host.main.isEnabled());
    progress.StepIt();
    auto* window = host.main.findChild<ProgressWindow*>();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isEnabled());
    EXPECT_EQ(window->bar->value(), 1);
    EXPECT_EQ(window->percent->text(), QStringLiteral("25%"));
    QTest::mouseClick(window->cancelButton, Qt::LeftButton);
    EXPECT_TRUE(progress.GetCancel());
    EXPECT_FALSE(progress.GetCancel());
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(progress.GetCancel()) << "the close box is a cancel, too";
    progress.DestroyWindow();
    EXPECT_TRUE(host.main.isEnabled());
    EXPECT_EQ(host.main.findChild<ProgressWindow*>(), nullptr);
}

TEST(ProgressWindow, KeepsItsOwnerOpenUntilTheWorkIsDone)
{
    Host host;
    auto progress = std::make_unique<ToviProgressDlg>(false);
    progress->SetCancelBtnEnabled(false);
    progress->Create(nullptr);
    progress->SetRange(0, 2);
    progress->Show();
    auto* window = host.main.findChild<ProgressWindow*>();
    EXPECT_FALSE(window->cancelButton->isVisible());
    window->close();
    EXPECT_FALSE(progress->GetCancel()) << "what can't be cancelled was";
    host.main.close();
    EXPECT_TRUE(host.main.isVisible());
    progress->StepIt();
    progress.reset();
    QCoreApplication::processEvents();
    EXPECT_FALSE(host.main.isVisible()) << "the request was forgotten";
}

TEST(ProgressWindow, SurvivesItsOwner)
{
    auto main = std::make_unique<QWidget>();
    QtUserInterface user;
    user.SetMainWindow(main.get());
    InstallHostServices({&user, nullptr, "Tovi", ""});
    ToviProgressDlg progress(false);
    progress.Create(nullptr);
    progress.SetRange(0, 3);
    progress.Show();
    main.reset();
    progress.StepIt();
    EXPECT_FALSE(progress.GetCancel());
    EXPECT_FALSE(progress.DestroyWindow());
    InstallHostServices({});
}
} // namespace

#include "QtUserInterfaceTest.moc"
