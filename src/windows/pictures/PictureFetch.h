#pragma once

#include "platform/pictures/LumImage.h"

#include <QFutureWatcher>

#include <atomic>

/// Decodes the picture of one window on another thread. What is asked for takes the place of what
/// was asked for before, which is given up: its picture never arrives.
class TOVI_EXPORT PictureFetch : public QObject
{
    Q_OBJECT

public:
    struct Picture
    {
        /// Empty when it can't be decoded.
        LumImage image;
        /// It was bi-level in the file, and is grey here.
        bool isFromMono = false;
        /// How many pictures the file has.
        int sheets = 1;
    };

    explicit PictureFetch(QObject* parent);
    ~PictureFetch() override;

    /// Decodes the whole file \p path, or the picture at \p sheet of a TIFF file with several.
    void Start(const CString& path, int sheet = 0);
    /// Gives up what was asked for.
    void Cancel();
    bool IsBusy() const { return isGivenUp != nullptr; }

signals:
    /// What was asked for last.
    void Done(const PictureFetch::Picture& picture);

private:
    void Finish();

    QFutureWatcher<Picture> watcher;
    /// Set for a decoding that nobody waits for any more; null while none is under way.
    std::shared_ptr<std::atomic<bool>> isGivenUp;
};
