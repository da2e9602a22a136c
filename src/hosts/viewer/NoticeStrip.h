#pragma once

#include "platform/text/Text.h"

#include <QFrame>

class QLabel;
class QPushButton;

/// A strip over the photographs that tells what is wrong with the machine until it is closed. Out
/// of sight while there is nothing to tell.
class NoticeStrip : public QFrame
{
    Q_OBJECT

public:
    NoticeStrip();

    /// Shows \p sentences, a line each.
    void Tell(const CStringArray& sentences);
    /// Offers what can be done about it.
    void SetAction(const QString& name);

signals:
    void ActionRequested();
    /// The user doesn't want to see it.
    void Closed();

private:
    QPushButton* action;
    QLabel* text;
};
