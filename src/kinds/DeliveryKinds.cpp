#include "kinds/DeliveryKinds.h"

#include "platform/files/TextHead.h"

#include <algorithm>
#include <span>

namespace
{
constexpr DeliveryKind mlitKinds[] = {
    {"PHOTO.DTD", "国交省-11", false},  {"PHOTO02.DTD", "国交省-14", false},
    {"PHOTO03.DTD", "国交省-16", true}, {"PHOTO04.DTD", "国交省-18", true},
    {"PHOTO05.DTD", "国交省-20", true},
};

constexpr DeliveryKind maffKinds[] = {
    {"PHOTO02N.DTD", "農水省-15", false},
    {"PHOTO03.DTD", "農水省-17", true},
    {"PHOTO05.DTD", "農水省-23", true},
};

constexpr DeliveryKind nexcoKinds[] = {
    {"PHOTO02.DTD", "NEXCO-14", false},
    {"PHOTO03.DTD", "NEXCO-18", false},
    {"PHOTO04.DTD", "NEXCO-24", false},
};

std::span<const DeliveryKind> KindsOf(PhotoXMLType family)
{
    switch (family) {
    case PhotoXMLMlit:
    case PhotoXMLKowan:
        return mlitKinds;
    case PhotoXMLMaff:
        return maffKinds;
    case PhotoXMLNexco:
        return nexcoKinds;
    }
    return {};
}
} // namespace

const DeliveryKind* FindDeliveryKind(PhotoXMLType family, const CString& doctypeLine)
{
    const std::span<const DeliveryKind> kinds = KindsOf(family);
    const auto found =
        std::find_if(kinds.begin(), kinds.end(), [&doctypeLine](const DeliveryKind& kind) {
            return doctypeLine.find(kind.dtd) != CString::npos;
        });
    return found == kinds.end() ? nullptr : &*found;
}

std::optional<CString> ReadDoctypeLine(const CString& xmlPath)
{
    return FindHeadLine(xmlPath, {"photodata SYSTEM"});
}
