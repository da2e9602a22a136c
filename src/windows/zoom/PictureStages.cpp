#include "windows/zoom/PictureStages.h"

#include "platform/pictures/ImageFile.h"
#include "platform/pictures/ImageSource.h"

#include <QPromise>
#include <QThreadPool>

#include <memory>

namespace
{
/// Up to that many pixels a picture is kept whole: six of them are 600 MB. Of larger ones parts are
/// decoded as they are looked at.
constexpr qint64 mostPixelsKept = 25'000'000;
/// Of those this much is at hand meanwhile.
constexpr QSize overview(2048, 2048);
/// So small a picture is decoded at once.
constexpr qint64 fewPixels = 2'000'000;

qint64 PixelsOf(const QSize& size)
{
    return static_cast<qint64>(size.width()) * size.height();
}

PictureStage WholeOf(const QImage& image)
{
    return {image, image.size(), image.rect(), true};
}
} // namespace

void DecodeInStages(const CString& path, const QSize& window,
                    const std::function<bool(const PictureStage&)>& tell)
{
    const ImageSource source = ImageSource::FromFile(path);
    if (source.Size().isEmpty()) {
        // An SVG photograph is drawn.
        tell(WholeOf(ReadImage(path, 0)));
        return;
    }
    const qint64 pixels = PixelsOf(source.Size());
    const bool isKept = pixels <= mostPixelsKept || !source.IsReducible();
    if (source.IsReducible() && pixels > fewPixels) {
        const QImage reduced = source.Read(isKept ? window : window.expandedTo(overview));
        const PictureStage stage = {reduced, source.Size(), {{0, 0}, source.Size()}, !isKept};
        if (!tell(stage) || !isKept) return;
    }
    tell(WholeOf(source.Read(QSize())));
}

PictureLoader::PictureLoader()
{
    connect(&stages, &Stages::resultReadyAt, this,
            [this](int index) { emit Arrived(stages.resultAt(index)); });
    connect(&parts, &Stages::resultReadyAt, this,
            [this](int index) { emit PartArrived(parts.resultAt(index)); });
}

void PictureLoader::Load(const CString& path, const QSize& window)
{
    Drop();
    Run(stages, [path, window](QPromise<PictureStage>& promise) {
        DecodeInStages(path, window, [&promise](const PictureStage& stage) {
            promise.addResult(stage);
            return !promise.isCanceled();
        });
    });
}

void PictureLoader::LoadPart(const CString& path, const QRect& part, const QSize& window)
{
    parts.cancel();
    Run(parts, [path, part, window](QPromise<PictureStage>& promise) {
        const ImageSource source = ImageSource::FromFile(path);
        PictureStage stage = {QImage(), source.Size(), part};
        stage.image = source.ReadPart(stage.part, window);
        promise.addResult(stage);
    });
}

void PictureLoader::Drop()
{
    stages.cancel();
    parts.cancel();
    stages.setFuture({});
    parts.setFuture({});
}

void PictureLoader::Run(Stages& watcher, Decoding decode)
{
    // The pool copies what it runs, which a promise can't be.
    const auto promise = std::make_shared<QPromise<PictureStage>>();
    promise->start();
    watcher.setFuture(promise->future());
    QThreadPool::globalInstance()->start([promise, decode = std::move(decode)] {
        if (!promise->isCanceled()) decode(*promise);
        promise->finish();
    });
}
