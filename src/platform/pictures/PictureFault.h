#pragma once

/// Why a file's picture can't be shown, or not whole.
enum class PictureFault
{
    None,
    Missing,
    /// The file lies outside of what may be read.
    Outside,
    /// The file is there and can't be read.
    Unreadable,
    /// No format that is let in.
    NoPicture,
    Damaged,
    TooLarge,
    /// A JPEG file that ends too soon: what is there of it can be shown.
    Cut
};
