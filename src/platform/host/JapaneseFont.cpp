#include "platform/host/JapaneseFont.h"

#include <QFontDatabase>

#include <algorithm>

namespace
{
const char16_t* const preferred[] = {u"MS PGothic",   u"ＭＳ Ｐゴシック", u"Noto Sans CJK JP",
                                     u"Noto Sans JP", u"IPAPGothic",      u"IPAexGothic"};

bool IsGothic(const QString& family)
{
    return family.contains(u"Gothic") || family.contains(u"ゴシック") || family.contains(u"Sans");
}
} // namespace

QString ChooseJapaneseFamily(const QStringList& installed, const QStringList& japanese)
{
    for (const char16_t* const family : preferred) {
        if (installed.contains(QStringView(family))) return QString::fromUtf16(family);
    }
    const auto gothic = std::find_if(japanese.begin(), japanese.end(), IsGothic);
    if (gothic != japanese.end()) return *gothic;
    return japanese.value(0);
}

const QString& JapaneseFamily()
{
    static const QString family = ChooseJapaneseFamily(
        QFontDatabase::families(), QFontDatabase::families(QFontDatabase::Japanese));
    return family;
}
