// A picture file, decoded whole and as a thumbnail.

#include "Fuzz.h"

#include "platform/pictures/ImageFile.h"
#include "platform/pictures/LumImage.h"

#include <QSize>

namespace
{
constexpr int largestSide = 256;
}

void Try(std::string_view input)
{
    const CString path = Folder().Write("picture", input);
    const std::optional<QSize> size = ReadImageSize(path);
    if (size && (size->width() > largestSide || size->height() > largestSide)) return;
    LumImage image;
    LumImage thumb;
    const bool decoded = image.Load(path.c_str());
    Require(decoded == thumb.LoadThumb(path.c_str()), "a picture has a thumbnail");
    if (!decoded) return;
    Require(size.has_value(), "a picture has a size");
    const QSize found(image.GetWidth(), image.GetHeight());
    // What a GIF file tells is the size of its first frame, which may stand on a larger sheet.
    const bool isSheet = input.starts_with("GIF");
    Require(isSheet || found == *size || found == size->transposed(), "its header tells it");
    Require(isSheet || (thumb.GetWidth() == found.width() && thumb.GetHeight() == found.height()),
            "a small picture is its own thumbnail");
}
