#include "windows/property/ToviHtmlView.h"

#include "platform/controls/LumImgWnd.h"
#include "platform/host/HostServices.h"
#include "reports/SvgWorkFiles.h"
#include "windows/loader/FileLoader.h"
#include "windows/loader/LoadedFiles.h"
#include "windows/pictures/FaultText.h"

#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace
{
void TellFailure(const CString& text)
{
    const HostServices& host = GetHostServices();
    if (host.userInterface == nullptr) return;
    host.userInterface->ShowMessage(text, host.applicationName, MessageButtons::Ok,
                                    MessageIcon::Warning);
}
} // namespace

ToviHtmlView::ToviHtmlView(QWidget* parent)
    : QWidget(parent), pages(new QStackedWidget), drawing(new LumImgWnd), notice(new QLabel)
{
    notice->setAlignment(Qt::AlignCenter);
    notice->setWordWrap(true);
    notice->setMinimumWidth(1);
    pages->addWidget(drawing);
    pages->addWidget(notice);
    auto* const button = new QPushButton(QStringLiteral("ブラウザで表示"));
    button->setToolTip(QStringLiteral("SVGを写したページをブラウザで開く"));
    connect(button, &QPushButton::clicked, this, &ToviHtmlView::OpenPage);
    connect(&FileLoader::Ours(), &FileLoader::Arrived, this, &ToviHtmlView::OnArrived);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addWidget(pages, 1);
    layout->addWidget(button, 0, Qt::AlignRight);
}

ToviHtmlView::~ToviHtmlView()
{
    FileLoader::Ours().Leave(this);
}

void ToviHtmlView::Navigate(const LoadWish& wish)
{
    drawn = wish.key;
    drawing->SetDisableImage();
    Tell(QStringLiteral("描画しています…"));
    FileLoader::Ours().Want(this, {wish});
    if (FileLoader::Ours().InHand<LoadedPicture>(drawn)) OnArrived(drawn);
}

void ToviHtmlView::OnArrived(const LoadKey& key)
{
    if (key != drawn) return;
    const auto picture = FileLoader::Ours().InHand<LoadedPicture>(drawn);
    if (picture && picture->ok) {
        drawing->SetImages(picture->images);
        pages->setCurrentWidget(drawing);
    } else {
        const PictureFault fault = picture ? picture->Fault() : PictureFault::TooLarge;
        Tell(QStringLiteral("このSVGはここに表示できません。\n") + FaultReason(fault));
    }
}

void ToviHtmlView::Clear()
{
    FileLoader::Ours().Leave(this);
    drawn = {};
    drawing->SetDisableImage();
    pages->setCurrentWidget(drawing);
}

void ToviHtmlView::OpenPage()
{
    UserInterface* const user = GetHostServices().userInterface;
    CString page;
    if (GetPath().empty() || user == nullptr) return;
    if (!MakeSvgPage(GetPath().c_str(), page)) {
        TellFailure("このSVGのページを作れませんでした。ファイルが壊れていないか、作業フォルダに"
                    "空きがあるかを確かめてください。");
    } else if (!user->OpenFile(page)) {
        TellFailure("ブラウザが見つかりません。次のファイルをブラウザで開いてください。\n" + page);
    }
}

void ToviHtmlView::Tell(const QString& sentence)
{
    notice->setText(sentence);
    pages->setCurrentWidget(notice);
}
