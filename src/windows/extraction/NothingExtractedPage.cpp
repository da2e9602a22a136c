#include "windows/extraction/NothingExtractedPage.h"

#include "platform/text/QtText.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

NothingExtractedPage::NothingExtractedPage() : text(new QLabel), end(new QPushButton)
{
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignCenter);
    auto* const change = new QPushButton(QStringLiteral("条件を変更..."));
    connect(change, &QPushButton::clicked, this, &NothingExtractedPage::ChangeRequested);
    connect(end, &QPushButton::clicked, this, &NothingExtractedPage::EndRequested);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(change);
    buttons->addWidget(end);
    buttons->addStretch(1);
    auto* const column = new QVBoxLayout(this);
    column->addStretch(1);
    column->addWidget(text);
    column->addSpacing(12);
    column->addLayout(buttons);
    column->addStretch(2);
}

void NothingExtractedPage::Tell(const CString& sentence, const CString& endText)
{
    text->setText(QtText(sentence));
    end->setText(QtText(endText));
}
