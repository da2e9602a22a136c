#pragma once

#include "platform/text/Text.h"

#include <QFrame>

class QLabel;

/// A strip over the photographs that tells what is wrong with the machine until it is closed. Out
/// of sight while there is nothing to tell.
class NoticeStrip : public QFrame
{
    Q_OBJECT

public:
    NoticeStrip();

    /// Shows \p sentences, a line each.
    void Tell(const CStringArray& sentences);

private:
    QLabel* text;
};
