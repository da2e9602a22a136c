#include "platform/controls/WenToolBarCtrl.h"

#include "platform/text/QtText.h"

#include <QAction>

WenToolBarCtrl::WenToolBarCtrl(QWidget* parent) : QToolBar(parent)
{
    setMovable(false);
    connect(this, &QToolBar::actionTriggered, this,
            [this](const QAction* action) { emit Command(action->data().toInt()); });
}

void WenToolBarCtrl::SetImages(std::vector<QIcon> icons)
{
    images = std::move(icons);
}

void WenToolBarCtrl::AddButtons(const std::vector<WenToolBarButton>& buttons, const CString& labels)
{
    const QStringList texts = QtText(labels).split(u'|');
    qsizetype next = 0;
    for (const WenToolBarButton& button : buttons) {
        if (button.kind == WenToolBarButton::Kind::Separator) {
            addSeparator();
            continue;
        }
        QAction* const action = addAction(Image(button.image), texts.value(next++));
        action->setCheckable(button.kind == WenToolBarButton::Kind::Check);
        action->setData(button.id);
        widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    }
}

void WenToolBarCtrl::EnableButton(int id, bool enable)
{
    if (QAction* const action = Find(id)) action->setEnabled(enable);
}

void WenToolBarCtrl::CheckButton(int id, bool check)
{
    if (QAction* const action = Find(id)) action->setChecked(check);
}

bool WenToolBarCtrl::IsButtonChecked(int id) const
{
    const QAction* const action = Find(id);
    return action != nullptr && action->isChecked();
}

void WenToolBarCtrl::SetButtonImage(int id, int image)
{
    if (QAction* const action = Find(id)) action->setIcon(Image(image));
}

void WenToolBarCtrl::SetButtonText(int id, const QString& text, const QString& tip)
{
    QAction* const action = Find(id);
    if (action == nullptr) return;
    action->setText(text);
    action->setToolTip(tip);
}

QAction* WenToolBarCtrl::Find(int id) const
{
    for (QAction* const action : actions()) {
        if (!action->isSeparator() && action->data().toInt() == id) return action;
    }
    return nullptr;
}

QIcon WenToolBarCtrl::Image(int number) const
{
    const auto index = static_cast<std::size_t>(number);
    return index < images.size() ? images[index] : QIcon();
}
