#pragma once

#include "sample/SamplePhoto.h"
#include "sample/SampleXml.h"

#include <functional>
#include <map>
#include <vector>

enum class SampleEncoding
{
    ShiftJis,
    Utf8
};

struct SampleOptions
{
    /// One of the eleven kinds, see SampleSchemas().
    CString section = "国交省-20";
    int photos = 4;
    int drawings = 3;
    SampleEncoding encoding = SampleEncoding::ShiftJis;
    /// Whether PIC and DRA get their files; the folders are made in any case.
    bool images = true;
    unsigned seed = 1;
    /// With more than one the delivery is spread over the folders DISK1, DISK2 and so on: the
    /// pictures lie on one of them each, in the order of the photographs, and all the rest on every
    /// one.
    int discs = 1;
    /// Folders and files are named in lower case on the disk; the XML files name them as ever.
    bool lowerCaseNames = false;
    SampleLayout layout = SampleLayout::Indented;
    CString lineEnd = "\r\n";
    /// Puts one in front of UTF-8 files.
    bool byteOrderMark = false;
    /// 代表写真 and 提出頻度写真 stand inside 撮影情報, as one family of writers has them. A reader
    /// must give the same items all the same.
    bool flagsInside = false;
    /// Nothing that a checker could find: no item is left out, no character stands outside of what
    /// the standards allow, and every picture has its Exif data.
    bool tidy = false;
    /// The photographs show one colour each, which takes a tenth of the time.
    bool plainPictures = false;
    /// XML text behind the DOCTYPE of PHOTO.XML: a style sheet line, a comment.
    CString prologue = {};
};

/// Makes sample deliveries: the index file and the folder PHOTO with PHOTO.XML, its DTD, PIC and
/// DRA.
///
/// The same options always give the same bytes. Photographs are counted from 0 and made when they
/// are asked for, so that a large delivery takes no memory; only changed ones are kept. What
/// doesn't exist (a photograph, an element of this kind) throws std::invalid_argument.
///
///     DeliveryBuilder delivery({.section = "NEXCO-24", .photos = 10, .images = false});
///     delivery.Set(3, "写真タイトル", "着手前").Remove(4, "撮影箇所");
///     delivery.Write(folder);
class DeliveryBuilder
{
public:
    /// Throws std::invalid_argument for an unknown section or negative numbers.
    explicit DeliveryBuilder(SampleOptions theOptions = {});

    /// Gives the photograph's element \p title the text \p value: its first occurrence, which is
    /// put at its place when it is missing, with its group if need be.
    DeliveryBuilder& Set(int photo, std::string_view title, CString value);
    /// Adds one more element \p title behind those that are there.
    DeliveryBuilder& Add(int photo, std::string_view title, CString value);
    /// Takes all elements \p title out; a group \p title goes with what is in it.
    DeliveryBuilder& Remove(int photo, std::string_view title);
    /// Adds a group 付加情報 with \p items behind those that are there.
    DeliveryBuilder& AddDrawing(int photo, std::vector<SampleItem> items);
    /// Puts XML text in front of the photograph's end tag. ExpectedItems() doesn't know it.
    DeliveryBuilder& AddXml(int photo, std::string_view xml);

    SamplePhoto Photo(int photo) const;
    const SampleWork& Work() const { return work; }
    const SampleSchema& Schema() const { return *schema; }

    /// The text of PHOTO.XML, in UTF-8 whatever encoding it declares.
    CString PhotoXml() const;
    /// The text of INDEX_C.XML of disc \p disc, counted from 1, likewise.
    CString IndexXml(int disc = 1) const;

    /// For each photograph what a reader must give: its elements in the order of the file, groups
    /// left out. An element that is missing in a group that is there stands at its place with no
    /// text.
    std::vector<std::vector<SampleItem>> ExpectedItems() const;

    /// Writes all into \p folder, which is made if need be, and calls \p progress (may be empty)
    /// with the number of the photographs that are done. Throws std::runtime_error with a sentence
    /// that names the file when something can't be written.
    void Write(const CString& folder, const std::function<void(int)>& progress = {}) const;

    /// Where Write puts the file or folder \p name (as "PHOTO/PIC") of the delivery \p folder,
    /// which is on one disc.
    CString PathOf(const CString& folder, const CString& name) const;
    /// The folder of disc \p disc, counted from 1, in \p folder; itself when there is only one.
    CString DiscFolder(const CString& folder, int disc) const;
    /// The disc, counted from 1, that the pictures of \p photo lie on.
    int DiscOf(int photo) const;

private:
    bool HasDrawings() const;
    SamplePhoto& Changed(int photo);
    const SampleGroupSchema& GroupSchemaOf(std::string_view title) const;
    /// Where a group \p name has to be put, behind others of that name.
    std::vector<SampleGroup>::iterator PlaceFor(std::string_view name, SamplePhoto& photo) const;
    /// The first group of \p groupSchema, put at its place when it is missing.
    SampleGroup& GroupOf(SamplePhoto& photo, const SampleGroupSchema& groupSchema) const;

    SampleXml NewXml(int depth = 0) const;
    CString Declaration() const;
    CString PhotoXmlHead() const;
    CString PhotoXmlElement(int photo) const;
    CString PhotoXmlTail() const;
    /// The bytes of a file that begins with \p text, in the encoding of the delivery.
    std::string FileBytes(std::string_view text) const;
    std::string DtdBytes(const CString& dtd) const;
    std::string Encoded(std::string_view text) const;
    /// All files of one disc but PHOTO.XML and the pictures.
    void WriteFrame(const CString& folder, int disc) const;
    void WritePictures(const CString& folder, int photo) const;

    SampleOptions options;
    const SampleSchema* schema;
    SampleWork work;
    /// The photograph of each drawing, in ascending order.
    std::vector<int> drawingOwners;
    std::map<int, SamplePhoto> changed;
};
