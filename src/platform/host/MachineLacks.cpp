#include "platform/host/MachineLacks.h"

#include "platform/host/Headless.h"
#include "platform/host/JapaneseFont.h"

#include <QImageReader>

CStringArray WhatMachineLacks()
{
    EnsureGui();
    CStringArray lacks;
    if (JapaneseFamily().isEmpty()) {
        lacks.Add("No Japanese font is installed: Japanese text can't be shown. Install one, such "
                  "as fonts-ipafont-gothic. / 日本語のフォントがないため、文字を表示できません。"
                  "fonts-ipafont-gothic などをインストールしてください。");
    }
    if (!QImageReader::supportedImageFormats().contains("tiff")) {
        lacks.Add("TIFF 画像を読む部品がないため、TIFF の写真と参考図は表示されません。"
                  "qt6-image-formats-plugins をインストールしてください。");
    }
    return lacks;
}
