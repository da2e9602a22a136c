#include "items/ToviItemDef.h"

#include "items/ItemDefReader.h"
#include "kinds/DeliveryKinds.h"
#include "kinds/IndexStylesheets.h"
#include "platform/files/MibFile.h"
#include "platform/host/HostServices.h"
#include "work/ListingFailure.h"

#include <algorithm>

PhotoXMLReadErr ToviItemDef::Load(const char* dataPath, PhotoXMLType family)
{
    if (!InitializeData(dataPath, family)) return ReadErrDefinition;
    if (!MibIsFileExist(readItemPath)) return ReadErrNoItemFile;
    return ReadPhotoDef(dataPath);
}

bool ToviItemDef::InitializeData(const char* dataPath, PhotoXMLType family)
{
    type = family;
    definitions.RemoveAll();
    SetRootPath(dataPath);
    programPath = MibProgramPath();
    if (programPath.empty()) return false;
    readItemPath = programPath + "READITEM.XML";
    return true;
}

void ToviItemDef::SetRootPath(const CString& dataPath)
{
    parentPath = MibAbsolutePath(dataPath);
    MibParentDir(parentPath);
}

void ToviItemDef::GetPathAndName(CString& indexPath, CString& stylesheetPath) const
{
    const CString found = FindIndexFile(
        parentPath, [](const CString& pattern) { TellNotListed(pattern, MessageIcon::Error); });
    if (!found.empty()) indexPath = found;
    const CString line = ReadIndexDoctypeLine(indexPath);
    if (line.empty()) return;
    const CString name = FindIndexStylesheet(type, line).path;
    stylesheetPath = name.empty() ? programPath : programPath + stylesheetFolder + name;
}

PhotoXMLReadErr ToviItemDef::ReadPhotoDef(const char* dataPath)
{
    definitions.RemoveAll();
    const CString section = GetRootTagNamePhoto(dataPath);
    if (section.empty()) return ReadErrUnknownPhotoXml;
    return ReadDef(section, definitions) ? ReadErrNone : ReadErrDefinition;
}

CString ToviItemDef::GetRootTagNamePhoto(const char* dataPath)
{
    // A document without a delivery must not find one in the current folder.
    if (*dataPath == '\0') return {};
    CString xmlPath = dataPath;
    MibNormalDir(xmlPath);
    const auto line = ReadDoctypeLine(xmlPath + "PHOTO.XML");
    if (!line) return {};
    Load();
    const DeliveryKind* kind = FindDeliveryKind(type, *line);
    hasKeyPhoto = kind != nullptr && kind->hasKeyPhoto;
    // What was not recognised is remembered too: the next delivery then counts as one of a new
    // kind.
    Save(kind == nullptr ? "" : kind->section);
    return newType;
}

bool ToviItemDef::Load()
{
    const ProfileStore* profile = GetHostServices().profile;
    if (profile == nullptr) return false;
    oldType = profile->GetProfileString(PhotoFileTypeSection_, TypeEntry_, "");
    return true;
}

bool ToviItemDef::Save(const CString& section)
{
    newType = section;
    ProfileStore* profile = GetHostServices().profile;
    return profile != nullptr &&
           profile->WriteProfileString(PhotoFileTypeSection_, TypeEntry_, section);
}

bool ToviItemDef::IsLastType() const
{
    const ProfileStore* profile = GetHostServices().profile;
    return profile != nullptr &&
           profile->GetProfileString(PhotoFileTypeSection_, TypeEntry_, "") == newType;
}

bool ToviItemDef::ReadDef(const CString& section, CArray<Definition>& out)
{
    return ReadItemDefinitions(readItemPath, section, out);
}

int ToviItemDef::GetIndexFromTitle(const CString& title) const
{
    const auto found =
        std::find_if(definitions.begin(), definitions.end(),
                     [&title](const Definition& definition) { return definition.title == title; });
    return found == definitions.end() ? -1 : static_cast<int>(found - definitions.begin());
}

int ToviItemDef::GetIndexFromEnum(ToviPhotoCtrlVisualSetting::TitleShowType show) const
{
    switch (show) {
    case ToviPhotoCtrlVisualSetting::TitleJapaneseFileName:
        return GetIndexFromTitle("写真ファイル日本語名");
    case ToviPhotoCtrlVisualSetting::TitlePhotoTitle:
        return GetIndexFromTitle("写真タイトル");
    case ToviPhotoCtrlVisualSetting::TitleFileName:
        break;
    }
    return GetIndexFromTitle("写真ファイル名");
}
