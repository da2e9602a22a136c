#include "windows/pictures/PictureFetch.h"

#include "platform/pictures/TiffSheets.h"

#include <QPromise>
#include <QThreadPool>

namespace
{
PictureFetch::Picture Read(const CString& path, int sheet)
{
    PictureFetch::Picture picture;
    if (sheet > 0) {
        picture.image = ReadTiffSheet(path, sheet);
    } else {
        picture.image.Load(path.c_str());
    }
    if (!picture.image.IsValid()) return picture;
    picture.isFromMono = picture.image.ConvGrayScaleFromMono();
    picture.sheets = CountTiffSheets(path);
    return picture;
}
} // namespace

PictureFetch::PictureFetch(QObject* parent) : QObject(parent)
{
    connect(&watcher, &QFutureWatcherBase::finished, this, &PictureFetch::Finish);
}

PictureFetch::~PictureFetch()
{
    Cancel();
}

void PictureFetch::Start(const CString& path, int sheet)
{
    Cancel();
    isGivenUp = std::make_shared<std::atomic<bool>>(false);
    const auto promise = std::make_shared<QPromise<Picture>>();
    watcher.setFuture(promise->future());
    promise->start();
    QThreadPool::globalInstance()->start([path, sheet, promise, givenUp = isGivenUp] {
        promise->addResult(*givenUp ? Picture() : Read(path, sheet));
        promise->finish();
    });
}

void PictureFetch::Cancel()
{
    if (isGivenUp) *isGivenUp = true;
    isGivenUp.reset();
    // The watcher forgets what is on its way from the one before.
    watcher.setFuture({});
}

void PictureFetch::Finish()
{
    if (!isGivenUp || watcher.future().resultCount() == 0) return;
    isGivenUp.reset();
    emit Done(watcher.result());
}
