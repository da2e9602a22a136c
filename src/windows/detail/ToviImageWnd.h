#pragma once

#include "platform/text/Export.h"
#include "windows/zoom/ZoomView.h"

#include <QWidget>

class QSlider;
class QStackedWidget;
class ToviHtmlView;
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

    /// Shows \p newPhoto of \p document, both of which outlive its stay. Null shows nothing.
    void SetPhoto(ToviData* document, ToviPhoto* newPhoto);
    /// How the tool 詳細情報 stands.
    void ShowInformationState(bool isEnabled, bool isOn);

    /// The picture on show, with what was done to it.
    const ZoomView& View() const { return *view; }
    bool IsEnableImage() const { return view->HasPicture(); }

signals:
    /// The user wants the information pane to be shown or hidden.
    void InformationToggled();
    /// The user wants to save the photograph.
    void SaveRequested();

private:
    void CreateTools();
    void OnTool(int id);
    void Rotate(int angle);
    void OnSlider(int position);
    void Reset();
    void NoteChange();
    void ShowTools();

    ToviPhoto* photo = nullptr;
    /// Something was done to the picture, even if it came to nothing.
    bool isChanged = false;

    WenToolBarCtrl* toolBar;
    QSlider* slider;
    QStackedWidget* views;
    ZoomView* view;
    ToviHtmlView* htmlView;
};
