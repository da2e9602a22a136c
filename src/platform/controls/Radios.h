#pragma once

#include "platform/text/Export.h"

#include <initializer_list>

class QBoxLayout;
class QButtonGroup;
class QObject;

/// One of several radio buttons.
struct Radio
{
    /// Its window id (see WindowId).
    int id;
    const char* text;
};

/// Adds radio buttons to \p layout, of which one is chosen. In the group, which \p owner owns, they
/// have the numbers from 0 on.
TOVI_EXPORT QButtonGroup* AddRadios(QObject* owner, QBoxLayout* layout,
                                    std::initializer_list<Radio> radios);
/// Enables or disables all buttons of \p group.
TOVI_EXPORT void EnableRadios(const QButtonGroup& group, bool enable);
