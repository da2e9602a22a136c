#include "intake/IntakeXmlWalk.h"

#include "items/ToviItemDef.h"
#include "platform/files/TextHead.h"
#include "platform/xml/DoxDocument.h"
#include "platform/xml/DoxIterator.h"
#include "work/ReadingLimit.h"

#include <algorithm>
#include <unordered_map>

namespace
{
constexpr std::size_t headSize = 4096;
constexpr std::string_view photoTag = "写真情報";

/// The value between quotes behind \p word in \p text; empty without one.
CString QuotedBehind(std::string_view text, std::string_view word)
{
    const std::size_t at = text.find(word);
    if (at == std::string_view::npos) return {};
    const std::size_t open = text.find_first_of("\"'", at + word.size());
    if (open == std::string_view::npos) return {};
    const std::size_t close = text.find(text[open], open + 1);
    return close == std::string_view::npos ? CString()
                                           : CString(text.substr(open + 1, close - open - 1));
}

/// Where an element stands by its definition.
struct Place
{
    std::string_view parent;
    int order = 0;
    bool mayRepeat = false;
};

using Places = std::unordered_map<std::string_view, Place>;

/// The places of all elements of a photograph.
Places PlacesIn(const ToviItemDef& def)
{
    Places places;
    std::vector<std::string_view> parents;
    for (int i = 0; i < def.GetCount(); ++i) {
        const Definition& each = def[i];
        const bool mayRepeat = each.count == CountZeroOrMore || each.count == CountOneOrMore;
        const std::string_view parent = parents.empty() ? std::string_view() : parents.back();
        places.emplace(each.title, Place{parent, i, mayRepeat});
        if (each.operation == StepChild) parents.push_back(each.title);
        if (each.operation == StepParent && !parents.empty()) parents.pop_back();
    }
    return places;
}

class PhotoXmlWalk
{
public:
    PhotoXmlWalk(const Places& allPlaces, std::vector<XmlOddity>& found)
        : places(allPlaces), oddities(found)
    {}

    /// Goes through what is in the element of the photograph \p number, on which \p it stands.
    void Walk(DoxIterator it, int number)
    {
        photo = number;
        WalkChildren(it, photoTag);
    }

private:
    void WalkChildren(DoxIterator it, std::string_view parent)
    {
        std::vector<std::string_view> seen;
        int last = 0;
        if (!it.Child()) return;
        do {
            const std::string_view tag = it.TagName();
            const auto found = places.find(tag);
            if (tag == photoTag) continue; // One that was not read is told as such.
            if (found == places.end()) {
                Note(XmlOddity::Unknown, tag);
                continue;
            }
            if (found->second.parent == parent) {
                Judge(found->second, tag, seen, last);
            } else {
                Note(XmlOddity::Misplaced, tag);
            }
            WalkChildren(it, tag);
        } while (it.NextSibling());
    }

    void Judge(const Place& place, std::string_view tag, std::vector<std::string_view>& seen,
               int& last)
    {
        const bool isKnown = std::find(seen.begin(), seen.end(), tag) != seen.end();
        if (isKnown && !place.mayRepeat) {
            Note(XmlOddity::Repeated, tag);
        } else if (place.order < last) {
            Note(XmlOddity::OutOfOrder, tag);
        }
        if (!isKnown) seen.push_back(tag);
        last = std::max(last, place.order);
    }

    void Note(XmlOddity::Kind kind, std::string_view tag)
    {
        oddities.push_back({kind, photo, CString(tag)});
    }

    const Places& places;
    std::vector<XmlOddity>& oddities;
    int photo = 0;
};
} // namespace

IntakeXml WalkPhotoXml(const CString& path, const ToviItemDef& def, int photos)
{
    IntakeXml xml;
    const CString head = ReadTextHead(path, headSize);
    const std::string_view declaration = std::string_view(head).substr(0, head.find("?>"));
    xml.encoding = QuotedBehind(declaration, "encoding");
    xml.dtd = QuotedBehind(head, "SYSTEM");
    xml.dtdVersion = QuotedBehind(head, "DTD_version");
    DoxDocument document;
    document.LimitSize(ReadingLimit::LoadInBytes());
    document.Initiate();
    if (!document.Load(path, false, nullptr)) {
        xml.problem = "PHOTO.XML を読み直せません（" + document.Problem() + "）";
        return xml;
    }
    const Places places = PlacesIn(def);
    PhotoXmlWalk walk(places, xml.oddities);
    DoxIterator it(&document);
    int number = 0;
    if (it.Root() && it.Child()) {
        do {
            if (it.IsTag(photoTag)) walk.Walk(it, number++);
        } while (it.NextSibling());
    }
    if (number != photos) {
        xml.oddities.clear();
        xml.problem = "写真情報が要領と違う所にあり、写真と対応しません";
    }
    return xml;
}
