#pragma once

#include "platform/text/Export.h"

class LumImage;

/// What the user has done to the picture on show of a photograph: it is turned, and made lighter or
/// darker. The file stays as it is, and so does the picture as it was loaded.
class TOVI_EXPORT PhotoCorrection
{
public:
    /// The ends of the slider for the brightness.
    static constexpr int darkest = -10;
    static constexpr int lightest = 10;

    /// Degrees clockwise, 90 by 90, of which whole turns don't count.
    int Rotation() const { return rotation; }
    /// The slider's position in units of LumImage::SetContrast.
    int Brightness() const { return brightness; }
    /// Something was done, even if it came to nothing.
    bool IsChanged() const { return changed; }

    /// Another picture was loaded: the brightness stays, and changes it, too.
    void BeginPicture();
    /// No picture is on show: nothing is changed.
    void BeginNone();
    void Turn(int angle);
    /// Takes over the slider's \p position. False when that changes nothing.
    bool SetBrightness(int position);
    void Reset() { *this = {}; }

    /// \p loaded with all this done to it.
    LumImage Apply(const LumImage& loaded) const;

private:
    int rotation = 0;
    int brightness = 0;
    bool changed = false;
};

/// Which tools of the image window are enabled.
struct ImageTools
{
    bool correct = false;
    bool reset = false;
    bool save = false;

    bool operator==(const ImageTools&) const = default;
};

/// \p showsImage and \p showsDrawing tell whether a picture or an SVG photograph is on show.
TOVI_EXPORT ImageTools ToolsFor(bool showsImage, bool showsDrawing, bool isChanged);
