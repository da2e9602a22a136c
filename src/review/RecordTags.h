#pragma once

#include "photos/LabelSlots.h"

#include <string_view>

/// The names of the inspection record file (検査状況):
///
///     <?xml version="1.0" encoding="Shift_JIS"?>
///     <!DOCTYPE examinationdata SYSTEM "">
///     <検査状況>
///         <情報><写真枚数>2</写真枚数></情報>
///         <状況>
///             <写真>
///                 <コメント>…</コメント>
///                 <付箋1-OK>1</付箋1-OK> … <付箋6-任意>0</付箋6-任意>
///             </写真>
///             …
///         </状況>
///     </検査状況>
///     <?tovi-delivery names="…" sizes="…"?>
///     <?tovi-sample rate="10" … photos="0-4,7"?>
///
/// The n-th 写真 belongs to the n-th photograph of PHOTO.XML. Besides their number, the processing
/// instruction behind the root element ties a record to its delivery (see RecordOrigin); records
/// of others have none. Another one tells which photographs were drawn to be looked at, and how.
namespace RecordTags
{
inline constexpr const char* root = "検査状況";
inline constexpr const char* facts = "情報";
inline constexpr const char* photoCount = "写真枚数";
inline constexpr const char* states = "状況";
inline constexpr const char* photo = "写真";
/// Only in the variant with paths, and then first in 写真.
inline constexpr const char* path = "写真ファイルパス";
inline constexpr const char* comment = "コメント";
inline constexpr std::string_view labels[labelCount] = {
    "付箋1-OK", "付箋2-NG1", "付箋3-NG2", "付箋4-NG3", "付箋5-コメント", "付箋6-任意"};
inline constexpr const char* origin = "tovi-delivery";
inline constexpr const char* sample = "tovi-sample";
} // namespace RecordTags

/// Why a record was not saved or loaded.
enum RecordFailure
{
    /// The file exists and is read-only.
    RecordReadOnly = 0,
    RecordNoSpace = 1,
    RecordNotWritten = 2,
    RecordCancelled = 3,
    /// Also a file with fewer entries than it says, one that is missing or no XML.
    RecordCountDiffers = 4,
    RecordNoStates = 5,
    /// It was made of another delivery, as far as that can be told.
    RecordOtherDelivery = 6
};
