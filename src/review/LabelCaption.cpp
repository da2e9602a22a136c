#include "review/LabelCaption.h"

namespace
{
/// By slot.
constexpr const char* badges[labelCount] = {"OK", "NG1", "NG2", "NG3", "コメント", "任意"};
} // namespace

const char* LabelBadge(unsigned int slot)
{
    return slot < labelCount ? badges[slot] : "";
}

CString LabelCaption(const ToviLabelManager& labels, unsigned int slot)
{
    CString caption = LabelBadge(slot);
    if (slot >= labelCount) return caption;
    const CString name = labels.GetLabelAttribute(slot).GetName();
    if (!name.empty() && name != caption) caption += " " + name;
    return caption;
}
