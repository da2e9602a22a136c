#include "windows/zoom/ZoomInfo.h"

#include "delivery/ToviData.h"
#include "imagefacts/ControlValueParser.h"
#include "imagefacts/ToviControlValueArray.h"
#include "photos/ToviPhoto.h"
#include "platform/controls/GaluDSplitter.h"
#include "platform/text/QtText.h"
#include "windows/cell/ToviControlValueTable.h"
#include "windows/cell/ToviSpiListCtrl.h"
#include "windows/loader/PhotoWishes.h"

#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace
{
constexpr int valuePaneHeight = 120;
constexpr int smallestPaneHeight = 40;
} // namespace

ZoomInfo::ZoomInfo(QWidget* parent)
    : QTabWidget(parent), splitter(new GaluDSplitter(Qt::Vertical)),
      itemList(new ToviSpiListCtrl(&setting, splitter)), valueTable(new ToviControlValueTable),
      valueEdit(new QPlainTextEdit)
{
    auto* const values = new QWidget;
    auto* const column = new QVBoxLayout(values);
    column->setContentsMargins({});
    column->addWidget(valueTable);
    column->addWidget(valueEdit);
    valueEdit->setReadOnly(true);
    valueEdit->setTabChangesFocus(true);
    valueEdit->setPlaceholderText(QtText(controlValueTitle));
    itemList->setAccessibleName(QStringLiteral("写真情報"));
    valueTable->setAccessibleName(QtText(controlValueTitle));
    valueEdit->setAccessibleName(QtText(controlValueTitle));
    splitter->SetPane(0, itemList);
    splitter->SetPane(1, values);
    splitter->SetMinimums(smallestPaneHeight, smallestPaneHeight);
    splitter->SetPosition(-valuePaneHeight);
    addTab(splitter, QStringLiteral("写真情報"));
    ClearContent();
}

void ZoomInfo::SetContent(ToviData& document, ToviPhoto& photo,
                          const ToviPhotoCtrlVisualSetting& newSetting)
{
    const ToviItemDef& definitions = *document.GetItemDef();
    setting = newSetting;
    const ToviItemShowSettings& shown = setting.GetItemShowSettings();
    itemList->itemColours.Clear();
    itemList->itemColours.AddDefinitions(definitions);
    itemList->itemColours.AddShowSettings(shown);
    ToviTextPairArray pairs;
    GetShownPairs(document, photo, shown, pairs);
    itemList->Fill(pairs);
    const CString text = photo.GetTitle(definitions.GetIndexFromTitle(controlValueTitle));
    ToviControlValues values;
    ParseControlValues(text, values);
    valueTable->SetValues(values);
    valueEdit->setPlainText(QtText(text));
    valueTable->setVisible(valueTable->GetItemCount() > 0);
    valueEdit->setVisible(valueTable->GetItemCount() == 0);
    splitter->ShowPane(1, shown.IsBold(controlValueTitle));
}

void ZoomInfo::ClearContent()
{
    itemList->Clear();
    valueTable->Clear();
    valueTable->hide();
    valueEdit->clear();
    valueEdit->show();
}
