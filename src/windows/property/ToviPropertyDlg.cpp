#include "windows/property/ToviPropertyDlg.h"

#include "delivery/ToviData.h"
#include "imagefacts/ControlValueParser.h"
#include "imagefacts/ToviControlValueArray.h"
#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "platform/controls/GaluDSplitter.h"
#include "platform/text/QtText.h"
#include "windows/cell/ToviControlValueTable.h"
#include "windows/cell/ToviSpiListCtrl.h"
#include "windows/loader/FileLoader.h"
#include "windows/loader/PhotoWishes.h"
#include "windows/property/DrawingPane.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace
{
constexpr int firstPosition = 281;
constexpr int smallestPaneHeight = 40;
/// The caption, the header and a row or two.
constexpr int smallestValuePaneHeight = 75;

QWidget* MakePane(const QString& caption, std::initializer_list<QWidget*> children)
{
    auto* const pane = new QWidget;
    auto* const layout = new QVBoxLayout(pane);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(new QLabel(caption));
    for (QWidget* child : children) {
        child->setAccessibleName(caption.trimmed());
        layout->addWidget(child, 1);
    }
    return pane;
}
} // namespace

ToviPropertyDlg::ToviPropertyDlg(QWidget* parent)
    : WenDialog(parent), pages(new QStackedWidget), drawings(new DrawingPane(this))
{
    setWindowFlags(Qt::Widget);
    pages->addWidget(MakeInformation());
    pages->addWidget(drawings);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(pages);
    connect(&FileLoader::Ours(), &FileLoader::Arrived, this, &ToviPropertyDlg::OnArrived);
    ClearContent();
}

ToviPropertyDlg::~ToviPropertyDlg()
{
    FileLoader::Ours().Leave(this);
}

QWidget* ToviPropertyDlg::MakeInformation()
{
    splitter = new GaluDSplitter(Qt::Vertical);
    itemList = new ToviSpiListCtrl(&listSetting, splitter);
    controlTable = new ToviControlValueTable(splitter);
    controlText = new QPlainTextEdit(splitter);
    controlText->setReadOnly(true);
    controlText->setTabChangesFocus(true);
    splitter->SetPane(0, MakePane(QStringLiteral(" 写真情報"), {itemList}));
    splitter->SetPane(1, MakePane(QStringLiteral(" 施工管理値"), {controlTable, controlText}));
    splitter->SetMinimums(smallestPaneHeight, smallestValuePaneHeight);
    splitter->SetPosition(firstPosition);
    return splitter;
}

void ToviPropertyDlg::SetContent(ToviData& newDocument, ToviPhoto& newPhoto,
                                 const ToviItemShowSettings& settings)
{
    document = &newDocument;
    photo = &newPhoto;
    listSetting.SetItemShowSettings(settings);
    listSetting.GetItemShowSettings().SetShowTitle(true);
    FileLoader::Ours().Want(this, {PhotoWishes(*document).Facts(*photo)});
    ShowItems();
    ShowValues(photo->GetTitle(document->GetItemDef()->GetIndexFromTitle(controlValueTitle)));
    splitter->ShowPane(1, settings.IsBold(controlValueTitle));
    drawings->SetPhoto(document, photo);
}

void ToviPropertyDlg::ClearContent()
{
    document = nullptr;
    photo = nullptr;
    FileLoader::Ours().Leave(this);
    ShowItems();
    ShowValues({});
    drawings->SetPhoto(nullptr, nullptr);
}

void ToviPropertyDlg::OnArrived(const LoadKey& key)
{
    const bool isOurs = photo != nullptr && key.path == photo->GetImagePath();
    if (isOurs && key.kind == LoadKind::Facts) ShowItems();
}

void ToviPropertyDlg::ShowItems()
{
    itemList->Clear();
    itemList->itemColours.Clear();
    if (photo == nullptr) return;
    itemList->itemColours.AddDefinitions(*document->GetItemDef());
    itemList->itemColours.AddShowSettings(listSetting.GetItemShowSettings());
    ToviTextPairArray pairs;
    GetShownPairs(*document, *photo, listSetting.GetItemShowSettings(), pairs);
    itemList->Fill(pairs);
}

void ToviPropertyDlg::ShowValues(const CString& text)
{
    ToviControlValues values;
    ParseControlValues(text, values);
    controlTable->SetValues(values);
    controlText->setPlainText(QtText(text));
    const bool isTable = controlTable->GetItemCount() > 0;
    controlTable->setVisible(isTable);
    controlText->setVisible(!isTable);
}

void ToviPropertyDlg::ShowPage(int page)
{
    pages->setCurrentIndex(page);
}
