#include "sample/DeliveryBuilder.h"

#include "platform/text/Cp932.h"
#include "sample/SampleFile.h"
#include "sample/SampleIndex.h"
#include "sample/SamplePictures.h"

#include <algorithm>
#include <stdexcept>

namespace
{
constexpr std::string_view drawingGroup = "付加情報";

const SampleSchema* CheckedSchema(const SampleOptions& options)
{
    const SampleSchema* schema = FindSampleSchema(options.section);
    if (schema == nullptr) throw std::invalid_argument("unknown section " + options.section);
    if (options.photos < 0 || options.drawings < 0 || options.discs < 1) {
        throw std::invalid_argument("the numbers of photographs and drawings must not be negative "
                                    "and there must be a disc");
    }
    return schema;
}

/// Spreads the drawings over the photographs; now and then one gets a second drawing.
std::vector<int> SpreadDrawings(int drawings, int photos)
{
    std::vector<int> owners;
    for (int drawing = 0; photos > 0 && drawing < drawings; ++drawing) {
        const int even = static_cast<int>(static_cast<long long>(drawing) * photos / drawings);
        owners.push_back(drawing % 4 == 1 ? owners.back() : even);
    }
    return owners;
}

/// Where \p title stands among the elements of its group.
auto RankOf(const SampleGroupSchema& group, std::string_view title)
{
    return std::ranges::find(group.elements, title, &SampleElement::name) - group.elements.begin();
}

bool IsDrawingFile(std::string_view title)
{
    constexpr std::string_view titles[] = {"参考図1", "参考図2", "参考図3", "参考図ファイル名"};
    return std::ranges::find(titles, title) != std::end(titles);
}

/// Puts the flags of \p photo behind what is in its 撮影情報.
void MoveFlagsInside(SamplePhoto& photo)
{
    const auto group = [&photo](std::string_view name) {
        return std::ranges::find(photo.groups, name, &SampleGroup::name);
    };
    const auto isFlag = [](const SampleItem& item) {
        return item.title == "代表写真" || item.title == "提出頻度写真";
    };
    const auto inside = group("撮影情報");
    const auto outside = group("写真情報");
    if (inside == photo.groups.end() || outside == photo.groups.end()) return;
    std::ranges::copy_if(outside->items, std::back_inserter(inside->items), isFlag);
    std::erase_if(outside->items, isFlag);
}

std::string_view ExtensionOf(std::string_view name)
{
    const auto dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : name.substr(dot);
}

/// Names that lead somewhere else stand in PHOTO.XML for the tests' sake, but get no file.
bool IsPlainFileName(const CString& name)
{
    return !name.empty() && name != "." && name != ".." && name.find('/') == CString::npos &&
           name.find('\\') == CString::npos;
}
} // namespace

DeliveryBuilder::DeliveryBuilder(SampleOptions theOptions)
    : options(std::move(theOptions)), schema(CheckedSchema(options)),
      work(MakeSampleWork(*schema, options.seed)),
      drawingOwners(SpreadDrawings(options.drawings, options.photos))
{}

DeliveryBuilder& DeliveryBuilder::Set(int photo, std::string_view title, CString value)
{
    const SampleGroupSchema& groupSchema = GroupSchemaOf(title);
    auto& items = GroupOf(Changed(photo), groupSchema).items;
    const auto found = std::ranges::find(items, title, &SampleItem::title);
    if (found == items.end()) return Add(photo, title, std::move(value));
    found->value = std::move(value);
    return *this;
}

DeliveryBuilder& DeliveryBuilder::Add(int photo, std::string_view title, CString value)
{
    const SampleGroupSchema& groupSchema = GroupSchemaOf(title);
    auto& items = GroupOf(Changed(photo), groupSchema).items;
    const auto rank = RankOf(groupSchema, title);
    const auto behind = std::ranges::find_if(
        items, [&](const SampleItem& item) { return RankOf(groupSchema, item.title) > rank; });
    items.insert(behind, {CString(title), std::move(value)});
    return *this;
}

DeliveryBuilder& DeliveryBuilder::Remove(int photo, std::string_view title)
{
    SamplePhoto& sample = Changed(photo);
    std::erase_if(sample.groups, [&](const SampleGroup& group) { return group.name == title; });
    for (SampleGroup& group : sample.groups) {
        std::erase_if(group.items, [&](const SampleItem& item) { return item.title == title; });
    }
    return *this;
}

DeliveryBuilder& DeliveryBuilder::AddDrawing(int photo, std::vector<SampleItem> items)
{
    SamplePhoto& sample = Changed(photo);
    sample.groups.insert(PlaceFor(drawingGroup, sample), {CString(drawingGroup), std::move(items)});
    return *this;
}

DeliveryBuilder& DeliveryBuilder::AddXml(int photo, std::string_view xml)
{
    Changed(photo).extraXml += xml;
    return *this;
}

