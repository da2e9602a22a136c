#pragma once

#include <QObject>

#include <memory>

class QAction;
class QMainWindow;
class ToviDetailPanel;
class ViewerDocument;

/// The detail panel as a dock of the main window: hidden until the user asks for it. From then on
/// the setting of the document follows what the user does, and the dock follows the setting.
class DetailDock : public QObject
{
    Q_OBJECT

public:
    /// Adds the dock, hidden, to \p mainWindow, whose saved state may show it; both outlive this.
    DetailDock(QMainWindow* mainWindow, ViewerDocument& shown);
    ~DetailDock() override;

    /// The command that shows and hides the dock.
    QAction* ToggleAction() const;

signals:
    /// The user has shown or hidden the dock, which the setting doesn't say yet.
    void VisibleChosen(bool visible);

private:
    class Dock;

    void OnVisibilityChanged();
    void Follow();

    ViewerDocument& document;
    std::unique_ptr<ToviDetailPanel> panel;
    Dock* dock;
    /// The setting as it was last seen; true, as at first, leaves the dock as it is.
    bool wanted = true;
};
