#pragma once

#include "platform/text/Text.h"
#include "windows/loader/LoadKey.h"
#include "windows/property/DrawingPages.h"

#include <QWidget>

class LumImgWnd;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class ToviData;
class ToviHtmlView;
class ToviPhoto;

/// The page 参考図: the reference drawings of a photograph, one at a time. A drawing is read when
/// the page is in sight.
class DrawingPane : public QWidget
{
    Q_OBJECT

public:
    explicit DrawingPane(QWidget* parent);
    ~DrawingPane() override;

    /// Shows the first drawing of \p newPhoto of \p newDocument, both of which outlive its stay;
    /// null for none.
    void SetPhoto(ToviData* newDocument, ToviPhoto* newPhoto);

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
    void OnArrived(const LoadKey& key);
    void TakeBack();
    /// Reads another sheet of the same file.
    void StepSheet(int step);
    void ShowView();
    void ShowControls();
    void OpenElsewhere();

    ToviData* document = nullptr;
    ToviPhoto* photo = nullptr;
    DrawingPages pages;
    /// Where the last step began.
    DrawingPages before;
    DrawingPages sheets;
    /// The file of the drawing, as far as is known; empty when there is none.
    CString path;
    DrawingLoad load = DrawingLoad::Running;
    /// What was asked for; without a path: nothing yet.
    LoadKey asked;

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
