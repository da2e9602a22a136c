#include "windows/extraction/ExtractionStrip.h"

#include "platform/text/QtText.h"
#include "windows/extraction/SearchField.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>

ExtractionStrip::ExtractionStrip() : field(new SearchField), text(new QLabel), end(new QPushButton)
{
    setObjectName(QStringLiteral("extraction"));
    setStyleSheet(QStringLiteral("#extraction { background: #cfe8d5; border-bottom: 1px solid "
                                 "#7db88c; } QLabel { color: #10381c; }"));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    connect(end, &QPushButton::clicked, this, &ExtractionStrip::EndRequested);
    connect(field, &QLineEdit::textChanged, this, &ExtractionStrip::TextChanged);
    connect(field, &SearchField::EndRequested, this, &ExtractionStrip::SearchEndRequested);
    connect(field, &SearchField::PhotosRequested, this, &ExtractionStrip::PhotosRequested);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(10, 4, 6, 4);
    row->addWidget(field);
    row->addWidget(text, 1);
    row->addWidget(end);
    field->hide();
    hide();
}

void ExtractionStrip::Tell(const CString& sentence, const CString& endText)
{
    text->setText(QtText(sentence));
    end->setText(QtText(endText));
    ShowIfNeeded();
}

void ExtractionStrip::BeginSearch()
{
    field->show();
    ShowIfNeeded();
    field->setFocus(Qt::ShortcutFocusReason);
    field->selectAll();
}

void ExtractionStrip::Search(const CString& words)
{
    field->show();
    ShowIfNeeded();
    field->setText(QtText(words));
}

void ExtractionStrip::EndSearch()
{
    const QSignalBlocker quiet(field);
    field->clear();
    field->hide();
    ShowIfNeeded();
}

CString ExtractionStrip::SearchText() const
{
    return FromQtText(field->text());
}

void ExtractionStrip::ShowIfNeeded()
{
    setVisible(!field->isHidden() || !text->text().isEmpty());
}
