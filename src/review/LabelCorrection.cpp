#include "review/LabelCorrection.h"

#include "photos/ToviPhotoArray.h"
#include "platform/host/HostServices.h"

namespace
{
/// "2,765枚"
CString Photos(int count)
{
    constexpr int group = 3;
    CString text = std::to_string(count);
    for (int place = static_cast<int>(text.size()) - group; place > 0; place -= group) {
        text.insert(static_cast<std::size_t>(place), ",");
    }
    return text + "枚";
}

CString OfAll(const CorrectionScope& scope)
{
    return "対象 " + Photos(scope.photos) + "、うち ";
}
} // namespace

CorrectionScope ScopeOf(const ToviPhotoArray& photos, std::span<const int> indexes)
{
    CorrectionScope scope;
    for (const int index : indexes) {
        const ToviPhoto& photo = *photos[index];
        ++scope.photos;
        if (photo.HasNGLabel()) {
            ++scope.ng;
        } else if (photo.IsOK()) {
            ++scope.ok;
        }
        if (LabelSetOf(photo).any() || !photo.GetComment().empty()) ++scope.marked;
    }
    return scope;
}

CString PasteOkConsequence(const CorrectionScope& scope)
{
    CString text =
        OfAll(scope) + Photos(scope.photos - scope.ng - scope.ok) + "に新しくOKを貼ります。";
    if (scope.ng > 0) text += "NGの " + Photos(scope.ng) + "は変更しません。";
    return text;
}

CString RemoveChecksConsequence(const CorrectionScope& scope)
{
    return OfAll(scope) + Photos(scope.ok + scope.ng) + "（OK " + Photos(scope.ok) + "、NG " +
           Photos(scope.ng) + "）が未検査に戻ります。";
}

CString RemoveAllConsequence(const CorrectionScope& scope)
{
    return OfAll(scope) + Photos(scope.marked) + "の付箋とコメントが消えます。";
}

bool ConfirmLabelCorrection()
{
    const HostServices& host = GetHostServices();
    return host.userInterface != nullptr &&
           host.userInterface->ShowMessage("付箋の一括訂正・削除処理を実行します。よろしいですか？",
                                           host.applicationName, MessageButtons::OkCancel,
                                           MessageIcon::Question) == MessageAnswer::Ok;
}
