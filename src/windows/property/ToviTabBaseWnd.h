#pragma once

#include "items/ToviItemShowSettings.h"
#include "platform/text/Export.h"

#include <QWidget>

class QTabBar;
class ToviData;
class ToviPhoto;
class ToviPropertyDlg;

/// The tabs 写真情報 and 参考図 of a photograph.
class TOVI_EXPORT ToviTabBaseWnd : public QWidget
{
    Q_OBJECT

public:
    explicit ToviTabBaseWnd(QWidget* parent);

    /// See ToviPropertyDlg.
    void SetContent(ToviData& document, ToviPhoto& photo, const ToviItemShowSettings& settings);
    void ClearContent();
    /// Selects the tab \p page, 0 or 1.
    void ShowPage(int page);
    int GetSelectedPage() const;

private:
    QTabBar* tabs;
    ToviPropertyDlg* dialog;
};
