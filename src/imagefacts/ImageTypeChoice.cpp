#include "imagefacts/ImageTypeChoice.h"

#include "imagefacts/ToviJacicImageChecker.h"

#include <algorithm>
#include <cstdlib>

namespace
{
constexpr std::size_t longestText = 19;
constexpr int typeCount = 3;
constexpr long long lowByte = 0xFF;

bool IsOffered(ToviImageCheckCommon::CameraType type)
{
    return type != ToviImageCheckCommon::TypeBlackboard || ToviJacicImageChecker().IsEnableDLL();
}
} // namespace

CWordArray ParseEditCheckTypes(std::string_view text)
{
    text = text.substr(0, longestText);
    CWordArray types;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(','), text.size());
        const CString piece(text.substr(0, end));
        const long long number = std::strtoll(piece.c_str(), nullptr, 10);
        if (!piece.empty()) types.Add(static_cast<unsigned short>(number & lowByte));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return types;
}

bool IsEditCheckTypes(const CString& text)
{
    const CWordArray types = ParseEditCheckTypes(text);
    const bool known = std::all_of(types.begin(), types.end(), [](unsigned short type) {
        return type <= ToviImageCheckCommon::TypeRicohG900;
    });
    return known && !text.empty() && EditCheckTypesText(types) == text;
}

CString EditCheckTypesText(const CWordArray& types)
{
    CString text;
    for (const unsigned short type : types) {
        if (!text.empty()) text += ',';
        text += std::to_string(type);
    }
    return text;
}

std::vector<ImageTypeRow> ImageTypeRows(const CWordArray& chosen)
{
    std::vector<ImageTypeRow> rows;
    for (int index = 0; index < typeCount; ++index) {
        const auto type = ToviImageCheckCommon::QueryCameraType(index);
        if (!IsOffered(type)) continue;
        const bool ticked = std::find(chosen.begin(), chosen.end(), type) != chosen.end();
        rows.push_back({type, ToviImageCheckCommon::QueryCameraName(type), ticked});
    }
    return rows;
}

CWordArray TickedTypes(const std::vector<ImageTypeRow>& rows)
{
    CWordArray types;
    for (const ImageTypeRow& row : rows) {
        if (row.ticked) types.Add(static_cast<unsigned short>(row.type));
    }
    return types;
}

CString ImageTypeDescription(const ImageTypeRow* selected)
{
    if (selected == nullptr) return "リストで選択したタイプの説明を表示します。";
    if (selected->type == ToviImageCheckCommon::TypeRicohG800) {
        return "RICOH社デジタルカメラの「画像加工検知機能」を利用して撮影した画像の加工判定を行いま"
               "す。";
    }
    return "改ざん検知機能を有したソフトウェアまたはアプリを利用して撮影した画像の加工判定を行いま"
           "す"
           "。";
}
