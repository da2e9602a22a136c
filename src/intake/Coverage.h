#pragma once

#include "intake/IntakeDelivery.h"

/// The photographs of one 写真区分 of one 工種, 種別 and 細別.
struct CoverageRow
{
    CString workType;
    CString kind;
    CString detail;
    CString category;
    int count = 0;
    /// 代表写真, 提出頻度写真.
    int key = 0;
    int submitted = 0;
    /// With an OK or NG label; with an NG label.
    int judged = 0;
    int ng = 0;
};

/// Photographs that one would expect others to, which aren't there.
struct MissingPartner
{
    /// 撮影箇所, or the 工種, 種別 and 細別, with " / " between them.
    CString where;
    /// What is there and what isn't.
    CString has;
    CString lacks;
    /// Those that are there, by their photo indexes.
    std::vector<int> photos;
};

struct Coverage
{
    /// In the order in which they first stand in PHOTO.XML.
    std::vector<CoverageRow> rows;
    /// The 撮影箇所 with 着手前 alone or 完成 alone, then the works with 施工状況写真 without
    /// 出来形管理写真.
    std::vector<MissingPartner> missing;
};

/// The coverage by \p delivery, with the labels that its document has now.
TOVI_EXPORT Coverage CountCoverage(const IntakeDelivery& delivery);
