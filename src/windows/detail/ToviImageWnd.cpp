#include "windows/detail/ToviImageWnd.h"

#include "photos/ToviPhoto.h"
#include "platform/controls/LumImgWnd.h"
#include "platform/controls/WenToolBarCtrl.h"
#include "windows/detail/ToviHtmlView.h"
#include "windows/pictures/PhotoGround.h"
#include "windows/pictures/PictureFetch.h"
#include "windows/pictures/Pictures.h"

#include <QSignalBlocker>
#include <QSlider>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace
{
constexpr int toolPictures = 239;
constexpr int toolSide = 24;
constexpr int sliderWidth = 150;
constexpr int tickInterval = 5;
constexpr int quarter = 90;
} // namespace

ToviImageWnd::ToviImageWnd(QWidget* parent)
    : QWidget(parent), fetch(new PictureFetch(this)), toolBar(new WenToolBarCtrl(this)),
      slider(new QSlider(Qt::Horizontal)), views(new QStackedWidget), imageWnd(new LumImgWnd),
      htmlView(new ToviHtmlView(this))
{
    CreateTools();
    PhotoGround::Get().LieUnder(*imageWnd, QPalette::Window);
    imageWnd->SetCommand(LumImgWnd::commandMove);
    LumImgWnd::m_zoomIsViewport = true;
    imageWnd->setAccessibleName(QStringLiteral("写真"));
    views->addWidget(imageWnd);
    views->addWidget(htmlView);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(toolBar);
    layout->addWidget(views, 1);
    connect(fetch, &PictureFetch::Done, this,
            [this](const PictureFetch::Picture& read) { OnLoaded(read.image); });
    ShowTools();
}

void ToviImageWnd::CreateTools()
{
    using enum WenToolBarButton::Kind;
    toolBar->SetImages(PictureIcons(toolPictures));
    toolBar->setIconSize({toolSide, toolSide});
    toolBar->AddButtons({{Push, ToolLeft, 0},
                         {Push, ToolRight, 1},
                         {Push, ToolReset, 2},
                         {Check, ToolInformation, 3},
                         {Push, ToolSave, 5}},
                        "左回転|右回転|元に戻す|詳細情報|写真を保存");
    slider->setRange(PhotoCorrection::darkest, PhotoCorrection::lightest);
    slider->setTickInterval(tickInterval);
    slider->setTickPosition(QSlider::TicksBelow);
    slider->setPageStep(tickInterval);
    slider->setMaximumWidth(sliderWidth);
    slider->setToolTip(QStringLiteral("明るさ補正"));
    slider->setAccessibleName(QStringLiteral("明るさ補正"));
    toolBar->insertWidget(toolBar->actions().back(), slider);
    connect(toolBar, &WenToolBarCtrl::Command, this, &ToviImageWnd::OnTool);
    connect(slider, &QSlider::valueChanged, this, &ToviImageWnd::OnSlider);
}

void ToviImageWnd::OnTool(int id)
{
    switch (id) {
    case ToolLeft:
        return Rotate(-quarter);
    case ToolRight:
        return Rotate(quarter);
    case ToolReset:
        return Reset();
    case ToolInformation:
        return emit InformationToggled();
    case ToolSave:
        return emit SaveRequested();
    default:
        break;
    }
}

void ToviImageWnd::SetPhoto(ToviPhoto* newPhoto)
{
    const CString path = newPhoto == nullptr ? CString() : newPhoto->ReadablePath();
    const bool isThere = working.IsValid() || fetch->IsBusy() || htmlView->GetPath() == path;
    if (newPhoto != nullptr && newPhoto == photo && isThere) return;
    photo = newPhoto;
    fetch->Cancel();
    htmlView->Clear();
    ShowNone();
    if (!path.empty()) BeginPicture(path);
    ShowTools();
}

void ToviImageWnd::BeginPicture(const CString& path)
{
    if (ToviExifInfo::IsSvg(path)) {
        htmlView->Navigate(path);
        views->setCurrentWidget(htmlView);
    } else if (photo->IsImageLoaded()) {
        OnLoaded(photo->GetImage());
    } else {
        imageWnd->SetImage(&photo->GetImage());
        fetch->Start(path);
    }
}

void ToviImageWnd::ShowNone()
{
    base.Clear();
    working.Clear();
    correction.BeginNone();
    imageWnd->SetDisableImage();
    views->setCurrentWidget(imageWnd);
}

void ToviImageWnd::OnLoaded(const LumImage& image)
{
    base = image;
    if (base.IsValid()) {
        correction.BeginPicture();
        working = correction.Apply(base);
        imageWnd->SetImage(&working);
    } else {
        ShowNone();
    }
    ShowTools();
}

void ToviImageWnd::Rotate(int angle)
{
    if (!working.IsValid()) return;
    correction.Turn(angle);
    ShowWorking();
}

void ToviImageWnd::OnSlider(int position)
{
    if (correction.SetBrightness(position) && base.IsValid()) ShowWorking();
}

void ToviImageWnd::Reset()
{
    if (!base.IsValid()) return;
    const QSignalBlocker quiet(slider);
    slider->setValue(0);
    correction.Reset();
    ShowWorking();
}

void ToviImageWnd::ShowWorking()
{
    working = correction.Apply(base);
    imageWnd->RefreshImage(&working);
    ShowTools();
}

void ToviImageWnd::ShowInformationState(bool isEnabled, bool isOn)
{
    toolBar->EnableButton(ToolInformation, isEnabled);
    toolBar->CheckButton(ToolInformation, isOn);
}

void ToviImageWnd::ShowTools()
{
    const ImageTools tools =
        ToolsFor(working.IsValid(), views->currentWidget() == htmlView, correction.IsChanged());
    toolBar->EnableButton(ToolLeft, tools.correct);
    toolBar->EnableButton(ToolRight, tools.correct);
    slider->setEnabled(tools.correct);
    toolBar->EnableButton(ToolReset, tools.reset);
    toolBar->EnableButton(ToolSave, tools.save);
}
