#pragma once

#include "delivery/DeliveryOpening.h"
#include "intake/Days.h"
#include "photos/ItemColumns.h"
#include "platform/exif/ExifEvidence.h"
#include "platform/pictures/PictureExamination.h"

#include <array>
#include <functional>
#include <unordered_map>

/// Whose demands a delivery has to meet, as bits.
enum IntakeOwner : unsigned
{
    OwnerMlit = 1,
    OwnerKowan = 2,
    OwnerMaff = 4,
    OwnerNexco = 8,
    AllOwners = 15
};

/// The generations of the standards, as bits; each family has some of them under its own numbers.
enum IntakeGeneration : unsigned
{
    Generation11 = 1,
    Generation14 = 2,
    Generation16 = 4,
    Generation18 = 8,
    Generation20 = 16,
    AllGenerations = 31
};

/// The items that the built-in rules know.
enum class IntakeItem
{
    Serial,
    PhotoName,
    Media,
    Class,
    Category,
    WorkType,
    Kind,
    Detail,
    Title,
    Place,
    Date,
    KeyPhoto,
    Frequency,
    ControlValue,
    Count
};

const char* TitleOf(IntakeItem item);

/// The first values of a photograph under these items, those of absent ones empty.
struct IntakePhoto
{
    std::array<std::string_view, static_cast<std::size_t>(IntakeItem::Count)> values;

    std::string_view operator[](IntakeItem item) const
    {
        return values[static_cast<std::size_t>(item)];
    }
    /// The number in メディア番号; -1 when there is none.
    int media = -1;
};

/// What a folder holds.
struct IntakeFolder
{
    bool isThere = false;
    /// Of files and folders, as they are written.
    CStringArray names;
    /// The same by their names with folded letter case.
    std::unordered_map<CString, CString> byFolded;

    /// The name as it is written of what is called \p name in any letter case; null without it.
    const CString* Find(const CString& name) const;
};

/// One of the discs, or the one folder, that the delivery was found on.
struct IntakeDisc
{
    /// What the name of its folder or else its index file says; 0 when neither does.
    int number = 0;
    /// End in a path separator.
    CString root;
    CString photoFolder;
    IntakeFolder top;
    IntakeFolder photo;
    IntakeFolder pictures;
    IntakeFolder drawings;
};

/// What the index file of a disc says.
struct IntakeIndex
{
    /// Of the disc with this place among the discs.
    std::size_t disc = 0;
    CString name;
    CString dtd;
    bool isReadable = false;
    std::optional<int> mediaNumber;
    std::optional<int> mediaCount;
    CString photoFolder;
    CString workTitle;
    CString firstDay;
    CString lastDay;
};

/// An element of PHOTO.XML that doesn't stand as the standard says.
struct XmlOddity
{
    enum Kind
    {
        Unknown,
        Repeated,
        Misplaced,
        OutOfOrder
    };
    Kind kind;
    /// The photo index.
    int photo;
    CString tag;
};

/// What PHOTO.XML is as a file.
struct IntakeXml
{
    /// Why its elements could not be gone through; empty when they were.
    CString problem;
    CString encoding;
    CString dtd;
    CString dtdVersion;
    std::vector<XmlOddity> oddities;
};

/// A file that an item of a photograph names.
struct NamedFile
{
    enum Place
    {
        There,
        Missing,
        /// On a disc that isn't at hand.
        OnAbsentDisc,
        /// On a disc that メディア番号 doesn't tell.
        OnOtherDisc
    };

    int photo = 0;
    bool isDrawing = false;
    CString title;
    CString name;
    Place place = Missing;
    CString path = {};
    /// Leads out of the delivery.
    bool leadsOutside = false;
    PictureExamination picture = {};
    ExifEvidence exif = {};
};

/// A delivery as the rules of the intake check look at it.
struct TOVI_EXPORT IntakeDelivery
{
    /// Gathers what the document and the folders tell at once; \p owner is one bit.
    IntakeDelivery(const OpenedDelivery& opened, IntakeOwner owner, Day today);
    IntakeDelivery(const IntakeDelivery&) = delete;
    IntakeDelivery& operator=(const IntakeDelivery&) = delete;

    ToviData& document;
    const ToviItemDef& def;
    IntakeOwner owner;
    unsigned generation = AllGenerations;
    Day today;
    ItemColumns columns;
    std::vector<IntakePhoto> photos;
    /// 適用要領基準, and the year and month in it, as 202303; 0 when it has none.
    CString standard;
    int standardMonth = 0;
    CString pictureFolderName;
    CString drawingFolderName;
    std::vector<IntakeDisc> discs;
    std::vector<IntakeIndex> indexes;
    IntakeXml xml;
    std::vector<NamedFile> files;
    bool filesExamined = false;

    int Count() const { return static_cast<int>(photos.size()); }
    /// 工期 as the first index file tells it; nothing without both days.
    std::optional<std::pair<Day, Day>> Period() const;
    bool Has(IntakeItem item) const;
    /// メディア総枚数; 0 when no index file tells it.
    int MediaCount() const;
};

/// Reads all files that are there once, each whole, on all cores, in the order of their discs and
/// names. \p tell hears how many of them are done; false from it ends the work, and this too.
TOVI_EXPORT bool ExamineFiles(IntakeDelivery& delivery,
                              const std::function<bool(int done, int all)>& tell);

/// True when \p path leads, links followed, into one of the folders of \p delivery.
bool IsReadable(const IntakeDelivery& delivery, const CString& path);

/// The owner for a family.
TOVI_EXPORT IntakeOwner OwnerOf(PhotoXMLType family);
