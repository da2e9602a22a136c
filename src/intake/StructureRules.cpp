#include "intake/IntakeRule.h"

#include "platform/files/MibFile.h"

#include <algorithm>
#include <set>

namespace
{
constexpr const char* systemFiles[] = {"thumbs.db", "desktop.ini", ".ds_store"};
constexpr const char* programEndings[] = {".exe", ".com", ".bat", ".cmd", ".msi", ".scr",
                                          ".dll", ".js",  ".vbs", ".lnk", ".sh",  ".jar"};

bool IsOneOf(const CString& text, std::span<const char* const> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&text](const char* word) { return EqualNoCase(text, word); });
}

bool IsSystemFile(const CString& name)
{
    return IsOneOf(name, systemFiles) || name.starts_with("._");
}

bool IsProgram(const CString& name)
{
    return IsOneOf(MibGetExt(name), programEndings);
}

bool HasDrawings(const IntakeDelivery& delivery)
{
    return std::any_of(delivery.files.begin(), delivery.files.end(),
                       [](const NamedFile& file) { return file.isDrawing; });
}

/// Calls \p look with each disc and a folder of it, its name for people and its path.
void ForEachFolder(const IntakeDelivery& delivery,
                   const std::function<void(const IntakeFolder& folder, const CString& name,
                                            const CString& path)>& look)
{
    for (const IntakeDisc& disc : delivery.discs) {
        look(disc.photo, "PHOTO/", disc.photoFolder);
        look(disc.pictures, "PHOTO/PIC/", disc.photoFolder + "PIC/");
        look(disc.drawings, "PHOTO/DRA/", disc.photoFolder + "DRA/");
    }
}

void TellNamesIn(const IntakeDelivery& delivery, bool (*isMeant)(const CString& name),
                 const TellSpot& tell)
{
    ForEachFolder(delivery,
                  [&](const IntakeFolder& folder, const CString& name, const CString& path) {
                      for (const CString& each : folder.names) {
                          if (isMeant(each) && !MibIsFolderExist(path + each))
                              tell({.file = name + each});
                      }
                  });
}

void TellSystemFiles(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellNamesIn(delivery, IsSystemFile, tell);
}

void TellPrograms(const IntakeDelivery& delivery, const TellSpot& tell)
{
    TellNamesIn(delivery, IsProgram, tell);
}

bool IsToldElsewhere(const CString& name)
{
    return IsSystemFile(name) || IsProgram(name);
}

void TellMissingPictureFolder(const IntakeDelivery& delivery, const TellSpot& tell)
{
    const bool isThere = std::any_of(delivery.discs.begin(), delivery.discs.end(),
                                     [](const IntakeDisc& disc) { return disc.pictures.isThere; });
    if (!isThere) tell({.file = "PHOTO/PIC"});
}

void TellMissingDrawingFolder(const IntakeDelivery& delivery, const TellSpot& tell)
{
    const bool isThere = std::any_of(delivery.discs.begin(), delivery.discs.end(),
                                     [](const IntakeDisc& disc) { return disc.drawings.isThere; });
    const bool isMissed =
        std::any_of(delivery.files.begin(), delivery.files.end(), [](const NamedFile& file) {
            return file.isDrawing && file.place == NamedFile::Missing;
        });
    if (!isThere && isMissed) tell({.file = "PHOTO/DRA"});
}

void TellDeepFolders(const IntakeDelivery& delivery, const TellSpot& tell)
{
    ForEachFolder(delivery,
                  [&](const IntakeFolder& folder, const CString& name, const CString& path) {
                      if (name == "PHOTO/") return;
                      for (const CString& each : folder.names) {
                          if (MibIsFolderExist(path + each)) tell({.file = name + each});
                      }
                  });
}

void TellStrayFolders(const IntakeDelivery& delivery, const TellSpot& tell)
{
    for (const IntakeDisc& disc : delivery.discs) {
        for (const CString& name : disc.photo.names) {
            const bool isMeant = EqualNoCase(name, "PIC") || EqualNoCase(name, "DRA");
            if (!isMeant && MibIsFolderExist(disc.photoFolder + name))
                tell({.file = "PHOTO/" + name});
        }
    }
}

