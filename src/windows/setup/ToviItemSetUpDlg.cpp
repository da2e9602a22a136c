#include "windows/setup/ToviItemSetUpDlg.h"

#include "items/ToviItemManager.h"
#include "platform/controls/WindowId.h"
#include "platform/pictures/QtColor.h"
#include "platform/text/QtText.h"
#include "windows/cell/ItemColours.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStackedWidget>

namespace
{
constexpr int idShown = 1090;
constexpr int idShow = 1091;
constexpr int idHide = 1092;
constexpr int idUp = 1093;
constexpr int idDown = 1094;
constexpr int idFirstHidden = 1095;
constexpr int idKinds = 1144;
/// By InfoType.
constexpr const char* kindNames[] = {"管理項目", "ファイル情報", "Exif情報"};

QPushButton* MakeButton(const QString& text, int id)
{
    auto* const button = new QPushButton(text);
    SetWindowId(button, id);
    button->setAutoDefault(false);
    return button;
}

QListWidget* MakeList(int id, const QString& name)
{
    auto* const list = new QListWidget;
    SetWindowId(list, id);
    list->setAccessibleName(name);
    return list;
}

/// The selected row, or -1. The one with the focus need not be selected.
int SelectedRow(const QListWidget& view)
{
    return view.selectedItems().isEmpty() ? -1 : view.row(view.selectedItems().front());
}

QLabel* LegendLine(const char* text, std::optional<unsigned long> color)
{
    auto* const line = new QLabel(QString::fromUtf8(text));
    QPalette palette = line->palette();
    palette.setColor(QPalette::WindowText, color ? QtColor(*color) : QColor(Qt::black));
    line->setPalette(palette);
    return line;
}

/// What the colours in an information list mean, on a white sheet as that is.
QWidget* MakeLegend()
{
    auto* const sheet = new QFrame;
    sheet->setFrameShape(QFrame::StyledPanel);
    QPalette white = sheet->palette();
    white.setColor(QPalette::Window, Qt::white);
    sheet->setPalette(white);
    sheet->setAutoFillBackground(true);
    auto* const grid = new QGridLayout(sheet);
    grid->setVerticalSpacing(2);
    constexpr int rows = 3;
    const std::pair<const char*, std::optional<unsigned long>> lines[] = {
        {kindNames[InfoDelivery], {}},
        {"管理項目(必須項目)", ItemColours::Of(GradeRequired)},
        {"管理項目(条件付き必須項目)", ItemColours::Of(GradeConditional)},
        {kindNames[InfoFile], ItemColours::Of(InfoFile)},
        {kindNames[InfoExif], ItemColours::Of(InfoExif)}};
    for (int line = 0; line < static_cast<int>(std::size(lines)); ++line) {
        const auto& [text, color] = lines[line];
        grid->addWidget(LegendLine(text, color), line % rows, line / rows);
    }
    return sheet;
}
} // namespace

ToviItemSetUpDlg::ToviItemSetUpDlg(ToviItemManager* theManager, QWidget* parent)
    : WenDialog(parent), manager(theManager), lists(theManager->GetItemShowSettings()),
      kinds(new QComboBox), hiddenViews(new QStackedWidget),
      shownView(MakeList(idShown, QStringLiteral("表示"))),
      showButton(MakeButton(QStringLiteral("表示に->"), idShow)),
      hideButton(MakeButton(QStringLiteral("<-非表示に"), idHide)),
      upButton(MakeButton(QStringLiteral("上へ"), idUp)),
      downButton(MakeButton(QStringLiteral("下へ"), idDown))
{
    setWindowTitle(QStringLiteral("「表示項目」と「表示順」の設定"));
    SetWindowId(kinds, idKinds);
    kinds->setAccessibleName(QStringLiteral("項目の種類"));
    for (int kind = InfoDelivery; kind <= InfoExif; ++kind) {
        const QString name = QString::fromUtf8(kindNames[kind]);
        kinds->addItem(name);
        hiddenViews->addWidget(MakeList(idFirstHidden + kind, QStringLiteral("非表示の") + name));
    }
    auto* const moves = new QVBoxLayout;
    moves->addStretch(1);
    moves->addWidget(showButton);
    moves->addWidget(hideButton);
    moves->addStretch(1);
    auto* const order = new QVBoxLayout;
    order->addStretch(1);
    order->addWidget(upButton);
    order->addWidget(downButton);
    order->addStretch(1);
    auto* const grid = new QGridLayout(this);
    grid->addWidget(kinds, 0, 0);
    grid->addWidget(new QLabel(QStringLiteral("非表示")), 1, 0);
    grid->addWidget(new QLabel(QStringLiteral("表示")), 1, 2);
    grid->addWidget(hiddenViews, 2, 0);
    grid->addLayout(moves, 2, 1);
    grid->addWidget(shownView, 2, 2);
    grid->addLayout(order, 2, 3);
    grid->addWidget(
        new QLabel(QStringLiteral("写真情報リストでは、\n各項目は下記のように色分けされます。")), 3,
        0, 1, 4);
    grid->addWidget(MakeLegend(), 4, 0, 1, 4);
    QDialogButtonBox* const buttons = MakeOkCancel();
    okButton = buttons->button(QDialogButtonBox::Ok);
    grid->addWidget(buttons, 5, 0, 1, 4);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);
    Connect();
}

