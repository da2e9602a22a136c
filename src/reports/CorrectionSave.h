#pragma once

#include "platform/text/Text.h"

class ToviData;
class ToviPhoto;

/// A photograph as a correction window has it when its save button is pressed.
struct CorrectedPhoto
{
    /// Null when the window holds none.
    ToviPhoto* photo = nullptr;
    /// How it was turned and made lighter or darker on the screen: in degrees clockwise, and as
    /// BrightnessSteps takes it; 0 is as delivered.
    int rotation = 0;
    int brightness = 0;
    /// The window's image control shows a picture.
    bool isShown = false;

    bool IsChanged() const { return rotation != 0 || brightness != 0; }
};

/// Saves the photograph of a correction window under a name that the user chooses: the delivered
/// file byte for byte, or, if the user wants that, a JPEG of its picture at full size corrected in
/// the same way, with its Exif data (see ExifOfCopy) and under a name that tells it from the
/// original.
class TOVI_EXPORT CorrectionSave
{
public:
    /// The two windows differ in what they look at.
    enum class Window
    {
        /// The pane of the detail panel: may hold no photograph, which it then says; a photograph's
        /// name tells whether it is an SVG one.
        Image,
        /// The zoom dialog: always holds one, whose path tells it, in any letter case.
        Zoom
    };

    /// \p shown outlives the object.
    CorrectionSave(ToviData& shown, Window kind) : document(shown), window(kind) {}

    void Run(const CorrectedPhoto& corrected) const;

private:
    bool IsSvg(ToviPhoto& photo, const CString& name) const;

    ToviData& document;
    Window window;
};
