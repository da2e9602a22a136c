#pragma once

#include <algorithm>
#include <span>
#include <stdexcept>
#include <string_view>

/// Every picture that is drawn for the program: the files of data/pictures/ by their names. A name
/// that ends in "-small" is the same picture on a grid of 16 pixels, taken by itself at such sizes.
inline constexpr std::string_view allPictures[] = {"arrange",
                                                   "brightness",
                                                   "close",
                                                   "close-all",
                                                   "comment-margin",
                                                   "comment-show",
                                                   "export",
                                                   "extract",
                                                   "help",
                                                   "information",
                                                   "label-comment-off",
                                                   "label-comment-on",
                                                   "label-comment-on-small",
                                                   "label-comment-selected",
                                                   "label-free-off",
                                                   "label-free-on",
                                                   "label-free-on-small",
                                                   "label-free-selected",
                                                   "label-ng1-off",
                                                   "label-ng1-on",
                                                   "label-ng1-on-small",
                                                   "label-ng1-selected",
                                                   "label-ng2-off",
                                                   "label-ng2-on",
                                                   "label-ng2-on-small",
                                                   "label-ng2-selected",
                                                   "label-ng3-off",
                                                   "label-ng3-on",
                                                   "label-ng3-on-small",
                                                   "label-ng3-selected",
                                                   "label-ok-off",
                                                   "label-ok-on",
                                                   "label-ok-on-small",
                                                   "label-ok-selected",
                                                   "labels",
                                                   "labels-clear",
                                                   "labels-correct",
                                                   "labels-selected",
                                                   "location",
                                                   "mark-altered",
                                                   "mark-check-none",
                                                   "mark-drawing",
                                                   "mark-drawing-none",
                                                   "mark-unaltered",
                                                   "mode-1",
                                                   "mode-1-small",
                                                   "mode-2",
                                                   "mode-2-small",
                                                   "mode-3",
                                                   "mode-3-small",
                                                   "mode-4",
                                                   "mode-4-small",
                                                   "mode-6",
                                                   "mode-6-small",
                                                   "mode-list",
                                                   "mode-list-small",
                                                   "mode-thumbnails",
                                                   "mode-thumbnails-small",
                                                   "next-unchecked",
                                                   "open",
                                                   "overlay-drawing",
                                                   "page-first",
                                                   "page-last",
                                                   "page-next",
                                                   "page-previous",
                                                   "photo-save",
                                                   "pin",
                                                   "pinned",
                                                   "preview-info-hidden",
                                                   "preview-info-shown",
                                                   "quit",
                                                   "record-open",
                                                   "refresh",
                                                   "report",
                                                   "revert",
                                                   "rotate-left",
                                                   "rotate-right",
                                                   "save",
                                                   "save-as",
                                                   "search",
                                                   "settings",
                                                   "slide-show",
                                                   "sort",
                                                   "state-altered",
                                                   "state-none",
                                                   "state-unaltered",
                                                   "tab-folder-tree",
                                                   "tab-label-tree",
                                                   "thumbnail-tile",
                                                   "tovi-viewer",
                                                   "tree-detail",
                                                   "tree-detail-open",
                                                   "tree-division",
                                                   "tree-division-open",
                                                   "tree-group",
                                                   "tree-group-open",
                                                   "tree-place",
                                                   "tree-place-open",
                                                   "tree-root",
                                                   "tree-root-open",
                                                   "tree-type",
                                                   "tree-type-open",
                                                   "tree-work",
                                                   "tree-work-open",
                                                   "zoom"};

/// The name of one of these pictures. Any other name doesn't compile.
class PictureName
{
public:
    consteval PictureName(const char* picture) : name(picture)
    {
        if (std::ranges::find(allPictures, name) == std::end(allPictures)) {
            throw std::invalid_argument("no such picture");
        }
    }
    constexpr operator std::string_view() const { return name; }

private:
    std::string_view name;
};

/// The pictures that a bitmap's or icon's \p number stands for, by image index; an icon has one.
/// Numbers that stand for no picture throw InvalidArgument.
std::span<const PictureName> PicturesOf(int number);

/// The numbers that PicturesOf answers, ascending.
std::span<const int> PictureNumbers();
