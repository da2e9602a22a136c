#include "windows/pictures/PictureNames.h"

#include "platform/text/CArray.h"

#include <array>

namespace
{
// The tools over a zoomed photograph.
constexpr PictureName zoomTools[] = {"rotate-left", "rotate-right", "revert", "information",
                                     "photo-save"};

// The tools over the detail panel's photograph; the slider has a picture as well.
constexpr PictureName detailTools[] = {"rotate-left", "rotate-right", "revert",
                                       "information", "brightness",   "photo-save"};

// The tools for several zoom windows; the last is 固定 while it is on.
constexpr PictureName windowTools[] = {"arrange", "close", "close-all", "pin", "pinned"};

// The label buttons of a cell, off and on by turns.
constexpr PictureName labelButtons[] = {"label-ok-off",     "label-ok-on",    "label-ng1-off",
                                        "label-ng1-on",     "label-ng2-off",  "label-ng2-on",
                                        "label-ng3-off",    "label-ng3-on",   "label-comment-off",
                                        "label-comment-on", "label-free-off", "label-free-on"};

// The floating label toolbar: six on, six off.
constexpr PictureName labelStrip[] = {"label-ok-on",   "label-ng1-on",      "label-ng2-on",
                                      "label-ng3-on",  "label-comment-on",  "label-free-on",
                                      "label-ok-off",  "label-ng1-off",     "label-ng2-off",
                                      "label-ng3-off", "label-comment-off", "label-free-off"};

// The label tree: root and labels selected, then plain.
constexpr PictureName labelTree[] = {
    "labels-selected",    "label-ok-selected",      "label-ng1-selected",  "label-ng2-selected",
    "label-ng3-selected", "label-comment-selected", "label-free-selected", "labels",
    "label-ok-on",        "label-ng1-on",           "label-ng2-on",        "label-ng3-on",
    "label-comment-on",   "label-free-on"};

// What lies on a thumbnail: six labels, reference drawings, two check results.
constexpr PictureName overlays[] = {
    "label-ok-on-small",  "label-ng1-on-small",     "label-ng2-on-small",
    "label-ng3-on-small", "label-comment-on-small", "label-free-on-small",
    "overlay-drawing",    "state-unaltered",        "state-altered"};

// The check results in the management list.
constexpr PictureName states[] = {"state-unaltered", "state-altered", "state-none"};

// Whether a photograph has reference drawings.
constexpr PictureName drawingMarks[] = {"mark-drawing-none", "mark-drawing"};

// The check result on a name plate.
constexpr PictureName checkMarks[] = {"mark-check-none", "mark-unaltered", "mark-altered"};

// The tree by 工種 from 写真-大分類 down: plain by depth, then selected.
constexpr PictureName fullTree[] = {"tree-root",      "tree-group",      "tree-division",
                                    "tree-work",      "tree-type",       "tree-detail",
                                    "tree-root-open", "tree-group-open", "tree-division-open",
                                    "tree-work-open", "tree-type-open",  "tree-detail-open"};

// The tree by 撮影箇所.
constexpr PictureName placeTree[] = {"tree-root", "tree-place", "tree-root-open",
                                     "tree-place-open"};

// The tree by 工種 alone.
constexpr PictureName workTree[] = {"tree-root",      "tree-work",       "tree-type",
                                    "tree-detail",    "tree-root-open",  "tree-work-open",
                                    "tree-type-open", "tree-detail-open"};

// The sheet under a thumbnail.
constexpr PictureName tile[] = {"thumbnail-tile"};

// The left edge of a comment strip.
constexpr PictureName margin[] = {"comment-margin"};

struct NumberedPictures
{
    int number;
    std::span<const PictureName> pictures;
};

constexpr NumberedPictures numbered[] = {
    {225, zoomTools},
    {239, detailTools},
    {501, {&labelButtons[0], 1}},
    {502, {&labelButtons[1], 1}},
    {503, {&labelButtons[2], 1}},
    {504, {&labelButtons[3], 1}},
    {505, {&labelButtons[4], 1}},
    {506, {&labelButtons[5], 1}},
    {507, {&labelButtons[6], 1}},
    {508, {&labelButtons[7], 1}},
    {509, {&labelButtons[8], 1}},
    {510, {&labelButtons[9], 1}},
    {511, {&labelButtons[10], 1}},
    {512, {&labelButtons[11], 1}},
    {513, {&states[0], 1}},
    {514, {&states[1], 1}},
    {515, {&states[2], 1}},
    {800, tile},
    {801, fullTree},
    {802, placeTree},
    {803, windowTools},
    {805, labelStrip},
    {806, drawingMarks},
    {807, checkMarks},
    {808, workTree},
    {809, {&labelStrip[0], 1}},
    {810, {&labelStrip[1], 1}},
    {811, {&labelStrip[2], 1}},
    {812, {&labelStrip[3], 1}},
    {813, {&labelStrip[4], 1}},
    {814, {&labelStrip[5], 1}},
    {815, labelTree},
    {816, overlays},
    {817, margin},
};
static_assert(std::ranges::is_sorted(numbered, std::less{}, &NumberedPictures::number));

constexpr auto numbers = [] {
    std::array<int, std::size(numbered)> all{};
    std::ranges::transform(numbered, all.begin(), &NumberedPictures::number);
    return all;
}();
} // namespace

std::span<const PictureName> PicturesOf(int number)
{
    const auto* row =
        std::ranges::lower_bound(numbered, number, std::less{}, &NumberedPictures::number);
    if (row == std::end(numbered) || row->number != number) {
        throw InvalidArgument("no picture has this number");
    }
    return row->pictures;
}

std::span<const int> PictureNumbers()
{
    return numbers;
}
