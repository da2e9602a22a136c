#pragma once

#include "platform/text/Text.h"

#include <QRect>

#include <span>
#include <vector>

/// What the zoom windows decide, without a window.
namespace ZoomRules
{
inline constexpr std::size_t mostWindows = 6;

/// An open window, as far as it matters for a request.
struct Window
{
    /// Of the image on show; empty when there is none.
    CString path;
    bool isFixed = false;
};

/// What is done so that a photograph is seen.
struct Answer
{
    enum Kind
    {
        /// The window \p index shows it already.
        Raise,
        /// The window \p index shows it from now on.
        Retarget,
        /// There is one more window.
        Create,
        /// There are too many.
        Refuse
    };

    Kind kind = Refuse;
    std::size_t index = 0;

    bool operator==(const Answer&) const = default;
};

/// How a request for the photograph at \p path is met. Letter case doesn't count.
TOVI_EXPORT Answer AnswerTo(std::span<const Window> windows, const CString& path);
/// The first window that follows the selection; none: the number of windows.
TOVI_EXPORT std::size_t FirstLoose(std::span<const Window> windows);

/// The size of a new window: \p remembered, unless that is none for a window.
TOVI_EXPORT QSize UsableSize(QSize remembered);
/// Where the window that is opened as number \p index (from 0) stands, as far as that is on \p
/// screen. \p panelTop is the top of the panel on the screen.
TOVI_EXPORT QRect NewPlace(std::size_t index, int panelTop, QSize size, const QRect& screen);
/// \p place, moved and if need be made smaller so that all of it is on \p screen.
TOVI_EXPORT QRect KeptOn(const QRect& screen, const QRect& place);
/// The places of \p count windows beside each other on \p screen, down the first column first.
TOVI_EXPORT std::vector<QRect> Arranged(std::size_t count, const QRect& screen);

/// The value of a slider at \p position (-100, at its top, to 100), as a brightness (see
/// BrightnessSteps).
TOVI_EXPORT int BrightnessAt(int position);
/// A turn by \p angle added to \p rotation, in degrees.
TOVI_EXPORT int Turned(int rotation, int angle);
/// Where \p part of a picture stood before that was turned clockwise by \p rotation, a multiple of
/// 90, to \p size. A rotation of the other sign leads back.
TOVI_EXPORT QRect TurnedBack(const QRect& part, QSize size, int rotation);
} // namespace ZoomRules
