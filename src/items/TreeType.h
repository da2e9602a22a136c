#pragma once

/// The classification tree.
enum TreeType : int
{
    /// 写真-大分類, 写真区分, 工種, 種別, 細別
    TreeWorkTypeFull = 0,
    /// 撮影箇所
    TreePlace = 1,
    /// 工種, 種別, 細別
    TreeWorkType = 2
};
