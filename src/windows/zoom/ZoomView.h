#pragma once

#include "windows/loader/LoadedFiles.h"

#include <QStackedWidget>
#include <QTimer>

#include <optional>

class LumImgWnd;
class QLabel;
class ToviData;

/// The photographs that the user probably turns to; null for none.
struct PhotoNeighbours
{
    ToviPhoto* next = nullptr;
    ToviPhoto* previous = nullptr;
};

/// One photograph, looked at closely: a picture that is sharp in the window comes first, the whole
/// one behind it, and of one that is too large to be kept whole the parts that are looked at. What
/// is turned or made lighter is a working copy, always made from the picture as it was loaded.
class ZoomView : public QStackedWidget
{
    Q_OBJECT

public:
    explicit ZoomView(QWidget* parent = nullptr);
    ~ZoomView() override;

    /// Shows \p newPhoto of \p newDocument and has \p newNeighbours fetched; all of them outlive
    /// their stay. The rotation begins anew.
    void Load(ToviData& newDocument, ToviPhoto& newPhoto,
              const PhotoNeighbours& newNeighbours = {});
    /// Shows nothing.
    void Clear();
    /// A picture is on show.
    bool HasPicture() const { return shown != nullptr; }
    /// It is known that there is none to be shown.
    bool HasFailed() const { return hasFailed; }
    /// A better one is on its way.
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
    /// Of the picture in the file; empty without one.
    QSize PictureSize() const { return shown ? shown->wholeSize : QSize(); }
    /// The picture on show is smaller than the one in the file, of which parts are loaded.
    bool IsReduced() const { return HasPicture() && !isLoading && !shown->IsWhole(); }
    LumImgWnd& Window() const { return *imageWnd; }

signals:
    /// Another picture, a better one, none, or another look at it.
    void Changed();

private:
    void Begin();
    void TellWishes();
    void OnArrived(const LoadKey& key);
    std::shared_ptr<const LoadedPicture> FullInHand() const;
    void TakeBest();
    void TakePart();
    void ShowPixels(bool isNew);
    void ShowPlate(const QString& text);
    void WantVisiblePart();
    int WindowSide() const;
    QSize TurnedSize() const;

    LumImgWnd* imageWnd;
    QLabel* failPlate;
    /// The user has stopped moving.
    QTimer rest;
    /// The photograph before has been on show long enough.
    QTimer patience;
    ToviData* document = nullptr;
    ToviPhoto* photo = nullptr;
    PhotoNeighbours neighbours;
    /// The room for the picture when it was asked for, in device pixels.
    int windowSide = 0;
    /// The best there is so far.
    std::shared_ptr<const LoadedPicture> shown;
    /// What is looked at of a picture that isn't sharp enough there.
    std::optional<LoadWish> part;
    int rotation = 0;
    int brightness = 0;
    bool keepsView = false;
    bool isLoading = false;
    bool hasFailed = false;
    /// Why there is no picture, or not the whole.
    PictureFault fault = PictureFault::None;
    /// The budget of memory leaves nothing for a better picture.
    bool hasNoRoom = false;
    /// Nothing of this photograph was shown yet.
    bool isFirst = true;
};
