#pragma once

#include "platform/text/Export.h"

#include <QScrollArea>

/// Shows a page as large as it wants to be, and with scroll bars where there is no room for that.
class TOVI_EXPORT ScrolledPage : public QScrollArea
{
    Q_OBJECT

public:
    /// Takes over \p page.
    explicit ScrolledPage(QWidget* page);

    QSize sizeHint() const override;
};