void TellFolderCase(const IntakeDelivery& delivery, const TellSpot& tell)
{
    for (const IntakeDisc& disc : delivery.discs) {
        const bool isInPhoto = EqualNoCase(
            MibGetFileName(disc.photoFolder.substr(0, disc.photoFolder.size() - 1)), "PHOTO");
        const CString* photo = isInPhoto ? disc.top.Find("PHOTO") : nullptr;
        if (photo != nullptr && *photo != "PHOTO") tell({.file = *photo});
        for (const char* name : {"PIC", "DRA"}) {
            const CString* found = disc.photo.Find(name);
            if (found != nullptr && *found != name) tell({.file = "PHOTO/" + *found});
        }
    }
}

void TellFileCase(const IntakeDelivery& delivery, const TellSpot& tell)
{
    for (const IntakeDisc& disc : delivery.discs) {
        const CString* found = disc.photo.Find("PHOTO.XML");
        if (found != nullptr && *found != "PHOTO.XML") tell({.file = "PHOTO/" + *found});
    }
    for (const NamedFile& file : delivery.files) {
        if (!file.path.empty() && MibGetFileName(file.path) != file.name)
            tell({.photo = file.photo, .item = file.title});
    }
}

void TellMissingDtd(const IntakeDelivery& delivery, const TellSpot& tell)
{
    if (delivery.xml.dtd.empty()) return;
    const bool isMissing =
        std::any_of(delivery.discs.begin(), delivery.discs.end(), [&](const IntakeDisc& disc) {
            return disc.photo.Find(delivery.xml.dtd) == nullptr;
        });
    if (isMissing) tell({.file = "PHOTO/" + delivery.xml.dtd});
}

void TellDtdVersion(const IntakeDelivery& delivery, const TellSpot& tell)
{
    const CString& dtd = delivery.xml.dtd;
    const CString& version = delivery.xml.dtdVersion;
    const std::size_t at = dtd.find_first_of("0123456789");
    if (at == CString::npos || version.empty() || dtd.substr(at, 2) == version) return;
    tell({.detail = "DTD_version=\"" + version + "\"、" + dtd});
}

void TellEncoding(const IntakeDelivery& delivery, const TellSpot& tell)
{
    constexpr const char* usual[] = {"shift_jis", "utf-8"};
    const CString& encoding = delivery.xml.encoding;
    if (!encoding.empty() && !IsOneOf(encoding, usual)) tell({.detail = encoding});
}

void TellPictureFolderName(const IntakeDelivery& delivery, const TellSpot& tell)
{
    const CString& name = delivery.pictureFolderName;
    if (name != "PHOTO/PIC") {
        tell({.item = "写真フォルダ名", .detail = name.empty() ? "記入なし" : name});
    }
}

void TellDrawingFolderName(const IntakeDelivery& delivery, const TellSpot& tell)
{
    const CString& name = delivery.drawingFolderName;
    if (!name.empty() && name != "PHOTO/DRA") tell({.item = "参考図フォルダ名", .detail = name});
}

void TellUnnamedDrawingFolder(const IntakeDelivery& delivery, const TellSpot& tell)
{
    if (HasDrawings(delivery) && delivery.drawingFolderName.empty())
        tell({.item = "参考図フォルダ名"});
}

void TellNeedlessDrawingFolderName(const IntakeDelivery& delivery, const TellSpot& tell)
{
    const bool isThere = std::any_of(delivery.discs.begin(), delivery.discs.end(),
                                     [](const IntakeDisc& disc) { return disc.drawings.isThere; });
    if (!HasDrawings(delivery) && !isThere && !delivery.drawingFolderName.empty())
        tell({.item = "参考図フォルダ名"});
}

void TellMissingStandard(const IntakeDelivery& delivery, const TellSpot& tell)
{
    if (delivery.standard.empty()) tell({.item = "適用要領基準"});
}

