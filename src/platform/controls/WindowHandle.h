#pragma once

#include "platform/host/CWnd.h"

#include <QWidget>

/// A widget as the model hands it on.
inline CWnd* AsWindow(QWidget* widget)
{
    return reinterpret_cast<CWnd*>(widget);
}

/// The widget that AsWindow was given; null stays null.
inline QWidget* AsWidget(CWnd* window)
{
    return reinterpret_cast<QWidget*>(window);
}
