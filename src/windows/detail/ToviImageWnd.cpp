#include "windows/detail/ToviImageWnd.h"

#include "photos/ToviPhoto.h"
#include "platform/controls/LumImgWnd.h"
#include "platform/controls/WenToolBarCtrl.h"
#include "windows/loader/PhotoWishes.h"
#include "windows/pictures/Pictures.h"
#include "windows/property/ToviHtmlView.h"

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
constexpr int sliderEnd = 10;
/// In units of LumImage::SetContrast.
constexpr int brightnessStep = 200;
} // namespace

ToviImageWnd::ToviImageWnd(QWidget* parent)
    : QWidget(parent), toolBar(new WenToolBarCtrl(this)), slider(new QSlider(Qt::Horizontal)),
      views(new QStackedWidget), view(new ZoomView), htmlView(new ToviHtmlView(this))
{
    CreateTools();
    LumImgWnd::m_zoomIsViewport = true;
    view->Window().setAccessibleName(QStringLiteral("写真"));
    views->addWidget(view);
    views->addWidget(htmlView);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(toolBar);
    layout->addWidget(views, 1);
    connect(view, &ZoomView::Changed, this, &ToviImageWnd::ShowTools);
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
    slider->setRange(-sliderEnd, sliderEnd);
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

void ToviImageWnd::SetPhoto(ToviData* document, ToviPhoto* newPhoto)
{
    const bool isThere = view->HasPicture() || view->IsLoading() || !htmlView->GetPath().empty();
    if (newPhoto != nullptr && newPhoto == photo && isThere) return;
    photo = newPhoto;
    const bool isSvg = photo != nullptr && ToviExifInfo::IsSvg(photo->GetImagePath());
    isChanged = view->Brightness() != 0;
    htmlView->Clear();
    if (photo == nullptr || isSvg) {
        view->Clear();
    } else {
        view->Load(*document, *photo);
    }
    if (isSvg) htmlView->Navigate(PhotoWishes(*document).Full(*photo));
    views->setCurrentWidget(isSvg ? static_cast<QWidget*>(htmlView) : view);
    ShowTools();
}

void ToviImageWnd::Rotate(int angle)
{
    if (!view->HasPicture()) return;
    view->Rotate(angle);
    NoteChange();
}

void ToviImageWnd::OnSlider(int position)
{
    const int brightness = position * brightnessStep;
    if (brightness == view->Brightness()) return;
    view->SetBrightness(brightness);
    NoteChange();
}

void ToviImageWnd::Reset()
{
    const QSignalBlocker quiet(slider);
    slider->setValue(0);
    view->Revert();
    isChanged = false;
    ShowTools();
}

void ToviImageWnd::NoteChange()
{
    isChanged = true;
    ShowTools();
}

void ToviImageWnd::ShowInformationState(bool isEnabled, bool isOn)
{
    toolBar->EnableButton(ToolInformation, isEnabled);
    toolBar->CheckButton(ToolInformation, isOn);
}

void ToviImageWnd::ShowTools()
{
    const bool hasPicture = view->HasPicture();
    toolBar->EnableButton(ToolLeft, hasPicture);
    toolBar->EnableButton(ToolRight, hasPicture);
    slider->setEnabled(hasPicture);
    toolBar->EnableButton(ToolReset, hasPicture && isChanged);
    toolBar->EnableButton(ToolSave, hasPicture || views->currentWidget() == htmlView);
}
