#include "windows/property/DrawingPane.h"

#include "photos/ToviPhoto.h"
#include "platform/controls/ElidedButton.h"
#include "platform/controls/LumImgWnd.h"
#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "platform/text/QtText.h"
#include "reports/ReadOnlyCopy.h"
#include "windows/loader/FileLoader.h"
#include "windows/loader/PhotoWishes.h"
#include "windows/property/ToviHtmlView.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>

namespace
{
constexpr QSize stepButton(115, 25);
constexpr int smallestButton = 45;

QLineEdit* MakeField(const QString& name)
{
    auto* const field = new QLineEdit;
    field->setReadOnly(true);
    field->setFrame(false);
    field->setMinimumWidth(1);
    field->setAccessibleName(name);
    QPalette colors = field->palette();
    colors.setBrush(QPalette::Base, Qt::transparent);
    field->setPalette(colors);
    return field;
}

QLabel* MakeNotice(const QString& text)
{
    auto* const label = new QLabel(text);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setMinimumWidth(1);
    return label;
}

void Tell(const CString& text)
{
    const HostServices& host = GetHostServices();
    host.userInterface->ShowMessage(text, host.applicationName, MessageButtons::Ok,
                                    MessageIcon::Warning);
}
} // namespace

DrawingPane::DrawingPane(QWidget* parent) : QWidget(parent)
{
    CreateControls();
    CreateViews();
    connect(&FileLoader::Ours(), &FileLoader::Arrived, this, &DrawingPane::OnArrived);
    SetPhoto(nullptr, nullptr);
}

DrawingPane::~DrawingPane()
{
    FileLoader::Ours().Leave(this);
}

void DrawingPane::CreateControls()
{
    previous = new QPushButton(QStringLiteral("前へ"));
    next = new QPushButton(QStringLiteral("次へ"));
    open = new ElidedButton(QStringLiteral("参考図を別アプリケーションで起動"));
    open->setToolTip(QStringLiteral("読み取り専用の写しを開く"));
    for (QPushButton* button : {previous, next, open}) button->setAutoDefault(false);
    for (QPushButton* button : {previous, next}) {
        button->setMinimumWidth(smallestButton);
        button->setMaximumWidth(stepButton.width());
    }
    positionText = MakeField(QStringLiteral("参考図の順番"));
    fileName = MakeField(QStringLiteral("参考図のファイル名"));
    told = new QLabel;
    told->setWordWrap(true);
    told->setMinimumWidth(1);
    connect(previous, &QPushButton::clicked, this, [this] { Step(-1); });
    connect(next, &QPushButton::clicked, this, [this] { Step(1); });
    connect(open, &QPushButton::clicked, this, &DrawingPane::OpenElsewhere);
}

QWidget* DrawingPane::MakeSheetBar()
{
    sheetBar = new QWidget;
    previousSheet = new QPushButton(QStringLiteral("前のページ"));
    nextSheet = new QPushButton(QStringLiteral("次のページ"));
    sheetText = new QLabel;
    for (QPushButton* button : {previousSheet, nextSheet}) button->setAutoDefault(false);
    connect(previousSheet, &QPushButton::clicked, this, [this] { StepSheet(-1); });
    connect(nextSheet, &QPushButton::clicked, this, [this] { StepSheet(1); });
    auto* const row = new QHBoxLayout(sheetBar);
    row->setContentsMargins({});
    row->addWidget(previousSheet);
    row->addWidget(nextSheet);
    row->addWidget(sheetText, 1);
    return sheetBar;
}

void DrawingPane::CreateViews()
{
    picture = new LumImgWnd;
    picture->SetCommand(LumImgWnd::commandMove);
    picture->setAccessibleName(QStringLiteral("参考図"));
    page = new ToviHtmlView(this);
    waiting = MakeNotice(QStringLiteral("読み込んでいます…"));
    notice = MakeNotice(QStringLiteral(
        "このファイルはプレビューできません。\n「参考図を別アプリケーションで起動」ボタンを"
        "\n使用してください。"));
    views = new QStackedWidget;
    for (QWidget* view : std::initializer_list<QWidget*>{picture, page, waiting, notice}) {
        views->addWidget(view);
    }

    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(5);
    layout->addWidget(previous, 0, 0);
    layout->addWidget(next, 0, 1);
    layout->addWidget(positionText, 0, 2);
    layout->addWidget(open, 1, 0, 1, 3);
    layout->addWidget(fileName, 2, 0, 1, 3);
    layout->addWidget(told, 3, 0, 1, 3);
    layout->addWidget(MakeSheetBar(), 4, 0, 1, 3);
    layout->addWidget(views, 5, 0, 1, 3);
    layout->setColumnStretch(2, 1);
    layout->setRowStretch(5, 1);
}

