#include "windows/property/ToviTabBaseWnd.h"

#include "platform/controls/GaluFont.h"
#include "windows/property/ToviPropertyDlg.h"

#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>

ToviTabBaseWnd::ToviTabBaseWnd(QWidget* parent)
    : QWidget(parent), tabs(new QTabBar), dialog(new ToviPropertyDlg(this))
{
    tabs->addTab(QStringLiteral("写真情報"));
    tabs->addTab(QStringLiteral("参考図"));
    tabs->setFont(GaluFont::MsPGothic9pt());
    tabs->setExpanding(false);
    tabs->setDrawBase(true);
    tabs->setMinimumWidth(1);
    connect(tabs, &QTabBar::currentChanged, dialog, &ToviPropertyDlg::ShowPage);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(tabs);
    layout->addWidget(dialog, 1);
}

void ToviTabBaseWnd::SetContent(ToviData& document, ToviPhoto& photo,
                                const ToviItemShowSettings& settings)
{
    dialog->SetContent(document, photo, settings);
}

void ToviTabBaseWnd::ClearContent()
{
    dialog->ClearContent();
}

void ToviTabBaseWnd::ShowPage(int page)
{
    tabs->setCurrentIndex(page);
}

int ToviTabBaseWnd::GetSelectedPage() const
{
    return std::max(0, tabs->currentIndex());
}
