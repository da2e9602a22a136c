#pragma once

#include "platform/text/Text.h"

#include <array>

/// What the extraction window is set to: which photographs of the selected node are shown.
struct ExtractionConditions
{
    /// 代表写真. Counts as off where the delivery knows no key photographs.
    bool keyPhoto = false;
    /// NG写真
    bool ngPhoto = false;
    /// 未検査写真
    bool notcheckPhoto = false;
    /// Exif情報非保有写真
    bool notExifinfo = false;
    /// 必須項目未入力写真
    bool neceNotwrite = false;
    /// 項目１ to 項目３: whether each is on, the title of its item, and the text to look for, which
    /// missingValueTitle makes the empty one.
    std::array<bool, 3> itemOn{};
    std::array<CString, 3> itemTitle;
    std::array<CString, 3> itemText;
    /// 日付で抽出する
    bool dateOn = false;
    /// 0: 撮影年月日, else ファイル更新日.
    int dateKind = 0;
    /// First and last day, as YYYY-MM-DD.
    CString dateFrom;
    CString dateTo;
    /// 0: かつ (all conditions that are on), else または (any of them).
    int orMode = 0;

    bool operator==(const ExtractionConditions&) const = default;
};
