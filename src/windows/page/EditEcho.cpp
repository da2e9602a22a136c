#include "windows/page/EditEcho.h"

#include "platform/text/QtText.h"
#include "review/LabelCaption.h"

#include <QStringList>

namespace
{
QString NamesOf(LabelSet set, const ToviLabelManager& labels)
{
    QStringList names;
    for (unsigned int slot = 0; slot < labelCount; ++slot) {
        if (slot != LabelComment && set[slot]) names << QtText(LabelCaption(labels, slot));
    }
    return names.join(QStringLiteral("、"));
}
} // namespace

QString EchoOf(const LabelEdit& edit, const ToviLabelManager& labels)
{
    LabelSet pasted;
    LabelSet removed;
    for (const LabelEdit::Change& change : edit.changes) {
        pasted |= change.after.labels & ~change.before.labels;
        removed |= change.before.labels & ~change.after.labels;
    }
    QString words = NamesOf(pasted, labels);
    if (words.isEmpty()) {
        words = NamesOf(removed, labels);
        if (words.isEmpty()) return {};
        words = QStringLiteral("外す：%1").arg(words);
    }
    if (edit.changes.size() == 1) return words;
    return QStringLiteral("%1（%2枚）").arg(words).arg(edit.changes.size());
}
