#pragma once

#include "windows/zoom/PictureStages.h"

#include <QStackedWidget>
#include <QTimer>

class LumImgWnd;
class QLabel;

/// One photograph, looked at closely: it is loaded in the background, and what is turned or made
/// lighter is a working copy, always made from the picture as it was loaded.
class ZoomView : public QStackedWidget
{
    Q_OBJECT

public:
    explicit ZoomView(QWidget* parent = nullptr);

    /// Shows the image file \p file; when it is empty that there is none. The rotation begins anew.
    void Load(const CString& file);
    /// The same for a picture that is decoded already.
    void Show(const CString& file, const QImage& whole);
    /// Shows nothing.
    void Clear();
    /// A picture is on show.
    bool HasPicture() const { return !picture.isNull(); }
    /// It is known that there is none to be shown.
    bool HasFailed() const { return hasFailed; }
    bool IsLoading() const { return isLoading; }

    /// Turns the working copy clockwise by \p angle, a multiple of 90.
    void Rotate(int angle);
    /// Makes it lighter or darker (see BrightnessSteps), and all that follow.
    void SetBrightness(int value);
    /// Back to the picture as it was loaded.
    void Revert();
    int Rotation() const { return rotation; }
    int Brightness() const { return brightness; }

    /// The next photograph is looked at where this one is, not fitted.
    void SetKeepsView(bool keeps) { keepsView = keeps; }
    /// Of the picture as it was loaded; empty without one.
    QSize PictureSize() const { return size; }
    /// The picture on show is smaller than the one in the file, of which parts are loaded.
    bool IsReduced() const;
    LumImgWnd& Window() const { return *imageWnd; }

signals:
    /// Another picture, a better one, none, or another look at it.
    void Changed();

private:
    void Begin(const CString& file);
    void OnArrived(const PictureStage& stage);
    void OnPartArrived(const PictureStage& stage);
    void ShowPixels(bool isNew);
    void ShowPlate(const QString& text);
    void LoadVisiblePart();
    QSize WindowSize() const;
    QSize TurnedSize() const;

    LumImgWnd* imageWnd;
    QLabel* failPlate;
    PictureLoader loader;
    /// The user has stopped moving.
    QTimer rest;
    /// The photograph before has been on show long enough.
    QTimer patience;
    CString path;
    /// What is there of the picture, turned by the rotation.
    QImage picture;
    QSize size;
    QRect loadedPart;
    int rotation = 0;
    int brightness = 0;
    bool keepsView = false;
    bool isLoading = false;
    bool hasFailed = false;
    /// Nothing of this photograph was shown yet.
    bool isFirst = true;
};
