#pragma once

#include "photos/ToviPhotoArray.h"

class ToviData;

/// Fills and empties photograph arrays for a document.
class TOVI_EXPORT ToviPhotoArrayFactory
{
public:
    explicit ToviPhotoArrayFactory(ToviData& owner) : document(owner) {}
    virtual ~ToviPhotoArrayFactory() = default;

    virtual void CreateRightUnder(ToviPhotoArray&, const char*) {}
    virtual void CreateUnder(ToviPhotoArray&, const char*) {}
    /// Deletes every photograph of \p photos and leaves it empty.
    virtual void ClearAway(ToviPhotoArray& photos);

protected:
    ToviData& GetDocument() const { return document; }

private:
    ToviData& document;
};
