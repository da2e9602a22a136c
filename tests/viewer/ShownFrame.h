#pragma once

#include "hosts/viewer/MainFrame.h"
#include "platform/text/QtText.h"
#include "sample/DeliveryBuilder.h"
#include "support/TempFolder.h"
#include "support/TestHost.h"
#include "windows/page/ToviMpiPanel.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include <deque>

/// The main window as after a start of the viewer, with a delivery of eight photographs in the
/// folder "delivery" that it doesn't show yet.
struct ShownFrame
{
    ShownFrame()
    {
        // The test goes on behind the last window.
        QApplication::setQuitOnLastWindowClosed(false);
        qputenv("XDG_STATE_HOME", temp.Path("state").c_str());
        Deliver("delivery");
        Start();
    }

    ~ShownFrame() { qputenv("XDG_STATE_HOME", stateOfOthers); }
    ShownFrame(const ShownFrame&) = delete;
    ShownFrame& operator=(const ShownFrame&) = delete;

    void Deliver(const CString& name) const
    {
        DeliveryBuilder({.photos = 8, .drawings = 0, .images = false}).Write(temp.Path(name));
    }

    /// Starts the viewer, over again if it is running.
    void Start()
    {
        if (frame) frame->close();
        frame = std::make_unique<MainFrame>();
        frame->show();
        Activate();
    }
    void Activate() const
    {
        frame->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
    }
    bool Open(const CString& name = "delivery") const
    {
        const bool opened = frame->OpenDelivery(temp.Path(name), std::nullopt);
        Panel().setFocus();
        QCoreApplication::processEvents();
        return opened;
    }

    ToviMpiPanel& Panel() const { return *frame->findChild<ToviMpiPanel*>(); }
    ToviData& Data() const { return *Panel().GetData(); }
    bool IsOpen() const { return Panel().GetData() != nullptr; }
    int Selected() const { return Data().GetSelectCurIndex(); }
    CString Title() const { return FromQtText(frame->windowTitle()); }
    /// The texts of the status bar that are to be seen.
    std::vector<CString> Status() const
    {
        QCoreApplication::processEvents();
        std::vector<CString> texts;
        for (const QLabel* label : frame->statusBar()->findChildren<QLabel*>()) {
            if (label->isVisible()) texts.push_back(FromQtText(label->text()));
        }
        return texts;
    }
    /// The sentence on the start page that tells why nothing could be opened; empty without one.
    CString Problem() const
    {
        const auto* label = frame->findChild<QLabel*>(QStringLiteral("problem"));
        return label->isVisible() ? FromQtText(label->text()) : CString();
    }

    /// The command of the main window whose words begin so.
    QAction* Command(const char* words) const
    {
        for (QAction* action : frame->findChildren<QAction*>()) {
            if (action->text().startsWith(QString::fromUtf8(words))) return action;
        }
        ADD_FAILURE() << words;
        return nullptr;
    }

    /// The field of the strip in which comments are written.
    QWidget* Comment() const
    {
        return frame->findChild<QWidget*>(QStringLiteral("commentEntry"))
            ->findChild<QPlainTextEdit*>();
    }

    /// Presses a key where the focus is.
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        // A dialog may have been in front.
        Activate();
        QWidget* const focus = QApplication::focusWidget();
        QTest::keyClick(focus != nullptr ? focus : frame.get(), static_cast<Qt::Key>(key),
                        modifiers);
        QCoreApplication::processEvents();
    }

    /// What the user does in the dialogs to come, one after the other.
    void OnDialogs(std::deque<std::function<void(QWidget&)>> acts,
                   const QWidget* before = nullptr) const
    {
        QTimer::singleShot(1, frame.get(), [this, acts = std::move(acts), before]() mutable {
            QWidget* const dialog = QApplication::activeModalWidget();
            if (dialog == nullptr || dialog == before) {
                OnDialogs(std::move(acts), before);
                return;
            }
            const auto act = acts.front();
            acts.pop_front();
            if (!acts.empty()) OnDialogs(std::move(acts), dialog);
            act(*dialog);
        });
    }

    const QByteArray stateOfOthers = qgetenv("XDG_STATE_HOME");
    TestHost services;
    TempFolder temp;
    std::unique_ptr<MainFrame> frame;
};
