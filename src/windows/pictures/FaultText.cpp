#include "windows/pictures/FaultText.h"

#include "platform/text/QtText.h"

QString FaultReason(PictureFault fault)
{
    switch (fault) {
    case PictureFault::None:
        return {};
    case PictureFault::Missing:
        return QStringLiteral("ファイルがありません");
    case PictureFault::Outside:
        return QStringLiteral("納品フォルダーの外です");
    case PictureFault::Unreadable:
        return QStringLiteral("ファイルを読めません");
    case PictureFault::NoPicture:
        return QStringLiteral("写真のファイルではありません");
    case PictureFault::Damaged:
        return QStringLiteral("ファイルが壊れています");
    case PictureFault::TooLarge:
        return QStringLiteral("大きすぎます");
    case PictureFault::Cut:
        return QStringLiteral("途中で切れています");
    }
    return {};
}

QString FaultText(PictureFault fault, const CString& path)
{
    QStringList lines = {QStringLiteral("表示できません"), QtText(path.substr(path.rfind('/') + 1)),
                         FaultReason(fault)};
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}
