// What is loaded of a PHOTO.XML that isn't as its standard says: every photograph, and every value
// that one holds.

#include "items/ToviItemDef.h"
#include "photos/ToviPhoto.h"
#include "photos/ToviPhotoArray.h"
#include "platform/text/Cp932.h"
#include "sample/SampleRandom.h"
#include "support/OpenedSample.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace
{
/// The lines of a PHOTO.XML: each is a whole leaf, or the begin tag or end tag of a group.
using Lines = std::vector<CString>;
/// For each photograph its values with their titles, in the order of texts.
using Values = std::vector<std::vector<SampleItem>>;

const CString photoBegin = "<写真情報>";
const CString photoEnd = "</写真情報>";
const CString emptyPhoto = "<写真情報/>";

bool IsEnd(const CString& line)
{
    return line.starts_with("</");
}

bool IsBegin(const CString& line)
{
    return line.starts_with("<") && !IsEnd(line) && line.find('/') == CString::npos;
}

/// A PHOTO.XML that can be damaged line by line.
class Damaged
{
public:
    Damaged(const DeliveryBuilder& builder, unsigned seed)
        : schema(builder.Schema()), random(seed, SamplePart::Work)
    {
        const CString text = builder.PhotoXml();
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = text.find("\r\n", at);
            lines.push_back(text.substr(at, end - at));
            at = end + 2;
        }
        // Behind the declaration, the DOCTYPE and the root's begin.
        first = 3;
    }

    void Damage()
    {
        const int kind = random.Below(3);
        if (kind == 0) Empty();
        if (kind == 1) Stray();
        if (kind == 2) Move();
    }

    CString Text() const
    {
        CString text;
        for (const CString& line : lines) text += line + "\n";
        return text;
    }

    /// What is in the photographs, read line by line.
    Values Inside() const
    {
        Values values;
        bool isInside = false;
        for (const CString& line : lines) {
            if (line == photoBegin || line == emptyPhoto) values.emplace_back();
            isInside = (isInside || line == photoBegin) && line != photoEnd;
            const std::size_t close = line.find("</");
            if (!isInside || close == 0 || close == CString::npos) continue;
            const std::size_t tagEnd = line.find('>');
            const CString title = line.substr(1, tagEnd - 1);
            CString value = line.substr(tagEnd + 1, close - tagEnd - 1);
            for (const auto& [escaped, plain] :
                 {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}})
                value = ReplaceAll(value, escaped, plain);
            if (schema.Find(title) != nullptr && !value.empty())
                values.back().push_back({title, value});
        }
        return values;
    }

private:
    std::size_t Below(std::size_t count)
    {
        return static_cast<std::size_t>(random.Below(static_cast<int>(count)));
    }
    /// A line behind the root's begin that \p wanted is true for.
    template <class Wanted>
    std::size_t Pick(const Wanted& wanted)
    {
        std::size_t at = 0;
        do {
            at = first + Below(lines.size() - first - 1);
        } while (!wanted(lines[at]));
        return at;
    }
    /// The line behind the element that begins at \p at.
    std::size_t Behind(std::size_t at) const
    {
        int open = 0;
        do {
            open += IsBegin(lines[at]) ? 1 : IsEnd(lines[at]) ? -1 : 0;
            ++at;
        } while (open > 0);
        return at;
    }
    Lines::iterator Line(std::size_t at) { return lines.begin() + static_cast<std::ptrdiff_t>(at); }

    /// Takes everything out of a group, or of a photograph.
    void Empty()
    {
        const std::size_t at = Pick(IsBegin);
        lines.erase(Line(at + 1), Line(Behind(at) - 1));
        if (random.Chance(50)) return;
        lines.erase(Line(at + 1));
        lines[at].insert(lines[at].size() - 1, "/");
    }
    /// Puts an element in that the standard doesn't know.
    void Stray()
    {
        const Lines strays[] = {{"<知らない要素>x</知らない要素>"},
                                {"<写真タイトル>迷子</写真タイトル>"},
                                {"<知らない要素>", "<工種>迷子</工種>", "</知らない要素>"}};
        const Lines& stray = random.Pick(strays);
        lines.insert(Line(first + Below(lines.size() - first)), stray.begin(), stray.end());
    }

    /// Moves a value to another place in its photograph.
    void Move()
    {
        const std::size_t at =
            Pick([](const CString& line) { return !IsEnd(line) && !IsBegin(line); });
        const auto begin = std::find(std::reverse_iterator(Line(at)), lines.rend(), photoBegin);
        if (begin == lines.rend()) return;
        const auto from = static_cast<std::size_t>(lines.rend() - begin);
        const auto to = static_cast<std::size_t>(std::find(begin.base(), lines.end(), photoEnd) -
                                                 lines.begin());
        if (at >= to) return;
        const CString leaf = lines[at];
        lines.erase(Line(at));
        lines.insert(Line(from + Below(to - from)), leaf);
    }

    const SampleSchema& schema;
    SampleRandom random;
    Lines lines;
    std::size_t first;
};

