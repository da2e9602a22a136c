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
    /// \p image is all that there is of a picture of \p wholeSize.
    ReducedImages(QImage image, QSize wholeSize);

    bool IsNull() const { return images.front().isNull(); }
    /// That of the picture.
    QSize Size() const { return size; }
    /// The smallest copy that is no smaller than the picture at \p zoom (above 0), if there is one.
    const QImage& At(double zoom);
    /// Makes all copies down to one of which no side is longer than \p side (above 0).
    void MakeAll(int side);
    /// The memory that the picture takes with the copies that there are.
    std::size_t Bytes() const;

private:
    std::vector<QImage> images;
    QSize size;
};
