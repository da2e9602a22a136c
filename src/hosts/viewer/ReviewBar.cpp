#include "hosts/viewer/ReviewBar.h"

#include "hosts/viewer/ViewerDocument.h"
#include "inspection/ReviewCounts.h"

#include <QStatusBar>

namespace
{
QLabel* AddLabel(QStatusBar* bar)
{
    auto* label = new QLabel;
    label->setContentsMargins(8, 0, 8, 0);
    bar->addPermanentWidget(label);
    return label;
}

QString SavedText(const ViewerDocument& document)
{
    if (document.HasUnsavedWork()) return QStringLiteral("未保存の検査があります");
    if (document.History()->GetAccess() == InspectionHistory::Access::Look)
        return QStringLiteral("見るだけ");
    return document.RecordPath().empty() ? QStringLiteral("検査は未着手")
                                         : QStringLiteral("検査状況は保存済み");
}
} // namespace

ReviewBar::ReviewBar(QStatusBar* bar)
    : selected(AddLabel(bar)), shown(AddLabel(bar)), ok(AddLabel(bar)), ng(AddLabel(bar)),
      unchecked(AddLabel(bar)), saved(AddLabel(bar))
{}

void ReviewBar::Show(const ViewerDocument& document)
{
    const bool isOpen = document.Data() != nullptr;
    for (QLabel* label : {shown, ok, ng, unchecked, saved}) label->setVisible(isOpen);
    if (!isOpen) return;
    const ReviewCounts counts = CountReview(*document.Data());
    shown->setText(QStringLiteral("表示 %1 枚 / 全 %2 枚").arg(counts.shown).arg(counts.all));
    ok->setText(QStringLiteral("OK %1").arg(counts.ok));
    ng->setText(QStringLiteral("NG %1").arg(counts.ng));
    unchecked->setText(QStringLiteral("未検査 %1").arg(counts.unchecked));
    saved->setText(SavedText(document));
}

void ReviewBar::ShowSelected(int count)
{
    selected->setText(QStringLiteral("選択 %1 枚").arg(count));
    selected->setVisible(count > 1);
}