SamplePhoto DeliveryBuilder::Photo(int photo) const
{
    if (photo < 0 || photo >= options.photos) {
        throw std::invalid_argument("there is no photograph " + std::to_string(photo));
    }
    if (const auto kept = changed.find(photo); kept != changed.end()) return kept->second;
    const auto [from, to] = std::equal_range(drawingOwners.begin(), drawingOwners.end(), photo);
    const auto first = static_cast<int>(from - drawingOwners.begin());
    const auto count = static_cast<int>(to - from);
    return MakeSamplePhoto(*schema, work, options.seed,
                           {photo, options.photos, first, first + count, options.drawings,
                            DiscOf(photo), options.tidy});
}

SamplePhoto& DeliveryBuilder::Changed(int photo)
{
    return changed.try_emplace(photo, Photo(photo)).first->second;
}

const SampleGroupSchema& DeliveryBuilder::GroupSchemaOf(std::string_view title) const
{
    for (const SampleGroupSchema& group : schema->photoGroups) {
        if (RankOf(group, title) < std::ssize(group.elements)) return group;
    }
    throw std::invalid_argument(CString(schema->section) + " has no element " + CString(title));
}

std::vector<SampleGroup>::iterator DeliveryBuilder::PlaceFor(std::string_view name,
                                                             SamplePhoto& photo) const
{
    const auto rank = [this](std::string_view group) {
        return std::ranges::find(schema->photoGroups, group, &SampleGroupSchema::name);
    };
    return std::ranges::find_if(
        photo.groups, [&](const SampleGroup& group) { return rank(group.name) > rank(name); });
}

SampleGroup& DeliveryBuilder::GroupOf(SamplePhoto& photo,
                                      const SampleGroupSchema& groupSchema) const
{
    const auto found = std::ranges::find(photo.groups, groupSchema.name, &SampleGroup::name);
    if (found != photo.groups.end()) return *found;
    return *photo.groups.insert(PlaceFor(groupSchema.name, photo), {CString(groupSchema.name), {}});
}

CString DeliveryBuilder::PhotoXml() const
{
    CString text = PhotoXmlHead();
    for (int photo = 0; photo < options.photos; ++photo) text += PhotoXmlElement(photo);
    return text + PhotoXmlTail();
}

CString DeliveryBuilder::IndexXml(int disc) const
{
    SampleXml xml = NewXml();
    xml.Raw(Declaration());
    WriteIndex(xml, *schema, work, {disc, options.discs});
    return xml.Text();
}

std::vector<std::vector<SampleItem>> DeliveryBuilder::ExpectedItems() const
{
    std::vector<std::vector<SampleItem>> expected(static_cast<std::size_t>(options.photos));
    for (int photo = 0; photo < options.photos; ++photo) {
        auto& items = expected[static_cast<std::size_t>(photo)];
        for (const SampleGroup& group : Photo(photo).groups) {
            const auto& groups = schema->photoGroups;
            const auto known = std::ranges::find(groups, group.name, &SampleGroupSchema::name);
            for (const SampleElement& element : known->elements) {
                const auto before = items.size();
                std::ranges::copy_if(group.items, std::back_inserter(items),
                                     [&](const auto& item) { return item.title == element.name; });
                if (items.size() == before) items.push_back({CString(element.name), {}});
            }
        }
    }
    return expected;
}

SampleXml DeliveryBuilder::NewXml(int depth) const
{
    return SampleXml(options.layout, options.lineEnd, depth);
}

CString DeliveryBuilder::Declaration() const
{
    const bool utf8 = options.encoding == SampleEncoding::Utf8;
    return CString("<?xml version=\"1.0\" encoding=\"") + (utf8 ? "utf-8" : "Shift_JIS") + "\"?>";
}

CString DeliveryBuilder::PhotoXmlHead() const
{
    SampleXml xml = NewXml();
    xml.Raw(Declaration());
    xml.Raw("<!DOCTYPE photodata SYSTEM \"" + CString(schema->photoDtd) + "\">");
    if (!options.prologue.empty()) xml.Raw(options.prologue);
    xml.Open("photodata", "DTD_version=\"" + CString(schema->dtdVersion) + "\"");
    xml.Open("基礎情報");
    xml.Leaf("写真フォルダ名", "PHOTO/PIC");
    if (HasDrawings()) xml.Leaf("参考図フォルダ名", "PHOTO/DRA");
    xml.Leaf("適用要領基準", schema->standard);
    xml.Close("基礎情報");
    if (schema->Find("工事情報") != nullptr) {
        xml.Open("工事情報");
        xml.Leaf("工事名称", work.name);
        xml.Close("工事情報");
    }
    return xml.Text();
}

CString DeliveryBuilder::PhotoXmlElement(int photo) const
{
    SampleXml xml = NewXml(1);
    SamplePhoto sample = Photo(photo);
    if (options.flagsInside) MoveFlagsInside(sample);
    xml.Open("写真情報");
    for (const SampleGroup& group : sample.groups) {
        const bool nested = group.name != "写真情報";
        if (nested) xml.Open(group.name);
        for (const SampleItem& item : group.items) xml.Leaf(item.title, item.value);
        if (nested) xml.Close(group.name);
    }
    if (!sample.extraXml.empty()) xml.Raw(sample.extraXml);
    xml.Close("写真情報");
    return xml.Text();
}

