#pragma once

#include "platform/host/ProgressPort.h"

#include <QPointer>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

/// What is seen of a long work: a message, a bar with its percentage, and キャンセル.
class ProgressWindow : public QWidget
{
    Q_OBJECT

public:
    /// \p owner may be null.
    explicit ProgressWindow(QWidget* owner);

    QLabel* message;
    QProgressBar* bar;
    QLabel* percent;
    QPushButton* cancelButton;
    /// Cancel or the close box was chosen and nobody was told yet.
    bool cancelled = false;

protected:
    void closeEvent(QCloseEvent* event) override;
};

/// A ProgressWindow as the model knows it. While it is up, its owner is not closed: a request to
/// close it is made again behind the work.
class ProgressWindowPort : public QObject, public ProgressPort
{
    Q_OBJECT

public:
    explicit ProgressWindowPort(QWidget* windowOwner);
    ~ProgressWindowPort() override;

    bool IsWindow() const override { return !window.isNull(); }
    bool HasOwner() const override { return !owner.isNull(); }
    void EnableOwner(bool enable) override;
    void SetCancelEnabled(bool enable) override;
    void SetCaption(const CString& text) override;
    void SetRange(int lower, int upper) override;
    void SetBar(int pos) override;
    void SetMessage(const CString& text) override;
    void SetPercent(const CString& text) override;
    void Show() override;
    bool Pump() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool IsCancelKey(const QEvent& event) const;

    QPointer<QWidget> owner;
    /// Had the focus in the owner while that is disabled.
    QPointer<QWidget> focus;
    QPointer<ProgressWindow> window;
    bool closeRequested = false;
};
