#pragma once

#include "kinds/DeliveryFamilies.h"

#include <string>
#include <vector>

/// What the command line of the viewer takes, for its help and for its manual page.

inline constexpr const char* viewerHelp =
    "工事写真の電子納品データを検査する。納品データには書き込まない。";

struct ViewerOptionRow
{
    /// With the hyphens of an option; without for an argument.
    const char* name;
    /// What stands for its value; empty for none.
    const char* value;
    std::string help;
    const char* english;
    /// The same in one letter: "-h".
    const char* letter = "";
};

inline std::vector<ViewerOptionRow> ViewerOptionRows()
{
    return {
        {"DELIVERY", "", "PHOTO.XML か INDEX_*.XML、またはそのあるフォルダ",
         "PHOTO.XML or INDEX_*.XML, or the folder that holds it"},
        {"--help", "", "この説明を表示する", "tell the usage", "-h"},
        {"--version", "", "名前と版を表示する", "tell name and version", "-v"},
        {"--family", "NAME", "要領の系統: " + FamilyKeys(true),
         "the family of standards: auto (told from the DTD and others), mlit, kowan, maff, nexco"},
        {"--record", "FILE", "検査状況の記録ファイル", "the file of the inspection record"},
        {"--profile", "FILE", "設定ファイル", "the file of settings"}};
}
