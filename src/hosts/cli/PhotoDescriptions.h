#pragma once

#include "hosts/cli/Json.h"
#include "hosts/cli/PhotoChoice.h"

#include <functional>

/// Tells of the photograph with this index.
using PhotoDescription = std::function<Json(ToviPhoto& photo, int index)>;

/// Opens a delivery and writes an array with the description of each photograph of \p choice to
/// standard output, \p work being what the progress calls it. \p begin gets the opened delivery
/// before the first photograph. Returns the program's exit status.
int DescribePhotos(const DeliveryArguments& arguments, const PhotoChoice& choice, const char* work,
                   const std::function<PhotoDescription(ToviData&)>& begin);
