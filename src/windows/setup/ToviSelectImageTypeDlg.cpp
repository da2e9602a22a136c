#include "windows/setup/ToviSelectImageTypeDlg.h"

#include "platform/host/HostServices.h"
#include "platform/text/QtText.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

ToviSelectImageTypeDlg::ToviSelectImageTypeDlg(QWidget* parent)
    : WenDialog(parent), list(new QListWidget), description(new QLabel)
{
    setWindowTitle(QStringLiteral("画像加工検知タイプの選択"));
    // The ticks' frames are made of this one, and have to stand out in a dark list, too.
    QPalette colors = list->palette();
    colors.setColor(QPalette::Window, Qt::gray);
    list->setPalette(colors);
    list->setAccessibleName(QStringLiteral("タイプ"));
    description->setWordWrap(true);
    description->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    description->setMinimumHeight(3 * fontMetrics().lineSpacing());
    QDialogButtonBox* const buttons = MakeOkCancel();
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("ｷｬﾝｾﾙ"));
    auto* const column = new QVBoxLayout(this);
    column->addWidget(list, 1);
    column->addWidget(description);
    column->addWidget(buttons);
    setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    connect(list, &QListWidget::currentRowChanged, this, &ToviSelectImageTypeDlg::ShowDescription);
}

void ToviSelectImageTypeDlg::OnInitDialog()
{
    rows = ImageTypeRows(types);
    for (const ImageTypeRow& row : rows) {
        auto* const item = new QListWidgetItem(QtText(row.name), list);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(row.ticked ? Qt::Checked : Qt::Unchecked);
    }
    ShowDescription();
}

void ToviSelectImageTypeDlg::ShowDescription()
{
    const int row = list->currentRow();
    description->setText(
        QtText(ImageTypeDescription(row < 0 ? nullptr : &rows[static_cast<std::size_t>(row)])));
}

void ToviSelectImageTypeDlg::OnOK()
{
    for (std::size_t row = 0; row < rows.size(); ++row) {
        rows[row].ticked = list->item(static_cast<int>(row))->checkState() == Qt::Checked;
    }
    const CWordArray ticked = TickedTypes(rows);
    if (ticked.IsEmpty()) {
        const HostServices& host = GetHostServices();
        host.userInterface->ShowMessage("一つ以上チェックを付けてください。", host.applicationName,
                                        MessageButtons::Ok, MessageIcon::Information);
        list->setFocus();
        return;
    }
    types = ticked;
    WenDialog::OnOK();
}
