#include "platform/controls/GaluFont.h"

#include "platform/host/JapaneseFont.h"

QFont GaluFont::MsPGothic9pt()
{
    QFont font;
    if (!JapaneseFamily().isEmpty()) font.setFamily(JapaneseFamily());
    font.setPointSize(9);
    return font;
}

QFont GaluFont::MsPGothic9ptBold()
{
    QFont font = MsPGothic9pt();
    font.setBold(true);
    return font;
}
