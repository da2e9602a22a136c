#pragma once

#include "platform/pictures/LumImage.h"
#include "platform/text/Export.h"
#include "windows/detail/PhotoCorrection.h"

#include <QWidget>

class LumImgWnd;
class PictureFetch;
class QSlider;
class QStackedWidget;
class ToviHtmlView;
class ToviPhoto;
class WenToolBarCtrl;

/// One photograph at full size, with tools that turn it and make it lighter or darker on the screen
/// alone. An SVG photograph is drawn and can't be corrected.
class TOVI_EXPORT ToviImageWnd : public QWidget
{
    Q_OBJECT

public:
    /// The tools, by the numbers of their commands.
    enum Tool
    {
        ToolLeft = 32791,
        ToolRight = 32792,
        ToolReset = 32793,
        ToolInformation = 32794,
        ToolBrightness = 32795,
        ToolSave = 32796
    };

    explicit ToviImageWnd(QWidget* parent);

    /// Shows \p newPhoto, which outlives its stay: at once what is there of its picture, and the
    /// whole as soon as it is read. Null shows nothing.
    void SetPhoto(ToviPhoto* newPhoto);
    /// How the tool 詳細情報 stands.
    void ShowInformationState(bool isEnabled, bool isOn);

    const PhotoCorrection& Correction() const { return correction; }
    /// The picture on show, corrected; empty while none is there to be corrected.
    const LumImage& Working() const { return working; }
    bool IsEnableImage() const { return working.IsValid(); }

signals:
    /// The user wants the information pane to be shown or hidden.
    void InformationToggled();
    /// The user wants to save the photograph.
    void SaveRequested();

private:
    void CreateTools();
    void OnTool(int id);
    void OnLoaded(const LumImage& image);
    void ShowNone();
    void BeginPicture(const CString& path);
    void Rotate(int angle);
    void OnSlider(int position);
    void Reset();
    void ShowWorking();
    void ShowTools();

    ToviPhoto* photo = nullptr;
    /// The picture as it was loaded, and as it is on show.
    LumImage base;
    LumImage working;
    PhotoCorrection correction;

    PictureFetch* fetch;
    WenToolBarCtrl* toolBar;
    QSlider* slider;
    QStackedWidget* views;
    LumImgWnd* imageWnd;
    ToviHtmlView* htmlView;
};
