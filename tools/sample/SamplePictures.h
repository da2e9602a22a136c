#pragma once

#include "sample/SampleBoard.h"
#include "sample/SamplePhoto.h"

/// The scene of photograph \p number (from 0) with the values of \p photo.
SampleScene SceneOf(const SamplePhoto& photo, const SampleWork& work, unsigned seed, int number);

/// The bytes of a photograph's file: a JPEG as a camera writes it, or with the extension ".SVG" (in
/// any letter case) the same with the blackboard as a layer of its own.
std::string PhotoPicture(const SampleScene& scene, std::string_view extension);

/// The bytes of the reference drawing called \p title: a bi-level TIFF with the extension ".TIF",
/// else a JPEG. The number makes drawings of one title different.
std::string DrawingPicture(const SampleWork& work, std::string_view title, unsigned number,
                           std::string_view extension);

/// Starts what drawing text needs, without a display, unless the program runs Qt already.
void EnsureSampleGui();
