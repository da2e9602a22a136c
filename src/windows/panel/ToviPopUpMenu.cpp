#include "windows/panel/ToviPopUpMenu.h"

#include "platform/text/QtText.h"
#include "review/LabelCaption.h"
#include "windows/pictures/Pictures.h"

namespace
{
constexpr int labelPictures = 805;

QString NameOf(const ToviLabelManager& labels, unsigned int label)
{
    // An ampersand of the user's own marks no key.
    return QtText(LabelCaption(labels, label)).replace(u'&', QStringLiteral("&&"));
}
} // namespace

ToviPopUpMenu::ToviPopUpMenu(const ToviLabelManager& labels, QWidget* parent) : QMenu(parent)
{
    AddCommand(this, QStringLiteral("写真拡大[情報](&Z)"), LabelMenuId::zoom)
        ->setIcon(PictureIcon("zoom"));
    QMenu* const paste = addMenu(QStringLiteral("付箋の貼り付け(&S)"));
    QMenu* const remove = addMenu(QStringLiteral("付箋の削除(&R)"));
    const std::vector<QIcon> icons = PictureIcons(labelPictures);
    for (unsigned int label = 0; label < labelCount; ++label) {
        const QString name = NameOf(labels, label);
        pasteItems[label] = AddCommand(paste, name, LabelMenuId::paste + label);
        removeItems[label] = AddCommand(remove, name, LabelMenuId::remove + label);
        pasteItems[label]->setIcon(icons[label]);
        removeItems[label]->setIcon(icons[label]);
    }
    remove->addSeparator();
    removeAllItem = AddCommand(remove, QStringLiteral("全て"), LabelMenuId::removeAll);
}

QAction* ToviPopUpMenu::AddCommand(QMenu* menu, const QString& text, unsigned int id)
{
    QAction* const item = menu->addAction(text);
    connect(item, &QAction::triggered, this, [this, id] { emit CommandChosen(id); });
    return item;
}

void ToviPopUpMenu::EnableItems(const LabelMenuItems& items)
{
    for (unsigned int label = 0; label < labelCount; ++label) {
        pasteItems[label]->setEnabled(items.paste[label]);
        removeItems[label]->setEnabled(items.remove[label]);
    }
    removeAllItem->setEnabled(items.removeAll);
}
