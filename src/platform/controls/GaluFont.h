#pragma once

#include "platform/text/Export.h"

#include <QFont>

/// The fonts of the windows. Where the machine has no MS PGothic, a Japanese gothic of the system
/// stands in for it, with Latin and Japanese letters from one family, so that both weigh the same.
class TOVI_EXPORT GaluFont
{
public:
    static QFont MsPGothic9pt();
    static QFont MsPGothic9ptBold();
};
