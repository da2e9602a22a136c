#include "hosts/viewer/GroundMenu.h"

#include "hosts/viewer/FrameState.h"
#include "windows/pictures/PhotoGround.h"

#include <QActionGroup>
#include <QMenu>

namespace
{
constexpr const char* entry = "PhotoGround";

struct Choice
{
    const char* text;
    const char* word;
    std::optional<GroundTone> tone;
};

const Choice choices[] = {{"画面の配色に合わせる(&A)", "", {}},
                          {"明るい灰色(&L)", "Light", GroundTone::Light},
                          {"中間の灰色(&M)", "Middle", GroundTone::Middle},
                          {"暗い灰色(&D)", "Dark", GroundTone::Dark}};
} // namespace

QMenu* MakeGroundMenu(QWidget* parent)
{
    auto* const menu = new QMenu(QStringLiteral("写真の背景(&B)"), parent);
    auto* const group = new QActionGroup(menu);
    const QByteArray kept = FrameState::ReadBytes(entry);
    for (const Choice& choice : choices) {
        QAction* const action = menu->addAction(QString::fromUtf8(choice.text));
        action->setCheckable(true);
        group->addAction(action);
        QObject::connect(action, &QAction::triggered, menu, [choice] {
            PhotoGround::Get().Choose(choice.tone);
            FrameState::WriteBytes(entry, choice.word);
        });
        if (!choice.tone || kept == choice.word) {
            action->setChecked(true);
            PhotoGround::Get().Choose(choice.tone);
        }
    }
    return menu;
}
