#include "loading/DeliveryLocation.h"

#include "loading/DeliveryKinds.h"
#include "loading/IndexStylesheets.h"
#include "platform/MibFile.h"
#include "platform/TextHead.h"

#include <algorithm>
#include <optional>
#include <string_view>
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

CString FindPhotoFolder(const CString& path)
{
    const auto holdsPhotoXml = [](const CString& folder) {
        return MibIsFileExist(folder + "PHOTO.XML");
    };
    // The index file is looked for above the folder, which a relative path may not tell.
    CString folder = MibAbsolutePath(path);
    MibNormalDir(folder);
    if (holdsPhotoXml(folder)) return folder;
    if (holdsPhotoXml(folder + "PHOTO/")) return folder + "PHOTO/";
    for (const CString& wrapper : MibFileFind(folder, "*")) {
        if (holdsPhotoXml(wrapper + "/PHOTO/")) return wrapper + "/PHOTO/";
    }
    return {};
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
