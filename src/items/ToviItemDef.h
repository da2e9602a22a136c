#pragma once

#include "items/Definition.h"
#include "items/ToviPhotoCtrlVisualSetting.h"
#include "kinds/PhotoXMLType.h"
#include "platform/text/Text.h"

/// The item definitions of one delivery: every element of its kind of PHOTO.XML in document order,
/// as READITEM.XML beside the program lists them. Filled once by Load; a definition index stays
/// valid for the life of the object.
class TOVI_EXPORT ToviItemDef
{
public:
    /// The profile section and entry that hold the kind of the last delivery.
    static constexpr const char* PhotoFileTypeSection_ = "PhotoFileType";
    static constexpr const char* TypeEntry_ = "Type";

    /// Recognises the kind of the PHOTO.XML in the folder \p dataPath for the family \p type and
    /// reads its definitions. Everything but ReadErrNone is a failure that leaves the list empty.
    PhotoXMLReadErr Load(const char* dataPath, PhotoXMLType type);
    PhotoXMLReadErr ReadPhotoDef(const char* dataPath);

    int GetCount() const { return definitions.GetSize(); }
    bool IsEmpty() const { return definitions.IsEmpty(); }
    /// An index outside the list throws InvalidArgument, here and below.
    const Definition& GetDef(int index) const { return definitions[index]; }
    const Definition& operator[](int index) const { return definitions[index]; }
    /// The index of the first definition with exactly this title, or -1.
    int GetIndexFromTitle(const CString& title) const;
    /// The index of the item that is shown as the caption of a photograph, or -1.
    int GetIndexFromEnum(ToviPhotoCtrlVisualSetting::TitleShowType type) const;
    CString GetTitleFromIndex(int index) const { return definitions[index].title; }
    ShowSituation GetShowSituationFromIndex(int index) const { return definitions[index].show; }
    PhotoXMLType GetXMLType() const { return type; }
    /// The delivery's generation has a key-photo flag.
    bool HasKeyPhoto() const { return hasKeyPhoto; }
    /// The kind that was recognised, such as 国交省-20; empty when none was.
    const CString& GetSection() const { return newType; }
    /// The folder above that of PHOTO.XML, where the index file stands.
    const CString& GetParentPath() const { return parentPath; }
    void SetRootPath(const CString& dataPath);
    /// Puts the delivery's index file into \p indexPath, and into \p stylesheetPath the installed
    /// stylesheet that shows it, or the program's folder when there is none for its DTD. Without an
    /// index file, and without a DOCTYPE line of an index in it, the argument stays as it is.
    void GetPathAndName(CString& indexPath, CString& stylesheetPath) const;
    /// True when the delivery is of the same kind as the one opened before it.
    bool TypeIsCorresponding() const { return newType == oldType; }
    /// True as long as no delivery of another kind was opened since, here or in another program.
    bool IsLastType() const;

private:
    bool InitializeData(const char* dataPath, PhotoXMLType family);
    bool Load();
    bool Save(const CString& section);
    bool ReadDef(const CString& section, CArray<Definition>& out);
    CString GetRootTagNamePhoto(const char* dataPath);

    PhotoXMLType type = PhotoXMLMlit;
    CString readItemPath;
    CString parentPath;
    CArray<Definition> definitions;
    CString programPath;
    bool hasKeyPhoto = false;
    CString newType;
    CString oldType;
};
