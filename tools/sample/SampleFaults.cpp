#include "sample/SampleFaults.h"

#include "sample/SampleDamage.h"
#include "sample/SampleFile.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include <sys/stat.h>

namespace
{
namespace fs = std::filesystem;

/// The photograph that faults are planted in, and its file in a tidy delivery.
constexpr int victim = 3;
constexpr const char* victimName = "P0000004.JPG";

CString PhotoXmlOf(const CString& folder)
{
    return folder + "/PHOTO/PHOTO.XML";
}

CString IndexOf(const CString& folder)
{
    return folder + "/INDEX_C.XML";
}

CString PictureOf(const CString& folder, int number = victim + 1)
{
    return folder + Format("/PHOTO/PIC/P%07d.JPG", number);
}

using Options = SampleOptions;
using Builder = DeliveryBuilder;

/// A submitted photograph of \p category with all that one can have.
void MakeSubmitted(Builder& delivery, const char* category)
{
    const std::pair<const char*, const char*> items[] = {
        {"写真-大分類", "工事"}, {"写真区分", category}, {"工種", "土工"},
        {"種別", "掘削工"},      {"細別", "掘削"},       {"撮影箇所", "No.1"},
        {"代表写真", "0"},       {"提出頻度写真", "1"},  {"施工管理値", "幅:設計値100・実測値101"}};
    for (const auto& [title, value] : items) delivery.Set(victim, title, value);
}

void WithoutItem(Builder& delivery, const char* category, const char* title)
{
    MakeSubmitted(delivery, category);
    delivery.Set(victim, title, "");
}

void MoveDisc(const CString& folder, const char* from, const char* to)
{
    fs::rename(folder + from, folder + to);
}

/// One medium in a folder DISK1, and beside it another with a PHOTO.XML of its own.
void PutBesideOtherXml(const CString& folder)
{
    const CString disc = folder + "/DISK1";
    fs::create_directory(disc);
    for (const CString name : {"PHOTO", "INDEX_C.XML", "INDE_C07.DTD"}) {
        fs::rename(folder + "/" + name, disc + "/" + name);
    }
    fs::create_directories(folder + "/DISK2/PHOTO");
    WriteSampleFile(PhotoXmlOf(folder + "/DISK2"), ReadSampleFile(PhotoXmlOf(disc)) + "\n");
}

void LinkOutside(const CString& folder)
{
    fs::remove(PictureOf(folder));
    fs::create_symlink(fs::absolute(IndexOf(folder)), PictureOf(folder));
}

void MakePipe(const CString& folder)
{
    fs::remove(PictureOf(folder));
    if (mkfifo(PictureOf(folder).c_str(), 0600) != 0) {
        throw std::runtime_error("cannot make a pipe of \"" + PictureOf(folder) + "\"");
    }
}

constexpr const char* oneMinute = "2023:07:01 10:20:30";

void SetSameMinute(const CString& folder)
{
    for (const auto& entry : fs::directory_iterator(folder + "/PHOTO/PIC")) {
        if (entry.path().extension() == ".JPG") SetExifTimes(entry.path(), oneMinute);
    }
}

constexpr int fewPhotos = 6;
constexpr int manyPhotos = 12;
constexpr const char* newest = "国交省-20";
constexpr const char* oldest = "国交省-11";
constexpr const char* withoutFlags = "国交省-14";
constexpr const char* ofNexco = "NEXCO-24";

/// A fault whose rule has its name.
constexpr SampleFault InOptions(std::string_view name, std::string_view what,
                                void (*choose)(Options&))
{
    return {name, name, what, newest, 1, fewPhotos, choose, nullptr, nullptr};
}

constexpr SampleFault InPhotos(std::string_view name, std::string_view what,
                               void (*change)(Builder&), const char* section = newest,
                               int photos = fewPhotos)
{
    return {name, name, what, section, 1, photos, nullptr, change, nullptr};
}

constexpr SampleFault InFiles(std::string_view name, std::string_view what,
                              void (*damage)(const CString&), int discs = 1,
                              const char* section = newest)
{
    return {name, name, what, section, discs, fewPhotos, nullptr, nullptr, damage};
}

#define SETS(title, value) [](Builder& d) { d.Set(victim, title, value); }
#define LACKS(category, title) [](Builder& d) { WithoutItem(d, category, title); }
#define FILES(statement) [](const CString& f) { statement; }

const SampleFault faults[] = {
    // Folders and what lies in them
    InFiles("folder-pic-missing", "no folder PIC", FILES(fs::remove_all(f + "/PHOTO/PIC"))),
    InFiles("folder-dra-missing", "no folder DRA", FILES(fs::remove_all(f + "/PHOTO/DRA"))),
    InFiles("folder-deep", "a folder in PIC", FILES(fs::create_directory(f + "/PHOTO/PIC/SUB"))),
    InFiles("folder-stray", "a folder beside PIC",
            FILES(fs::create_directory(f + "/PHOTO/OTHER"))),
    InFiles("folder-letter-case", "PIC in lower case",
            FILES(fs::rename(f + "/PHOTO/PIC", f + "/PHOTO/pic"))),
    InFiles("file-letter-case", "a photograph's file in lower case",
            FILES(fs::rename(PictureOf(f), f + "/PHOTO/PIC/p0000004.jpg"))),
    InFiles("dtd-missing", "no DTD beside PHOTO.XML", FILES(fs::remove(f + "/PHOTO/PHOTO05.DTD"))),
    InFiles("dtd-version", "another DTD_version than the DTD's",
            FILES(ReplaceInXml(PhotoXmlOf(f), "DTD_version=\"05\"", "DTD_version=\"04\""))),
    InFiles("xml-encoding", "PHOTO.XML in UTF-16", FILES(RecodeXml(PhotoXmlOf(f)))),
    InFiles("folder-name-pic", "写真フォルダ名 is PIC",
            FILES(SetInXml(PhotoXmlOf(f), "写真フォルダ名", "PIC"))),
    InFiles("folder-name-dra", "参考図フォルダ名 is DRA",
            FILES(SetInXml(PhotoXmlOf(f), "参考図フォルダ名", "DRA"))),
    InFiles("folder-name-dra-missing", "参考図フォルダ名 is empty",
            FILES(SetInXml(PhotoXmlOf(f), "参考図フォルダ名", ""))),
    {"folder-name-dra-needless", "folder-name-dra-needless", "参考図フォルダ名 without drawings",
     newest, 1, fewPhotos, [](Options& o) { o.drawings = 0; }, nullptr,
     FILES(ReplaceInXml(PhotoXmlOf(f), "<適用要領基準>",
                        "<参考図フォルダ名>PHOTO/DRA</参考図フォルダ名><適用要領基準>"))},
    InFiles("standard-missing", "適用要領基準 is empty",
            FILES(SetInXml(PhotoXmlOf(f), "適用要領基準", ""))),
    InFiles("standard-unknown", "適用要領基準 of no known form",
            FILES(SetInXml(PhotoXmlOf(f), "適用要領基準", "土木R5-01"))),
    InPhotos("element-unknown", "an element that the edition doesn't have",
             [](Builder& d) { d.AddXml(victim, "<独自項目>1</独自項目>"); }),
    InPhotos("element-repeated", "代表写真 stands twice",
             [](Builder& d) { d.AddXml(victim, "<代表写真>0</代表写真>"); }),
    InPhotos("element-order", "代表写真 stands last",
             [](Builder& d) { d.Remove(victim, "代表写真").AddXml(victim, "<代表写真>0</代表写真>"); }),
    {"flags-inside", "element-place", "代表写真 and 提出頻度写真 stand inside 撮影情報", newest, 1,
     fewPhotos, [](Options& o) { o.flagsInside = true; }, nullptr, nullptr},
    InPhotos("photo-unread", "a 写真情報 inside another",
             [](Builder& d) { d.AddXml(victim, "<写真情報><代表写真>0</代表写真></写真情報>"); }),
    InFiles("stray-photo", "a file in PIC that no photograph names",
            FILES(fs::copy_file(PictureOf(f), PictureOf(f, 9999999)))),
    InFiles("stray-drawing", "a file in DRA that no photograph names",
            FILES(fs::copy_file(PictureOf(f), f + "/PHOTO/DRA/D9999999.JPG"))),
    InFiles("stray-beside-xml", "a text file beside PHOTO.XML",
            FILES(WriteSampleFile(f + "/PHOTO/MEMO.TXT", "memo"))),
    InFiles("stray-system-file", "a Thumbs.db in PIC",
            FILES(WriteSampleFile(f + "/PHOTO/PIC/Thumbs.db", "x"))),
    InFiles("stray-program", "a program beside PHOTO.XML",
            FILES(WriteSampleFile(f + "/PHOTO/SETUP.EXE", "MZ"))),

    // Names and numbers
    InPhotos("photo-name-form", "a file name of another form", SETS("写真ファイル名", "P-4.JPG")),
    InPhotos("photo-name-letter-case", "a file name in lower case",
             SETS("写真ファイル名", "p0000004.jpg")),
    InPhotos("photo-name-long", "a file name of 170 characters",
             SETS("写真ファイル名", CString(170, 'L') + ".JPG"), oldest),
    InPhotos("photo-name-twice", "two photographs with one file name",
             [](Builder& d) {
                 d.Set(victim + 1, "写真ファイル名", victimName);
                 d.Set(victim + 1, "撮影年月日", d.Photo(victim).Value("撮影年月日"));
             }),
    InPhotos("drawing-name-form", "a drawing's name of another form",
             [](Builder& d) { d.Set(0, "参考図ファイル名", "ZUMEN1.JPG"); }),
    InPhotos("drawing-name-letter-case", "a drawing's name in lower case",
             [](Builder& d) { d.Set(0, "参考図ファイル名", "d0000001.jpg"); }),
    InPhotos("photo-format", "a photograph with the ending MP4",
             SETS("写真ファイル名", "P0000004.MP4")),
    InFiles("photo-format-early", "an SVG photograph before its edition",
            FILES(SetInXml(PhotoXmlOf(f), "適用要領基準", "土木202003-01"))),
    InPhotos("drawing-format", "a drawing with the ending DWG",
             [](Builder& d) { d.Set(0, "参考図ファイル名", "D0000001.DWG"); }),
    InPhotos("serial-not-number", "シリアル番号 with a letter", SETS("シリアル番号", "A4")),
    InPhotos("serial-twice", "two photographs with one シリアル番号",
             [](Builder& d) { d.Set(victim + 1, "シリアル番号", "4"); }),
    InPhotos("serial-leading-zero", "シリアル番号 with zeros in front",
             SETS("シリアル番号", "0000004")),
    InPhotos("serial-long", "シリアル番号 of eight digits", SETS("シリアル番号", "12345678")),
    InPhotos("media-not-number", "メディア番号 with a word", SETS("メディア番号", "1枚目")),

    // Items
    InPhotos("serial-missing", "no シリアル番号", SETS("シリアル番号", "")),
    InPhotos("photo-name-missing", "no 写真ファイル名", SETS("写真ファイル名", "")),
    InPhotos("media-missing", "no メディア番号", SETS("メディア番号", "")),
    InPhotos("class-missing", "no 写真-大分類", SETS("写真-大分類", "")),
    InPhotos("class-unknown", "写真-大分類 is no word of the standard",
             SETS("写真-大分類", "工事写真")),
    InPhotos("category-missing", "no 写真区分", LACKS("施工状況写真", "写真区分")),
    InPhotos("category-unknown", "写真区分 is no word of the standard", SETS("写真区分", "施工中")),
    InPhotos("category-unknown-nexco", "写真区分 is no word of NEXCO's",
             SETS("写真区分", "出来形管理写真"), ofNexco),
    InPhotos("title-missing", "no 写真タイトル", SETS("写真タイトル", "")),
    InPhotos("date-missing", "no 撮影年月日", SETS("撮影年月日", "")),
    InPhotos("date-missing-old", "no 撮影年月日 where it isn't mandatory", SETS("撮影年月日", ""),
             withoutFlags),
    InPhotos("key-missing", "no 代表写真", SETS("代表写真", "")),
    InPhotos("key-value", "代表写真 is 2", SETS("代表写真", "2")),
    InPhotos("key-none", "no photograph is a 代表写真",
             [](Builder& d) {
                 for (int photo = 0; photo < fewPhotos; ++photo) d.Set(photo, "代表写真", "0");
             }),
    InPhotos("frequency-missing", "no 提出頻度写真", SETS("提出頻度写真", "")),
    InPhotos("frequency-value", "提出頻度写真 is 9", SETS("提出頻度写真", "9")),
    InPhotos("work-type-missing", "a submitted 出来形管理写真 without 工種",
             LACKS("出来形管理写真", "工種")),
    InPhotos("work-type-wanted", "a submitted 施工状況写真 without 工種",
             LACKS("施工状況写真", "工種")),
    InPhotos("kind-wanted", "a submitted photograph without 種別", LACKS("施工状況写真", "種別")),
    InPhotos("detail-wanted", "a submitted photograph without 細別", LACKS("施工状況写真", "細別")),
    InPhotos("work-type-nexco", "a 完成写真 of NEXCO without 工種",
             [](Builder& d) {
                 d.Set(victim, "写真-大分類", "工事").Set(victim, "写真区分", "完成写真");
                 d.Set(victim, "工種", "");
             },
             ofNexco),
    InPhotos("place-wanted", "a submitted photograph without 撮影箇所",
             LACKS("施工状況写真", "撮影箇所")),
    InPhotos("control-value-wanted", "a submitted 出来形管理写真 without 施工管理値",
             LACKS("出来形管理写真", "施工管理値")),
    InPhotos("drawing-title-missing", "no 参考図タイトル",
             [](Builder& d) { d.Set(0, "参考図タイトル", ""); }),
    InPhotos("drawing-name-missing", "a drawing without 参考図ファイル名",
             [](Builder& d) { d.AddDrawing(victim, {{"参考図タイトル", "平面図"}}); }),

    // Characters
    InPhotos("text-half-width-kana", "half-width kana", SETS("写真タイトル", "ｺﾝｸﾘｰﾄ打設")),
    InPhotos("text-full-width-alphanumeric", "full-width letters and digits",
             SETS("写真タイトル", "Ａ１橋台")),
    InPhotos("text-machine-dependent", "characters that depend on the machine",
             SETS("写真タイトル", "㈱青葉①工区")),
    InPhotos("text-private", "a private character", SETS("写真タイトル", "現場\xEE\x80\x80")),
    InPhotos("text-foreign", "a character outside of JIS X 0208", SETS("写真タイトル", "𠮷野川")),
    InPhotos("text-control", "a tab amid a value", SETS("写真タイトル", "着手前\t全景")),
    InPhotos("text-long", "a value of 128 characters",
             [](Builder& d) {
                 CString text;
                 for (int i = 0; i < 128; ++i) text += "長";
                 d.Set(victim, "請負者説明文", text);
             }),
    InPhotos("text-blanks", "a blank in front of a value", SETS("写真タイトル", " 着手前 全景")),

    // Files
    InFiles("photo-file-missing", "a photograph's file is missing",
            FILES(fs::remove(PictureOf(f)))),
    InFiles("drawing-file-missing", "a drawing's file is missing",
            FILES(fs::remove(f + "/PHOTO/DRA/D0000001.JPG"))),
    InFiles("disc-absent", "the second disc isn't there", FILES(fs::remove_all(f + "/DISK2")), 2),
    InFiles("disc-other", "a photograph lies on another disc",
            FILES(MoveDisc(f, "/DISK1/PHOTO/PIC/P0000002.JPG", "/DISK2/PHOTO/PIC/P0000002.JPG")),
            2),
    InFiles("disc-twice", "a photograph lies on both discs",
            FILES(fs::copy_file(f + "/DISK1/PHOTO/PIC/P0000002.JPG",
                                f + "/DISK2/PHOTO/PIC/P0000002.JPG")),
            2),
    InFiles("file-unreadable", "a pipe in the place of a photograph", MakePipe),
    InFiles("file-outside", "a link in the place of a photograph", LinkOutside),
    InFiles("file-empty", "a photograph of no bytes", FILES(fs::resize_file(PictureOf(f), 0))),
    InFiles("file-cut-off", "half a photograph",
            FILES(fs::resize_file(PictureOf(f), fs::file_size(PictureOf(f)) / 2))),
    InFiles("file-damaged", "a photograph with wrong bytes amid it", FILES(ScrambleMiddle(PictureOf(f)))),
    InFiles("file-disguised", "a PDF file as a JPG",
            FILES(WriteSampleFile(PictureOf(f), "%PDF-1.4\n%%EOF\n"))),

    // Pictures
    InFiles("pixels-few", "a photograph of 640 pixels", FILES(ResizePicture(PictureOf(f), 640))),
    InFiles("pixels-many", "a photograph of 2400 pixels", FILES(ResizePicture(PictureOf(f), 2400))),
    InFiles("bytes-nexco", "a photograph of more than 500 KB for NEXCO",
            FILES(WriteSampleFile(PictureOf(f),
                                  ReadSampleFile(PictureOf(f)) + std::string(600'000, '\0'))),
            1, ofNexco),
    InFiles("pixels-nexco", "photographs beyond 1280x960 for NEXCO",
            FILES(SetInXml(PhotoXmlOf(f), "適用要領基準", "NEXCO201607-01")), 1, ofNexco),
    InFiles("edit-software", "the name of an editor in the Exif data",
            FILES(SetExifText(PictureOf(f), "Ver.1.02", "GIMP 2.1"))),
    InFiles("edit-dimensions", "other dimensions in the Exif data",
            FILES(SetExifSize(PictureOf(f), 4000, 3000))),
    InFiles("edit-exif-missing", "one photograph without Exif data",
            FILES(RemoveExif(PictureOf(f)))),

    // Dates
    InPhotos("date-form", "撮影年月日 with slashes", SETS("撮影年月日", "2023/07/01")),
    InPhotos("date-no-day", "撮影年月日 on 30 February", SETS("撮影年月日", "2023-02-30")),
    InPhotos("date-future", "撮影年月日 in 2099", SETS("撮影年月日", "2099-01-01")),
    InPhotos("date-outside-period", "撮影年月日 before 工期", SETS("撮影年月日", "2010-05-05")),
    InFiles("date-other-than-exif", "another day in the Exif data",
            FILES(SetExifTimes(PictureOf(f), "2022:12:24 10:20:30"))),
    InFiles("clock-unset", "a camera's clock that was never set",
            FILES(SetExifTimes(PictureOf(f), "2000:01:01 00:00:12"))),
    {"clock-same-minute", "clock-same-minute", "all photographs of one minute", newest, 1,
     manyPhotos, nullptr,
     [](Builder& d) {
         for (int photo = 0; photo < manyPhotos; ++photo) d.Set(photo, "撮影年月日", "2023-07-01");
     },
     SetSameMinute},
    InFiles("exif-changed-later", "the Exif data were changed later",
            FILES(SetExifTimes(PictureOf(f), "2024:12:24 10:20:30", false))),

    // The index file and the discs
    InFiles("index-missing", "no index file", FILES(fs::remove(IndexOf(f)))),
    InFiles("index-unreadable", "half an index file",
            FILES(fs::resize_file(IndexOf(f), fs::file_size(IndexOf(f)) / 2))),
    InFiles("index-dtd-missing", "no DTD beside the index file",
            FILES(fs::remove(f + "/INDE_C07.DTD"))),
    InFiles("index-photo-folder", "写真フォルダ名 of the index file is PHOTO2",
            FILES(SetInXml(IndexOf(f), "写真フォルダ名", "PHOTO2"))),
    InFiles("index-photo-folder-missing", "no 写真フォルダ名 in the index file",
            FILES(SetInXml(IndexOf(f), "写真フォルダ名", ""))),
    InFiles("index-title-missing", "no 工事名称 in the index file",
            FILES(SetInXml(IndexOf(f), "工事名称", ""))),
    InFiles("index-period-missing", "no 工期終了日 in the index file",
            FILES(SetInXml(IndexOf(f), "工期終了日", ""))),
    InFiles("index-period-form", "工期終了日 of another form",
            FILES(SetInXml(IndexOf(f), "工期終了日", "R6.3.31"))),
    InFiles("index-period-order", "工期 ends before it begins",
            FILES(SetInXml(IndexOf(f), "工期終了日", "2001-01-01"))),
    InFiles("index-media-number", "メディア番号 of the index file beyond メディア総枚数",
            FILES(SetInXml(IndexOf(f), "メディア番号", "3"))),
    InPhotos("media-beyond", "メディア番号 of a photograph beyond メディア総枚数",
             SETS("メディア番号", "2")),
    InPhotos("media-mixed-zero", "メディア番号 0 among others", SETS("メディア番号", "0")),
    InFiles("disc-number", "メディア番号 of another disc in its index file",
            FILES(SetInXml(IndexOf(f + "/DISK2"), "メディア番号", "1")), 2),
    InFiles("disc-index-differs", "another 工事名称 on the second disc",
            FILES(SetInXml(IndexOf(f + "/DISK2"), "工事名称", "別の工事")), 2),
    InFiles("disc-other-xml", "another PHOTO.XML on the second disc", PutBesideOtherXml),
};

#undef SETS
#undef LACKS
#undef FILES

/// Takes what \p fault needs over into \p options.
void Agree(const SampleFault& fault, const SampleFault& first, SampleOptions& options)
{
    if (fault.section != first.section || fault.discs != first.discs) {
        throw std::invalid_argument("the faults " + CString(first.name) + " and " +
                                    CString(fault.name) + " can't be in one delivery");
    }
    options.photos = std::max(options.photos, fault.photos);
    if (fault.choose != nullptr) fault.choose(options);
}
} // namespace

std::span<const SampleFault> SampleFaults()
{
    return faults;
}

const SampleFault* FindSampleFault(std::string_view name)
{
    const auto* const found = std::ranges::find(faults, name, &SampleFault::name);
    return found == std::end(faults) ? nullptr : &*found;
}

void WriteFaultySample(SampleOptions options, std::span<const SampleFault* const> planted,
                       const CString& folder, const std::function<void(int)>& progress)
{
    if (!planted.empty()) {
        options.section = planted.front()->section;
        options.discs = planted.front()->discs;
        options.tidy = true;
    }
    for (const SampleFault* fault : planted) Agree(*fault, *planted.front(), options);
    DeliveryBuilder delivery(options);
    for (const SampleFault* fault : planted) {
        if (fault->change != nullptr) fault->change(delivery);
    }
    delivery.Write(folder, progress);
    for (const SampleFault* fault : planted) {
        if (fault->damage != nullptr) fault->damage(folder);
    }
}
