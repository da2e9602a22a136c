#pragma once

#include "platform/text/QtText.h"

#include <QTextDocument>

/// \p text for a tool tip, which takes marked-up text and would obey marks and load pictures that
/// stand in it. Long text is broken into lines.
inline QString ToolTipText(const CString& text)
{
    return text.empty() ? QString() : Qt::convertFromPlainText(QtText(text), Qt::WhiteSpaceNormal);
}
