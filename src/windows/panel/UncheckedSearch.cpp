#include "windows/panel/UncheckedSearch.h"

#include "photos/ToviPhoto.h"
int NextUnchecked(const ToviData& data, int position)
{
    const int count = data.GetCurrentPhotoCount();
    for (int step = 1; step <= count; ++step) {
        const int next = (position + step) % count;
        if (data.GetPhoto(next)->IsNotCheck()) return next;
    }
    return -1;
}
