#pragma once

#include <QStringList>

/// The font family for Japanese text among \p installed, of which \p japanese can write Japanese:
/// MS PGothic, else a gothic whose Latin letters are as heavy as its Japanese ones. Empty when
/// there is none, which leaves the choice to the system.
QString ChooseJapaneseFamily(const QStringList& installed, const QStringList& japanese);

/// The same of the families on this machine, looked up once. Needs Qt's drawing services.
const QString& JapaneseFamily();