/// Of the form 土木202303-01.
void TellUnknownStandard(const IntakeDelivery& delivery, const TellSpot& tell)
{
    const CString& standard = delivery.standard;
    const std::size_t hyphen = standard.rfind('-');
    const int month = delivery.standardMonth % 100;
    const bool isKnown = delivery.standardMonth > 0 && month >= 1 && month <= 12 &&
                         hyphen != CString::npos && standard.size() - hyphen == 3;
    if (!standard.empty() && !isKnown) tell({.item = "適用要領基準", .detail = standard});
}

void TellOddities(const IntakeDelivery& delivery, XmlOddity::Kind kind, const TellSpot& tell)
{
    for (const XmlOddity& oddity : delivery.xml.oddities) {
        if (oddity.kind == kind) tell({.photo = oddity.photo, .item = oddity.tag});
    }
}

void TellUnreadPhotos(const IntakeDelivery& delivery, const TellSpot& tell)
{
    const int elements = delivery.document.GetReadingCounts().photoElements;
    if (elements > delivery.Count()) {
        tell({.detail = Format("写真情報%d件、読めた写真%d枚", elements, delivery.Count())});
    }
}

/// Tells what is in PIC, or in DRA, and no item names.
void TellStrayFiles(const IntakeDelivery& delivery, bool inDrawings, const TellSpot& tell)
{
    std::set<CString> named;
    for (const NamedFile& file : delivery.files) {
        if (file.isDrawing == inDrawings) named.insert(FoldCase(file.name));
    }
    const CString folderName = inDrawings ? "DRA/" : "PIC/";
    for (const IntakeDisc& disc : delivery.discs) {
        for (const CString& name : (inDrawings ? disc.drawings : disc.pictures).names) {
            const bool isStray = !named.contains(FoldCase(name)) && !IsToldElsewhere(name) &&
                                 !MibIsFolderExist(disc.photoFolder + folderName + name);
            if (isStray) tell({.file = "PHOTO/" + folderName + name});
        }
    }
}

void TellStrayBesideXml(const IntakeDelivery& delivery, const TellSpot& tell)
{
    constexpr const char* meant[] = {".dtd", ".xsl"};
    for (const IntakeDisc& disc : delivery.discs) {
        for (const CString& name : disc.photo.names) {
            const bool isMeant = EqualNoCase(name, "PHOTO.XML") || IsOneOf(MibGetExt(name), meant);
            if (isMeant || IsToldElsewhere(name)) continue;
            if (MibIsFileExist(disc.photoFolder + name)) tell({.file = "PHOTO/" + name});
        }
    }
}

constexpr unsigned all = AllGenerations;
constexpr unsigned since14 = all & ~Generation11;
using enum IntakeGrade;
using enum IntakeNeed;

