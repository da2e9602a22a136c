#include "panels/LabelRequests.h"

#include <span>

namespace
{
constexpr unsigned int ok[] = {LabelOk};
constexpr unsigned int ng[] = {LabelNg1, LabelNg2, LabelNg3};

/// The labels that can't stand beside \p label.
std::span<const unsigned int> PartnersOf(unsigned int label)
{
    switch (label) {
    case LabelOk:
        return ng;
    case LabelNg1:
    case LabelNg2:
    case LabelNg3:
        return ok;
    default:
        return {};
    }
}
} // namespace

std::vector<LabelRequest> RequestsOfPress(const ToviPhoto& photo, unsigned int label)
{
    if (photo.IsLabelPasted(label)) return {{false, label}};
    std::vector<LabelRequest> requests = {{true, label}};
    for (const unsigned int partner : PartnersOf(label)) {
        if (photo.IsLabelPasted(partner)) requests.push_back({false, partner});
    }
    return requests;
}

std::vector<LabelRequest> RequestsOfComment(const ToviPhoto& photo)
{
    const bool hasComment = !photo.GetComment().empty();
    if (hasComment == photo.IsLabelPasted(LabelComment)) return {};
    return {{hasComment, LabelComment}};
}
