#include "hosts/viewer/DetailDock.h"

#include "hosts/viewer/ViewerDocument.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "review/SlideMode.h"
#include "windows/detail/ToviDetailPanel.h"
#include "windows/pictures/Pictures.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>

#include <utility>

namespace
{
constexpr unsigned int panelId = 103;
}

/// A dock that gives its content the splitter's place once it has a size.
class DetailDock::Dock : public QDockWidget
{
public:
    using QDockWidget::QDockWidget;

    ToviDetailPanel* panel = nullptr;

protected:
    void showEvent(QShowEvent* event) override
    {
        QDockWidget::showEvent(event);
        if (std::exchange(isAdjusted, true)) return;
        QMetaObject::invokeMethod(
            this, [this] { panel->AdjustSplitter(); }, Qt::QueuedConnection);
    }

private:
    bool isAdjusted = false;
};

DetailDock::DetailDock(QMainWindow* mainWindow, ViewerDocument& shown)
    : document(shown), panel(std::make_unique<ToviDetailPanel>()),
      dock(new Dock(QStringLiteral("詳細"), mainWindow))
{
    dock->setObjectName(QStringLiteral("detail"));
    panel->Create(dock, panelId);
    dock->panel = panel.get();
    dock->setWidget(panel.get());
    mainWindow->addDockWidget(Qt::BottomDockWidgetArea, dock);
    dock->hide();
    document.AddPanel(panel.get());

    connect(dock, &QDockWidget::visibilityChanged, this, &DetailDock::OnVisibilityChanged);
    connect(&document, &ViewerDocument::Updated, this, &DetailDock::Follow);
}

DetailDock::~DetailDock() = default;

QAction* DetailDock::ToggleAction() const
{
    return dock->toggleViewAction();
}

/// The slide show, and a main window that is hidden, take the dock away without the user's wish.
void DetailDock::OnVisibilityChanged()
{
    if (document.Data() == nullptr || IsSlideMode() || !dock->parentWidget()->isVisible()) return;
    const bool isShown = !dock->isHidden();
    if (isShown == document.Data()->GetVisualSetting().GetVisibleDetail()) return;
    wanted = isShown;
    emit VisibleChosen(isShown);
}

void DetailDock::Follow()
{
    if (document.Data() == nullptr || IsSlideMode()) return;
    const bool now = document.Data()->GetVisualSetting().GetVisibleDetail();
    if (std::exchange(wanted, now) != now) dock->setVisible(now);
}
