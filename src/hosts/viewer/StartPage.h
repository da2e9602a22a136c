#pragma once

#include "platform/text/Text.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// What stands in the place of the photographs while no delivery is open: what to do, the
/// deliveries opened last, and why the last one could not be opened.
class StartPage : public QWidget
{
    Q_OBJECT

public:
    /// \p open is the command that lets the user choose a delivery.
    explicit StartPage(QAction* open);

    /// Shows \p sentence, or nothing when it is empty.
    void ShowProblem(const CString& sentence);
    void ShowRecent(const CStringArray& folders);

signals:
    /// The user has chosen one of the deliveries opened last.
    void DeliveryChosen(const QString& folder);

    /// The user wants to try a sample.
    void SampleRequested();

private:
    /// The button of a delivery that was open, with what is known of it.
    QPushButton* MakeRecent(const CString& folder);

    QLabel* problem;
    QLabel* recentTitle;
    QVBoxLayout* recent;
    QCheckBox* opensLast;
};
