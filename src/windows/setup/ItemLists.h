#pragma once

#include "items/ToviItemShowSettings.h"
#include "platform/text/Export.h"

#include <array>
#include <vector>

/// The candidates of the information lists, parted into those that are shown, in their order, and
/// the hidden ones of each kind: what the dialog of that name shows and the user moves.
class TOVI_EXPORT ItemLists
{
public:
    struct List
    {
        /// Positions among the candidates.
        std::vector<int> items;
        /// The selected row, or -1.
        int selected = -1;
    };

    /// What there is to do.
    struct Moves
    {
        bool show = false;
        bool hide = false;
        bool up = false;
        bool down = false;
        /// The lists can be taken over.
        bool accept = false;

        bool operator==(const Moves&) const = default;
    };

    explicit ItemLists(const ToviItemShowSettings& theCandidates);

    const List& Shown() const { return shown; }
    /// The hidden items of the kind in view.
    const List& Hidden() const { return hidden[kind]; }
    InfoType Kind() const { return kind; }
    /// Brings the hidden items of \p newKind into view.
    void SetKind(InfoType newKind) { kind = newKind; }
    const CString& Title(int item) const { return candidates[item].title; }

    /// Select a row; -1 for none.
    void SelectShown(int row) { shown.selected = row; }
    void SelectHidden(int row) { hidden[kind].selected = row; }

    Moves Possible() const;
    /// Move the selected row; without one nothing happens.
    void Show();
    /// The kind of what becomes hidden comes into view.
    void Hide();
    void Up();
    void Down();

    /// All candidates: the shown ones in their order, then the hidden ones kind by kind.
    ToviItemShowSettings Result() const;

private:
    ToviItemShowSettings candidates;
    List shown;
    std::array<List, 3> hidden;
    InfoType kind = InfoDelivery;
};