void ToviItemSetUpDlg::Connect()
{
    connect(kinds, &QComboBox::activated, this, [this](int kind) {
        lists.SetKind(static_cast<InfoType>(kind));
        ShowLists();
    });
    for (int kind = 0; kind < hiddenViews->count(); ++kind) {
        auto* const view = static_cast<QListWidget*>(hiddenViews->widget(kind));
        connect(view, &QListWidget::itemSelectionChanged, this, [this, view] {
            lists.SelectHidden(SelectedRow(*view));
            EnableButtons();
        });
        connect(view, &QListWidget::itemDoubleClicked, this, [this] { Do(&ItemLists::Show); });
    }
    connect(shownView, &QListWidget::itemSelectionChanged, this, [this] {
        lists.SelectShown(SelectedRow(*shownView));
        EnableButtons();
    });
    connect(shownView, &QListWidget::itemDoubleClicked, this, [this] { Do(&ItemLists::Hide); });
    connect(showButton, &QPushButton::clicked, this, [this] { Do(&ItemLists::Show); });
    connect(hideButton, &QPushButton::clicked, this, [this] { Do(&ItemLists::Hide); });
    connect(upButton, &QPushButton::clicked, this, [this] { Do(&ItemLists::Up); });
    connect(downButton, &QPushButton::clicked, this, [this] { Do(&ItemLists::Down); });
}

QListWidget* ToviItemSetUpDlg::HiddenView() const
{
    return static_cast<QListWidget*>(hiddenViews->widget(lists.Kind()));
}

void ToviItemSetUpDlg::OnInitDialog()
{
    ShowLists();
    resize(sizeHint());
}

void ToviItemSetUpDlg::Do(void (ItemLists::*operation)())
{
    (lists.*operation)();
    ShowLists();
}

void ToviItemSetUpDlg::ShowLists()
{
    kinds->setCurrentIndex(lists.Kind());
    hiddenViews->setCurrentIndex(lists.Kind());
    Fill(*HiddenView(), lists.Hidden());
    Fill(*shownView, lists.Shown());
    EnableButtons();
}

void ToviItemSetUpDlg::Fill(QListWidget& view, const ItemLists::List& list) const
{
    const QSignalBlocker quiet(view);
    const int scrolled = view.verticalScrollBar()->value();
    view.clear();
    for (const int item : list.items) view.addItem(QtText(lists.Title(item)));
    view.setCurrentRow(list.selected);
    view.verticalScrollBar()->setValue(scrolled);
    if (list.selected >= 0) view.scrollToItem(view.currentItem());
}

void ToviItemSetUpDlg::EnableButtons()
{
    const ItemLists::Moves possible = lists.Possible();
    showButton->setEnabled(possible.show);
    hideButton->setEnabled(possible.hide);
    upButton->setEnabled(possible.up);
    downButton->setEnabled(possible.down);
    okButton->setEnabled(possible.accept);
}

void ToviItemSetUpDlg::OnOK()
{
    if (!lists.Possible().accept) return;
    manager->SetItemShowSettings(lists.Result());
    WenDialog::OnOK();
}
