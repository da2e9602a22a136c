#include "photos/ToviPhotoArrayFactory.h"

void ToviPhotoArrayFactory::ClearAway(ToviPhotoArray& photos)
{
    for (const ToviPhoto* photo : photos) delete photo;
    photos.RemoveAll();
}
