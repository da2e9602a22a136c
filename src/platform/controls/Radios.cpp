#include "platform/controls/Radios.h"

#include "platform/controls/WindowId.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QRadioButton>

QButtonGroup* AddRadios(QObject* owner, QBoxLayout* layout, std::initializer_list<Radio> radios)
{
    auto* const group = new QButtonGroup(owner);
    for (const Radio& radio : radios) {
        auto* const button = new QRadioButton(QString::fromUtf8(radio.text));
        SetWindowId(button, radio.id);
        group->addButton(button, static_cast<int>(group->buttons().size()));
        layout->addWidget(button);
    }
    return group;
}

void EnableRadios(const QButtonGroup& group, bool enable)
{
    for (QAbstractButton* button : group.buttons()) button->setEnabled(enable);
}
