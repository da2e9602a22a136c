#pragma once

#include <QImage>

#include <vector>

/// A picture with copies of half, a quarter, ... its size, each made when it is first needed, so
/// that drawing it much reduced doesn't walk through all of its pixels each time.
class ReducedImages
{
public:
    /// A null image means none.
    explicit ReducedImages(QImage image = QImage());

    bool IsNull() const { return images.front().isNull(); }
    QSize Size() const { return images.front().size(); }
    /// The smallest copy that is no smaller than the picture at \p zoom (above 0).
    const QImage& At(double zoom);

private:
    std::vector<QImage> images;
};
