#include "platform/controls/WindowId.h"

#include <QVariant>
#include <QWidget>

static constexpr const char* property = "windowId";

int WindowId(const QWidget* widget)
{
    return widget->property(property).toInt();
}

void SetWindowId(QWidget* widget, int id)
{
    widget->setProperty(property, id);
}
