#pragma once

#include "platform/text/Export.h"

/// Which page of how many is on show. Pages count from 1, positions from 0. A mode without pages
/// counts as one page that is never left.
class TOVI_EXPORT PageArithmetic
{
public:
    /// \p count photographs stand on a page; 0 in a mode without pages.
    void SetPhotosOnPage(int count) { photosOnPage = count; }
    int PhotosOnPage() const { return photosOnPage; }

    /// Goes to the page of the position \p top, or to page 1 for a negative one, with
    /// \p photoCount photographs in all. Without photographs it is page 1 of 0.
    void ResetPageCount(int top, int photoCount);
    /// Goes to \p page, which isn't checked.
    void SetCurrentPage(int page) { currentPage = page; }
    int CurrentPage() const { return photosOnPage > 0 ? currentPage : 1; }
    int TotalPage() const { return photosOnPage > 0 ? totalPage : 1; }

    /// The first position of the page.
    int FirstPosition() const { return photosOnPage * (currentPage - 1); }
    /// The first position of the page on which \p position stands; 0 without photographs.
    int NormalizeTopPhotoId(int position, int photoCount) const;
    /// That page, counted from 0.
    int GetPageNumber(int position, int photoCount) const;

private:
    int photosOnPage = 0;
    int currentPage = 0;
    int totalPage = 0;
};
