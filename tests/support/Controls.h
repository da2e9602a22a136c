#pragma once

#include "platform/controls/WindowId.h"

#include <QWidget>

#include <stdexcept>
#include <string>

/// The control of \p window with the window id \p id.
template <class Widget>
Widget& Control(const QWidget& window, int id)
{
    for (auto* control : window.findChildren<Widget*>()) {
        if (WindowId(control) == id) return *control;
    }
    throw std::out_of_range("no control " + std::to_string(id));
}
