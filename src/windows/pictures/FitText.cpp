#include "windows/pictures/FitText.h"

#include <algorithm>
#include <vector>

static constexpr const char* lead = "　";
static constexpr const char* ellipsis = "...";
static constexpr std::size_t firstTry = 16;

CString FitText(const CString& text, int width, const std::function<int(const CString&)>& measure)
{
    if (text.empty() || width <= 0) return {};
    const auto widthUpTo = [&](std::size_t end) { return measure(lead + text.substr(0, end)); };

    // Twice as many characters each time, until they are too wide: a comment may be very long.
    std::vector<std::size_t> ends;
    std::string_view rest = text;
    for (;;) {
        for (std::size_t more = std::max(firstTry, ends.size()); more > 0 && !rest.empty();
             --more) {
            TakeCodePoint(rest);
            ends.push_back(text.size() - rest.size());
        }
        if (widthUpTo(ends.back()) > width) break;
        if (rest.empty()) return lead + text;
    }

    const int room = width - measure(ellipsis);
    const auto tooFar =
        std::ranges::partition_point(ends, [&](std::size_t end) { return widthUpTo(end) < room; });
    const std::size_t fitting = tooFar == ends.begin() ? 0 : *std::prev(tooFar);
    return lead + text.substr(0, fitting) + ellipsis;
}
