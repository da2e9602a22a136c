#include "windows/extraction/ExtractionStrip.h"

#include "platform/text/QtText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

ExtractionStrip::ExtractionStrip() : text(new QLabel)
{
    setObjectName(QStringLiteral("extraction"));
    setStyleSheet(QStringLiteral("#extraction { background: #cfe8d5; border-bottom: 1px solid "
                                 "#7db88c; } QLabel { color: #10381c; }"));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    auto* const end = new QPushButton(QStringLiteral("抽出を解除"));
    connect(end, &QPushButton::clicked, this, &ExtractionStrip::EndRequested);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(10, 4, 6, 4);
    row->addWidget(text, 1);
    row->addWidget(end);
    hide();
}

void ExtractionStrip::Tell(const CString& sentence)
{
    text->setText(QtText(sentence));
    setVisible(!sentence.empty());
}
