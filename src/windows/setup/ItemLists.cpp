#include "windows/setup/ItemLists.h"

#include <algorithm>

namespace
{
InfoType KindOf(const ToviItemShowSetting& item)
{
    return item.infoType == InfoFile || item.infoType == InfoExif ? item.infoType : InfoDelivery;
}

bool HasSelection(const ItemLists::List& list)
{
    return list.selected >= 0;
}

/// Takes the selected row out; the one that stands there then is selected.
int TakeSelected(ItemLists::List& list)
{
    const auto place = list.items.begin() + list.selected;
    const int item = *place;
    list.items.erase(place);
    list.selected = std::min(list.selected, static_cast<int>(list.items.size()) - 1);
    return item;
}

/// Puts \p item behind the selected row, or on top without one, and selects it.
void Insert(ItemLists::List& list, int item)
{
    ++list.selected;
    list.items.insert(list.items.begin() + list.selected, item);
}

void MoveSelected(ItemLists::List& list, int by)
{
    const auto place = list.items.begin() + list.selected;
    std::iter_swap(place, place + by);
    list.selected += by;
}
} // namespace

ItemLists::ItemLists(const ToviItemShowSettings& theCandidates) : candidates(theCandidates)
{
    for (int item = 0; item < candidates.GetSize(); ++item) {
        List& list = candidates.IsBold(item) ? shown : hidden[KindOf(candidates[item])];
        list.items.push_back(item);
    }
}

ItemLists::Moves ItemLists::Possible() const
{
    const int last = static_cast<int>(shown.items.size()) - 1;
    return {.show = HasSelection(Hidden()),
            .hide = HasSelection(shown),
            .up = shown.selected > 0,
            .down = HasSelection(shown) && shown.selected < last,
            .accept = !shown.items.empty()};
}

void ItemLists::Show()
{
    if (Possible().show) Insert(shown, TakeSelected(hidden[kind]));
}

void ItemLists::Hide()
{
    if (!Possible().hide) return;
    const int item = TakeSelected(shown);
    kind = KindOf(candidates[item]);
    Insert(hidden[kind], item);
}

void ItemLists::Up()
{
    if (Possible().up) MoveSelected(shown, -1);
}

void ItemLists::Down()
{
    if (Possible().down) MoveSelected(shown, 1);
}

ToviItemShowSettings ItemLists::Result() const
{
    ToviItemShowSettings result;
    const auto add = [&](const List& list, bool isShown) {
        for (const int item : list.items) {
            result.Add(candidates[item]);
            result[result.GetSize() - 1].Bold(isShown);
        }
    };
    add(shown, true);
    for (const List& list : hidden) add(list, false);
    return result;
}
