#pragma once

#include "windows/loader/LoadKey.h"

#include <QTimer>

#include <vector>

class ToviData;

/// A photograph to be fetched before it is looked at.
struct AheadPhoto
{
    int position = 0;
    Urgency urgency = Urgency::Next;

    bool operator==(const AheadPhoto&) const = default;
};

/// What to fetch while a page of \p onPage photographs from the position \p first on is looked at,
/// of \p count in all: the next page, the one before, and when there is nothing else to do the one
/// behind the next.
TOVI_EXPORT std::vector<AheadPhoto> PhotosAhead(int first, int onPage, int count);

/// Has the pages fetched that the user may turn to.
class PagesAhead
{
public:
    PagesAhead();
    ~PagesAhead();

    /// A page of \p onPage photographs of \p document from the position \p first on is looked at.
    /// At first the thumbnails of its neighbours are fetched; once it has stayed for a moment, all.
    void Show(ToviData& document, int first, int onPage);
    /// Nothing is looked at any more.
    void Clear();

private:
    void Fetch(bool withPictures) const;

    ToviData* data = nullptr;
    std::vector<AheadPhoto> photos;
    QTimer timer;
};
