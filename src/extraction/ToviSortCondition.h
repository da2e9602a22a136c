#pragma once

#include "platform/store/StoredValues.h"
#include "platform/text/Text.h"

/// Whether the current array is sorted, by which item and in which direction. Without sorting the
/// direction is ascending, but for one that was set or loaded so by itself.
///
/// A condition that was loaded from the profile store saves itself in its destructor. One that was
/// not, a copy too, has nothing to say there. What is saved are the entries that were changed since
/// they were loaded or saved, in a copy too; all of a condition that was never loaded.
class TOVI_EXPORT ToviSortCondition
{
public:
    /// The section and entries of the profile store.
    static constexpr const char* SortSection_ = "Sort";
    static constexpr const char* ExecSortEntry_ = "ExecSort";
    static constexpr const char* AscendingEntry_ = "Ascending";
    static constexpr const char* KeyItemEntry_ = "KeyItem";

    ToviSortCondition() = default;
    ToviSortCondition(const ToviSortCondition& other);
    ToviSortCondition& operator=(const ToviSortCondition& other);
    virtual ~ToviSortCondition();
    bool operator==(const ToviSortCondition& other) const { return Entries() == other.Entries(); }

    bool IsExecSort() const { return execSort; }
    /// Switching sorting off makes the direction ascending.
    void ExecSort(bool exec);
    /// The title of the item to sort by.
    const CString& GetKeyItem() const { return keyItem; }
    void SetKeyItem(const char* title) { keyItem = title; }
    bool IsAscending() const { return ascending; }
    void Ascending(bool up) { ascending = up; }

    /// Takes over what the profile store has. Always true.
    bool Load();
    /// Writes what was changed to the profile store. False at the first entry that could not be
    /// kept, behind which none is written.
    bool Save();

private:
    StoredSection::Entries Entries() const;

    CString keyItem = "撮影年月日";
    bool execSort = false;
    bool ascending = true;
    StoredSection stored;
    bool loaded = false;
};
