#include "loading/DeliveryLocation.h"

#include "kinds/DeliveryKinds.h"
#include "kinds/IndexStylesheets.h"
#include "platform/files/CaseFallback.h"
#include "platform/files/MibFile.h"
#include "platform/files/TextHead.h"
#include "work/ReadingLimit.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace
{
constexpr PhotoXMLType families[] = {PhotoXMLMlit, PhotoXMLKowan, PhotoXMLMaff, PhotoXMLNexco};
constexpr std::size_t headOfFile = std::size_t{256} << 10;

struct Sign
{
    std::string_view word;
    PhotoXMLType family;
};

constexpr Sign indexDtds[] = {
    {"INDEC02N", PhotoXMLMaff}, {"INDED02N", PhotoXMLMaff}, {"PHOT_JH", PhotoXMLNexco}};
constexpr Sign standards[] = {{"土木", PhotoXMLMlit},  {"農", PhotoXMLMaff},
                              {"港", PhotoXMLKowan},   {"NEXCO", PhotoXMLNexco},
                              {"高速", PhotoXMLNexco}, {"JH", PhotoXMLNexco}};
constexpr Sign clients[] = {{"農林水産省", PhotoXMLMaff},
                            {"農政局", PhotoXMLMaff},
                            {"高速道路株式会社", PhotoXMLNexco},
                            {"港湾", PhotoXMLKowan}};

template <std::size_t count>
std::optional<PhotoXMLType> FindSign(const Sign (&signs)[count], std::string_view text)
{
    for (const Sign& sign : signs) {
        if (text.find(sign.word) != std::string_view::npos) return sign.family;
    }
    return std::nullopt;
}

/// The text of the first element \p tag in \p xml; empty without one.
std::string_view ElementText(std::string_view xml, const CString& tag)
{
    const std::size_t open = xml.find("<" + tag + ">");
    if (open == std::string_view::npos) return {};
    const std::string_view rest = xml.substr(open + tag.size() + 2);
    return rest.substr(0, rest.find('<'));
}

bool HoldsPhotoXml(const CString& folder)
{
    return MibIsFileExist(folder + "PHOTO.XML");
}

/// The number of the disc whose folder has the path \p wrapper: 2 for DISK2; 0 when it is none.
int DiscNumber(const CString& wrapper)
{
    constexpr std::string_view word = "disk";
    const CString name = FoldCase(MibGetFileName(wrapper));
    const char* const end = name.data() + name.size();
    int number = 0;
    if (!name.starts_with(word)) return 0;
    const auto [last, error] = std::from_chars(name.data() + word.size(), end, number);
    return error == std::errc() && last == end ? number : 0;
}

bool IsOfOneDelivery(const CString& photoFolder, const CString& other)
{
    return MibHaveSameBytes(photoFolder + "PHOTO.XML", other + "PHOTO.XML",
                            ReadingLimit::LoadInBytes());
}

/// The folders of PHOTO.XML in the wrapper folders of \p folder, one for each delivery.
CStringArray FoldersInWrappers(const CString& folder)
{
    std::map<int, CString> discs;
    CStringArray found;
    for (const CString& wrapper : MibFileFind(folder, "*")) {
        CString photoFolder = wrapper + "/PHOTO/";
        if (!HoldsPhotoXml(photoFolder)) continue;
        const int number = DiscNumber(wrapper);
        const bool isDisc = number > 0 && discs.try_emplace(number, photoFolder).second;
        if (!isDisc) found.Add(std::move(photoFolder));
    }
    CStringArray deliveries;
    for (const auto& [number, photoFolder] : discs) {
        const bool isKnown =
            std::any_of(deliveries.begin(), deliveries.end(),
                        [&](const CString& first) { return IsOfOneDelivery(first, photoFolder); });
        if (!isKnown) deliveries.Add(photoFolder);
    }
    for (CString& photoFolder : found) deliveries.Add(std::move(photoFolder));
    return deliveries;
}

CStringArray FoldersInFolder(CString folder)
{
    MibNormalDir(folder);
    for (const CString& near : {folder, folder + "PHOTO/"}) {
        if (HoldsPhotoXml(near)) return {near};
    }
    return FoldersInWrappers(folder);
}

CStringArray FoldersOfFile(const CString& path)
{
    CString folder = path;
    MibParentDir(folder);
    const CString name = FoldCase(MibGetFileName(path));
    if (name == "photo.xml") {
        // Beside another one, whose name differs in letter case only, it would not be the one read.
        const bool isRead = ExistingPath(folder + "PHOTO.XML") == ExistingPath(path);
        return isRead ? CStringArray{folder} : CStringArray();
    }
    const bool isIndex = name.starts_with("index_") || name.starts_with("photo_");
    if (!isIndex || !name.ends_with(".xml")) return {};
    for (const CString& near : {folder + "PHOTO/", folder}) {
        if (HoldsPhotoXml(near)) return {near};
    }
    return {};
}

/// The head of the last index file above \p photoFolder, or empty.
CString ReadIndexHead(const CString& photoFolder)
{
    CString above = MibAbsolutePath(photoFolder);
    MibParentDir(above);
    return ReadTextHead(FindIndexFile(above), headOfFile);
}

std::optional<PhotoXMLType> FamilyToldBy(const CString& photoXml, const CString& index)
{
    if (const auto family = FindSign(indexDtds, index)) return family;
    for (const CString& xml : {photoXml, index}) {
        if (const auto family = FindSign(standards, ElementText(xml, "適用要領基準")))
            return family;
    }
    return FindSign(clients, index);
}
} // namespace

CStringArray FindPhotoFolders(const CString& path)
{
    // The index file is looked for above the folder, which a relative path may not tell.
    CString folder = MibAbsolutePath(path);
    return MibIsFileExist(folder) ? FoldersOfFile(folder) : FoldersInFolder(std::move(folder));
}

std::map<int, CString> FindDiscs(const CString& photoFolder)
{
    CString wrapper = MibAbsolutePath(photoFolder);
    MibParentDir(wrapper);
    CString above = wrapper;
    MibParentDir(above);
    wrapper.pop_back();
    std::map<int, CString> discs;
    const int own = DiscNumber(wrapper);
    if (own == 0) return discs;
    discs.emplace(own, photoFolder);
    for (const CString& beside : MibFileFind(above, "DISK*")) {
        const int number = DiscNumber(beside);
        const CString other = beside + "/PHOTO/";
        const bool isNew = number > 0 && !discs.contains(number) && HoldsPhotoXml(other);
        if (isNew && IsOfOneDelivery(photoFolder, other)) discs.emplace(number, other);
    }
    return discs;
}

PhotoXMLType GuessFamily(const CString& photoFolder)
{
    CString xmlPath = photoFolder;
    MibNormalDir(xmlPath);
    xmlPath += "PHOTO.XML";
    const CString line = ReadDoctypeLine(xmlPath).value_or("");
    std::vector<PhotoXMLType> candidates;
    std::copy_if(
        std::begin(families), std::end(families), std::back_inserter(candidates),
        [&line](PhotoXMLType family) { return FindDeliveryKind(family, line) != nullptr; });
    if (candidates.empty()) return PhotoXMLMlit;
    if (candidates.size() == 1) return candidates.front();
    const auto told = FamilyToldBy(ReadTextHead(xmlPath, headOfFile), ReadIndexHead(photoFolder));
    const bool possible =
        told && std::find(candidates.begin(), candidates.end(), *told) != candidates.end();
    return possible ? *told : PhotoXMLMlit;
}
