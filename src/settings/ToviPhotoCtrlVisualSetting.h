#pragma once

#include "platform/Export.h"

/// How the viewer shows a document.
class TOVI_EXPORT ToviPhotoCtrlVisualSetting
{
public:
    /// The classification tree. The numbers are what is stored and passed around.
    enum TreeType : int
    {
        /// 写真-大分類, 写真区分, 工種, 種別, 細別
        TreeWorkTypeFull = 0,
        /// 撮影箇所
        TreePlace = 1,
        /// 工種, 種別, 細別
        TreeWorkType = 2
    };

    /// Which item is the caption of a photograph.
    enum TitleShowType : int
    {
        /// 写真ファイル名
        TitleFileName = 0,
        /// 写真ファイル日本語名
        TitleJapaneseFileName = 1,
        /// 写真タイトル
        TitlePhotoTitle = 2
    };
};