void DrawingPane::SetPhoto(ToviData* newDocument, ToviPhoto* newPhoto)
{
    document = newDocument;
    photo = newPhoto;
    pages = photo == nullptr ? DrawingPages{} : DrawingPages{1, photo->GetPictureCount()};
    before = pages;
    TakePath();
    ShowControls();
}

void DrawingPane::Step(int step)
{
    before = pages;
    pages = pages.Stepped(step);
    if (pages == before) return;
    TakePath();
    ShowControls();
}

void DrawingPane::TakePath()
{
    CStringArray paths;
    if (photo != nullptr && pages.count > 0) photo->GetPicturePath(paths, pages.index - 1);
    path = paths.IsEmpty() ? CString() : paths[0];
    sheets = {1, 1};
    load = DrawingLoad::Running;
    asked = {};
    FileLoader::Ours().Leave(this);
    picture->SetDisableImage();
    page->Clear();
    told->hide();
    if (isVisible()) Load();
    ShowView();
}

void DrawingPane::Load()
{
    if (path.empty() || !asked.path.empty()) return;
    const LoadWish wish = PhotoWishes(*document).Drawing(path, sheets.index - 1);
    asked = wish.key;
    FileLoader& loader = FileLoader::Ours();
    loader.Want(this, {wish});
    if (DrawingViewOf(path, load) == DrawingView::Page) page->Navigate(wish);
    // One that was missing may be there by now.
    const auto drawing = loader.InHand<LoadedDrawing>(asked);
    if (drawing && drawing->file == FileState::Readable) OnArrived(asked);
}

void DrawingPane::OnArrived(const LoadKey& key)
{
    if (key != asked || path.empty()) return;
    const auto drawing = FileLoader::Ours().InHand<LoadedDrawing>(asked);
    if (drawing && drawing->file != FileState::Readable) return TakeBack();
    load = drawing && drawing->ok ? DrawingLoad::Done : DrawingLoad::Failed;
    if (load == DrawingLoad::Done) {
        sheets.count = drawing->sheets;
        picture->SetDrawFast(!drawing->isFromMono);
        picture->SetImages(drawing->images);
    } else {
        picture->SetDisableImage();
    }
    ShowView();
    ShowControls();
}

/// A step that leads to a drawing whose file is missing isn't made, but what was on show is gone.
void DrawingPane::TakeBack()
{
    path.clear();
    pages = before;
    picture->SetDisableImage();
    page->Clear();
    ShowView();
    ShowControls();
}

void DrawingPane::StepSheet(int step)
{
    sheets = sheets.Stepped(step);
    load = DrawingLoad::Running;
    asked = {};
    Load();
    ShowControls();
}

void DrawingPane::ShowView()
{
    switch (DrawingViewOf(path, load)) {
    case DrawingView::Blank:
    case DrawingView::Picture:
        return views->setCurrentWidget(picture);
    case DrawingView::Waiting:
        return views->setCurrentWidget(waiting);
    case DrawingView::Page:
        return views->setCurrentWidget(page);
    case DrawingView::Notice:
        return views->setCurrentWidget(notice);
    }
}

void DrawingPane::ShowControls()
{
    positionText->setText(QtText(pages.Text()));
    positionText->setCursorPosition(0);
    previous->setEnabled(pages.HasPrevious());
    next->setEnabled(pages.HasNext());
    const bool isKnown = load != DrawingLoad::Running;
    open->setEnabled(isKnown && !path.empty());
    fileName->setText(QtText(MibGetFileName(path)));
    fileName->setCursorPosition(0);
    sheetText->setText(QtText(SheetText(sheets)));
    previousSheet->setEnabled(sheets.HasPrevious());
    nextSheet->setEnabled(sheets.HasNext());
    sheetBar->setVisible(sheets.count > 1);
}

void DrawingPane::showEvent(QShowEvent*)
{
    Load();
}

void DrawingPane::OpenElsewhere()
{
    UserInterface* const user = GetHostServices().userInterface;
    if (path.empty() || user == nullptr) return;
    const CString copy = MakeReadOnlyCopy(path);
    told->hide();
    if (copy.empty()) {
        Tell("参考図の写しを作れませんでした。作業フォルダに空きがあるかを確かめてください。");
    } else if (!user->OpenFile(copy)) {
        Tell("このファイルを開くアプリケーションが見つかりません。次の写しを、対応する"
             "アプリケーションで開いてください。\n" +
             copy);
    } else {
        told->setText(QStringLiteral("読み取り専用の写しを開きました。写しは Tovi の終了時に消え"
                                     "ます。"));
        told->show();
    }
}