CString DeliveryBuilder::PhotoXmlTail() const
{
    SampleXml xml = NewXml(1);
    xml.Leaf("ソフトメーカ用TAG", "tovi-sample");
    xml.Close("photodata");
    return xml.Text();
}

std::string DeliveryBuilder::Encoded(std::string_view text) const
{
    if (options.encoding == SampleEncoding::Utf8) return std::string(text);
    // As deliveries come: ① and ～ stand in them by their codes.
    const auto bytes = Cp932::Encode(text);
    return bytes ? *bytes : Cp932::EncodeForXml(text);
}

std::string DeliveryBuilder::FileBytes(std::string_view text) const
{
    const bool marked = options.byteOrderMark && options.encoding == SampleEncoding::Utf8;
    return (marked ? "\xEF\xBB\xBF" : "") + Encoded(text);
}

std::string DeliveryBuilder::DtdBytes(const CString& dtd) const
{
    return FileBytes(ReplaceAll(Declaration() + "\n" + dtd, "\n", options.lineEnd));
}

CString DeliveryBuilder::PathOf(const CString& folder, const CString& name) const
{
    return folder + "/" + (options.lowerCaseNames ? FoldCase(name) : name);
}

bool DeliveryBuilder::HasDrawings() const
{
    return !drawingOwners.empty() || std::ranges::any_of(changed, [](const auto& entry) {
        return std::ranges::find(entry.second.groups, drawingGroup, &SampleGroup::name) !=
               entry.second.groups.end();
    });
}

CString DeliveryBuilder::DiscFolder(const CString& folder, int disc) const
{
    return options.discs == 1 ? folder : PathOf(folder, "DISK" + std::to_string(disc));
}

int DeliveryBuilder::DiscOf(int photo) const
{
    return 1 + static_cast<int>(static_cast<long long>(photo) * options.discs /
                                std::max(options.photos, 1));
}

void DeliveryBuilder::WriteFrame(const CString& folder, int disc) const
{
    MakeSampleFolder(PathOf(folder, "PHOTO/PIC"));
    if (HasDrawings()) MakeSampleFolder(PathOf(folder, "PHOTO/DRA"));
    WriteSampleFile(PathOf(folder, "INDEX_C.XML"), FileBytes(IndexXml(disc)));
    WriteSampleFile(PathOf(folder, CString(schema->indexDtd)), DtdBytes(IndexDtdText(*schema)));
    WriteSampleFile(PathOf(folder, "PHOTO/" + CString(schema->photoDtd)),
                    DtdBytes(DtdText("photodata", schema->dtdVersion, schema->elements)));
}

void DeliveryBuilder::Write(const CString& folder, const std::function<void(int)>& progress) const
{
    std::vector<SampleFile> photoXmls;
    const auto append = [&photoXmls](std::string_view bytes) {
        for (SampleFile& photoXml : photoXmls) photoXml.Append(bytes);
    };
    for (int disc = 1; disc <= options.discs; ++disc) {
        const CString discFolder = DiscFolder(folder, disc);
        WriteFrame(discFolder, disc);
        photoXmls.emplace_back(PathOf(discFolder, "PHOTO/PHOTO.XML"));
    }
    append(FileBytes(PhotoXmlHead()));
    for (int photo = 0; photo < options.photos; ++photo) {
        append(Encoded(PhotoXmlElement(photo)));
        if (options.images) WritePictures(DiscFolder(folder, DiscOf(photo)), photo);
        if (progress) progress(photo + 1);
    }
    append(Encoded(PhotoXmlTail()));
    for (SampleFile& photoXml : photoXmls) photoXml.Close();
}

void DeliveryBuilder::WritePictures(const CString& folder, int photo) const
{
    const SamplePhoto sample = Photo(photo);
    const CString name = sample.Value("写真ファイル名");
    if (IsPlainFileName(name)) {
        SampleScene scene = SceneOf(sample, work, options.seed, photo);
        scene.plain = options.plainPictures;
        scene.alwaysExif = options.tidy;
        WriteSampleFile(PathOf(folder, "PHOTO/PIC/" + name),
                        PhotoPicture(scene, ExtensionOf(name)));
    }
    unsigned drawing = 0;
    for (const SampleGroup& group : sample.groups) {
        for (const SampleItem& item : group.items) {
            if (!IsDrawingFile(item.title) || !IsPlainFileName(item.value)) continue;
            const CString title = group.Value("参考図タイトル");
            const auto number = options.seed + static_cast<unsigned>(photo) * 8 + drawing++;
            WriteSampleFile(PathOf(folder, "PHOTO/DRA/" + item.value),
                            DrawingPicture(work, title, number, ExtensionOf(item.value)));
        }
    }
}
