#pragma once

#include "platform/text/Text.h"

#include <QString>

/// \p text as Qt has it. What is no UTF-8 becomes U+FFFD.
inline QString QtText(const CString& text)
{
    return QString::fromStdString(text);
}

/// \p text as the system has it.
inline CString FromQtText(const QString& text)
{
    return text.toStdString();
}
