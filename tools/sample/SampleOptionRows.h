#pragma once

/// What the command line of tovi-sample takes, for its help and for its manual page.

struct SampleOptionRow
{
    const char* name;
    const char* help;
    const char* japanese;
    /// What stands for its value; empty for none.
    const char* value = "";
};

inline constexpr SampleOptionRow sampleOptionRows[] = {
    {"FOLDER", "The folder that gets INDEX_C.XML and PHOTO; new or empty",
     "INDEX_C.XML と PHOTO を作るフォルダ。新しいか空のもの"},
    {"--section", "The kind of delivery", "要領の世代（国交省-20 など）", "KIND"},
    {"--photos", "How many photographs", "写真の枚数", "N"},
    {"--drawings", "How many reference drawings (a sixth of the photographs if not given)",
     "参考図の枚数（既定は写真の6分の1）", "N"},
    {"--discs", "Spread the pictures over the folders DISK1, DISK2 and so on",
     "写真を DISK1、DISK2 などのフォルダに分ける", "N"},
    {"--encoding", "The encoding of the XML files: shift_jis or utf-8",
     "XMLの文字コード: shift_jis（既定）、utf-8", "NAME"},
    {"--fault",
     "What is wrong with an otherwise tidy delivery, several with commas between them; \"list\" "
     "lists all "
     "faults. The kind and the discs are those of the fault",
     "ほかに誤りのない納品データに入れる誤り。コンマで区切って何個でも。list "
     "で一覧を表示する。要領の世代と"
     "ディスクの数は誤りに合わせる",
     "NAME"},
    {"--tidy", "Leave nothing out and use no character that a checker could find",
     "検査で指摘される省略や文字のない納品データにする"},
    {"--no-images", "Leave out the picture files", "写真のファイルを作らない"},
    {"--seed", "Another number makes another delivery", "数を変えると別の納品データになる", "N"}};
