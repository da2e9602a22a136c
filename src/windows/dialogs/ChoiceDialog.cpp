#include "windows/dialogs/ChoiceDialog.h"

#include "platform/text/QtText.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace
{
QLabel* Line(const CString& text)
{
    auto* label = new QLabel(QtText(text));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}
} // namespace

ChoiceDialog::ChoiceDialog(const Choice& choice, QWidget* parent)
    : WenDialog(parent), options(new QButtonGroup(this))
{
    setWindowTitle(QtText(choice.title));
    auto* layout = new QVBoxLayout(this);
    for (const CString& note : choice.notes) layout->addWidget(Line(note));
    for (int index = 0; index < choice.options.GetSize(); ++index) {
        const Choice::Option& option = choice.options[index];
        QString text = QtText(option.text);
        auto* button = new QRadioButton(text.replace(QLatin1Char('&'), QStringLiteral("&&")));
        options->addButton(button, index);
        layout->addWidget(button);
        if (option.explanation.empty()) continue;
        QLabel* explanation = Line(option.explanation);
        explanation->setIndent(button->sizeHint().height());
        button->setAccessibleDescription(explanation->text());
        layout->addWidget(explanation);
    }
    if (options->button(0) != nullptr) options->button(0)->setChecked(true);
    QDialogButtonBox* buttons = MakeOkCancel();
    layout->addSpacing(8);
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Ok)->setText(QtText(choice.accept));
    QPushButton* const usual =
        buttons->button(choice.enterAccepts ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel);
    usual->setDefault(true);
    // Where Enter accepts, the arrows choose first.
    QWidget* const first = choice.enterAccepts ? options->button(0) : nullptr;
    (first != nullptr ? first : usual)->setFocus();
    setMinimumWidth(480);
}

int ChoiceDialog::GetOption() const
{
    return options->checkedId();
}
