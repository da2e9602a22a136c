#pragma once

#include "platform/text/Text.h"

#include <QFutureWatcher>
#include <QImage>

#include <functional>

/// What there is of a photograph's picture so far.
struct PictureStage
{
    /// Null when the file can't be shown.
    QImage image;
    /// Of the picture; the image may be a smaller one of it.
    QSize size;
    /// The place of the image in the picture.
    QRect part;
    /// No better one follows by itself. Of a picture that is too large to be kept whole the image
    /// is a smaller one even then.
    bool isLast = true;
};

/// Decodes the image file \p path and hands each stage to \p tell, which answers whether it is
/// wanted to go on. The first one is sharp in a window of \p window device pixels.
TOVI_EXPORT void DecodeInStages(const CString& path, const QSize& window,
                                const std::function<bool(const PictureStage&)>& tell);

/// Decodes one photograph at a time on Qt's pool of threads. What comes of one that is no longer
/// wanted is never told.
class TOVI_EXPORT PictureLoader : public QObject
{
    Q_OBJECT

public:
    PictureLoader();
    ~PictureLoader() override { Drop(); }

    /// Loads the file \p path, which is there, in place of whatever is being loaded.
    void Load(const CString& path, const QSize& window);
    /// Loads \p part of the file's picture, sharp in \p window, in place of another part of it.
    void LoadPart(const CString& path, const QRect& part, const QSize& window);
    /// Gives up what is being loaded.
    void Drop();

signals:
    void Arrived(const PictureStage& stage);
    void PartArrived(const PictureStage& stage);

private:
    using Stages = QFutureWatcher<PictureStage>;
    using Decoding = std::function<void(QPromise<PictureStage>&)>;

    void Run(Stages& watcher, Decoding decode);

    Stages stages;
    Stages parts;
};