constexpr IntakeRule rules[] = {
    {"folder-pic-missing", Error, all, AllOwners, Nothing, "写真のフォルダ PIC がありません",
     "PHOTO の下に PIC を作り、写真ファイルを入れて納め直してもらう", TellMissingPictureFolder},
    {"folder-dra-missing", Error, all, AllOwners, Nothing, "参考図のフォルダ DRA がありません",
     "PHOTO の下に DRA を作り、参考図を入れて納め直してもらう", TellMissingDrawingFolder},
    {"folder-deep", Error, all, AllOwners, Nothing, "PIC・DRA の中にさらにフォルダがあります",
     "ファイルを PIC・DRA の直下に置いてもらう", TellDeepFolders},
    {"folder-stray", Warning, all, AllOwners, Nothing, "PHOTO に要領にないフォルダがあります",
     "要るものか受注者に確かめる", TellStrayFolders},
    {"folder-letter-case", Hint, all, AllOwners, Nothing, "フォルダ名に小文字があります",
     "古いディスクの読み方によることもある。元の媒体で確かめる", TellFolderCase},
    {"file-letter-case", Hint, all, AllOwners, Nothing,
     "ファイル名の大文字・小文字が PHOTO.XML や要領と違います",
     "古いディスクの読み方によることもある。元の媒体で確かめる", TellFileCase},
    {"dtd-missing", Warning, all, AllOwners, Nothing, "PHOTO.XML が名指すDTDファイルがありません",
     "要領のDTDを PHOTO に入れてもらう", TellMissingDtd},
    {"dtd-version", Warning, all, AllOwners, Nothing, "DTD_version がDTDファイルの番号と違います",
     "どの要領の版か受注者に確かめる", TellDtdVersion},
    {"xml-encoding", Warning, all, AllOwners, Nothing,
     "PHOTO.XML の文字コードが Shift_JIS でも UTF-8 でもありません",
     "要領の文字コードで作り直してもらう", TellEncoding},
    {"folder-name-pic", Error, since14, AllOwners, Nothing,
     "写真フォルダ名が PHOTO/PIC ではありません", "PHOTO/PIC と記入してもらう",
     TellPictureFolderName},
    {"folder-name-dra", Error, since14, AllOwners, Nothing,
     "参考図フォルダ名が PHOTO/DRA ではありません", "PHOTO/DRA と記入してもらう",
     TellDrawingFolderName},
    {"folder-name-dra-missing", Warning, since14, AllOwners, Nothing,
     "参考図があるのに参考図フォルダ名がありません", "PHOTO/DRA と記入してもらう",
     TellUnnamedDrawingFolder},
    {"folder-name-dra-needless", Hint, since14, AllOwners, Nothing,
     "参考図フォルダ名があるのに参考図も DRA もありません", "参考図の入れ忘れがないか確かめる",
     TellNeedlessDrawingFolderName},
    {"standard-missing", Error, since14, AllOwners, Nothing, "適用要領基準がありません",
     "適用した要領の版を記入してもらう", TellMissingStandard},
    {"standard-unknown", Hint, all, AllOwners, Nothing,
     "適用要領基準が知られた書き方ではありません", "どの要領の版か受注者に確かめる",
     TellUnknownStandard},
    {"element-unknown", Warning, all, AllOwners, Elements,
     "この要領の版にない要素が写真情報にあります", "作成ソフトと要領の版を確かめる",
     [](const IntakeDelivery& d, const TellSpot& t) { TellOddities(d, XmlOddity::Unknown, t); }},
    {"element-repeated", Error, since14, AllOwners, Elements,
     "1つだけのはずの要素が繰り返されています", "どの値が正しいか受注者に確かめる",
     [](const IntakeDelivery& d, const TellSpot& t) { TellOddities(d, XmlOddity::Repeated, t); }},
    {"element-order", Warning, since14, AllOwners, Elements, "要素の並びが要領と違います",
     "作成ソフトを確かめる。値は読めている",
     [](const IntakeDelivery& d, const TellSpot& t) { TellOddities(d, XmlOddity::OutOfOrder, t); }},
    {"element-place", Hint, all, AllOwners, Elements, "要素が要領と違う所にあります",
     "作成ソフトによることがある。値は読めている",
     [](const IntakeDelivery& d, const TellSpot& t) { TellOddities(d, XmlOddity::Misplaced, t); }},
    {"photo-unread", Error, all, AllOwners, Nothing, "写真として読めない写真情報があります",
     "PHOTO.XML を作り直してもらう", TellUnreadPhotos},
    {"stray-photo", Warning, all, AllOwners, Nothing,
     "どの写真も名指さないファイルが PIC にあります",
     "写真情報の書き忘れか、不要なファイルか確かめる",
     [](const IntakeDelivery& d, const TellSpot& t) { TellStrayFiles(d, false, t); }},
    {"stray-drawing", Warning, all, AllOwners, Nothing,
     "どの写真も名指さないファイルが DRA にあります",
     "参考図の書き忘れか、不要なファイルか確かめる",
     [](const IntakeDelivery& d, const TellSpot& t) { TellStrayFiles(d, true, t); }},
    {"stray-beside-xml", Warning, all, AllOwners, Nothing, "PHOTO に要領にないファイルがあります",
     "要るものか受注者に確かめる", TellStrayBesideXml},
    {"stray-system-file", Warning, all, AllOwners, Nothing,
     "パソコンが作る管理ファイルが入っています", "取り除いて納めてもらう", TellSystemFiles},
    {"stray-program", Warning, all, AllOwners, Nothing, "実行できるプログラムが入っています",
     "開かずに、受注者に確かめる", TellPrograms},
};
} // namespace

std::span<const IntakeRule> StructureRules()
{
    return rules;
}