Values Loaded(const CString& folder, PhotoXMLType family, ReadingCounts& counts)
{
    ToviEnouDataFactory factory;
    const std::unique_ptr<ToviData> document(
        factory.Create(nullptr, folder.c_str(), family, nullptr, nullptr));
    if (!document) return {};
    counts = document->GetReadingCounts();
    Values values;
    for (const ToviPhoto* photo : *document->GetPhotoDataArray()) {
        values.emplace_back();
        for (const ToviItem& item : photo->GetItems()) {
            if (item.GetValue().empty()) continue;
            values.back().push_back(
                {document->GetItemDef()->GetTitleFromIndex(item.GetDefIndex()), item.GetValue()});
        }
    }
    return values;
}

Values Sorted(Values values)
{
    for (auto& photo : values)
        std::ranges::sort(photo, {},
                          [](const SampleItem& item) { return std::pair(item.title, item.value); });
    return values;
}

TEST(Damaged, LosesNoPhotographAndNoValue)
{
    const TestHost services;
    const TempFolder temp;
    unsigned seed = 0;
    int adopted = 0;
    for (const SampleSchema& schema : SampleSchemas()) {
        const auto family = schema.family == SampleFamily::Mlit   ? PhotoXMLMlit
                            : schema.family == SampleFamily::Maff ? PhotoXMLMaff
                                                                  : PhotoXMLNexco;
        for (int i = 0; i < 100; ++i) {
            const DeliveryBuilder builder({.section = CString(schema.section),
                                           .photos = 6,
                                           .drawings = 9,
                                           .encoding = SampleEncoding::Utf8,
                                           .images = false,
                                           .seed = ++seed,
                                           .layout = SampleLayout::Flat});
            Damaged damaged(builder, seed);
            for (unsigned damages = 0; damages <= seed % 3; ++damages) damaged.Damage();
            temp.Write("PHOTO.XML", damaged.Text());
            ReadingCounts counts;
            const Values loaded = Loaded(temp.Path(), family, counts);
            ASSERT_EQ(Sorted(loaded), Sorted(damaged.Inside()))
                << schema.section << " seed " << seed << "\n"
                << damaged.Text();
            EXPECT_EQ(counts.photoElements, static_cast<int>(loaded.size()));
            adopted += counts.adoptedValues;
        }
    }
    EXPECT_GT(adopted, 1000);
}

TEST(Damaged, TellsOfPhotographsThatAreNotLoaded)
{
    const TestHost services;
    const TempFolder temp;
    const CString doctype = "<!DOCTYPE photodata SYSTEM \"PHOTO05.DTD\">\n";
    temp.Write("PHOTO.XML", doctype +
                                "<photodata><基礎情報/><写真情報/><x><写真情報/></x><写真情報>"
                                "<写真情報/></写真情報><x><y/><写真情報/></x></photodata>");
    ReadingCounts counts;
    EXPECT_EQ(Loaded(temp.Path(), PhotoXMLMlit, counts).size(), 2u);
    EXPECT_EQ(counts.photoElements, 5);
}
} // namespace
