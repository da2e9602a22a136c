#include "hosts/viewer/NoPhotosPage.h"

#include "platform/text/QtText.h"
#include "review/ToviLabelManager.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

CString NoPhotosText(ToviLabelManager& labels, int selectedLabel)
{
    if (selectedLabel < 0) return "左の「付箋」から付箋を選ぶと、その写真が表示されます。";
    const CString name =
        labels.GetLabelAttribute(static_cast<unsigned long>(selectedLabel)).GetName();
    return "付箋「" + name + "」の写真はまだありません。";
}

NoPhotosPage::NoPhotosPage() : text(new QLabel)
{
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignCenter);
    auto* const back = new QPushButton(QStringLiteral("「分類」の写真に戻る"));
    connect(back, &QPushButton::clicked, this, &NoPhotosPage::BackRequested);
    auto* const column = new QVBoxLayout(this);
    column->addStretch(1);
    column->addWidget(text);
    column->addSpacing(12);
    column->addWidget(back, 0, Qt::AlignHCenter);
    column->addStretch(2);
}

void NoPhotosPage::Tell(const CString& sentence)
{
    text->setText(QtText(sentence));
}
