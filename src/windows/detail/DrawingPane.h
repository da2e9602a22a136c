#pragma once

#include "platform/text/Text.h"
#include "windows/detail/DrawingPages.h"
#include "windows/pictures/PictureFetch.h"

#include <QWidget>

class LumImgWnd;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class ToviHtmlView;
class ToviPhoto;

/// The page 参考図: the reference drawings of a photograph, one at a time. A drawing is read when
/// the page is in sight.
class DrawingPane : public QWidget
{
    Q_OBJECT

public:
    explicit DrawingPane(QWidget* parent);

    /// Shows the first drawing of \p newPhoto, which outlives its stay; null for none.
    void SetPhoto(ToviPhoto* newPhoto);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void CreateControls();
    void CreateViews();
    QWidget* MakeSheetBar();
    void Step(int step);
    /// Takes up the file of the drawing on show.
    void TakePath();
    void Load();
    void OnLoaded(const PictureFetch::Picture& read);
    /// Reads another sheet of the same file.
    void StepSheet(int step);
    void ShowView();
    void ShowControls();
    void OpenElsewhere();

    ToviPhoto* photo = nullptr;
    DrawingPages pages;
    DrawingPages sheets;
    CString path;
    DrawingLoad load = DrawingLoad::Running;
    /// The drawing was asked for, in whatever state that is.
    bool isAskedFor = false;

    PictureFetch* fetch;
    QPushButton* previous;
    QPushButton* next;
    QPushButton* open;
    QLineEdit* positionText;
    QLineEdit* fileName;
    QLabel* told;
    QWidget* sheetBar;
    QPushButton* previousSheet;
    QPushButton* nextSheet;
    QLabel* sheetText;
    QStackedWidget* views;
    LumImgWnd* picture;
    ToviHtmlView* page;
    QLabel* waiting;
    QLabel* notice;
};
