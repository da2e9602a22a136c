#pragma once

#include "platform/text/Text.h"

#include <deque>
#include <map>
#include <unordered_map>
#include <vector>

class ToviPhotoArray;

/// The values of one item of all photographs, in one piece: a walk over the items of many
/// photographs waits for memory most of its time, each has its own piece of it. Equal values are
/// there once and told by their number.
class TOVI_EXPORT ItemColumn
{
public:
    /// The number of no value: the photograph hasn't the item.
    static constexpr int none = -1;

    /// Of the definition index \p item; no photograph has a negative one.
    ItemColumn(const ToviPhotoArray& photos, int item);

    /// The different values by their numbers.
    const std::deque<CString>& Values() const { return values; }
    /// The number of the first value of the photograph with this index, which is one of the array.
    int First(int photo) const { return firsts[static_cast<std::size_t>(photo)]; }
    const std::vector<int>& Firsts() const { return firsts; }
    /// True when any value of the photograph is one of \p wanted, which says so of each number.
    bool HasAny(int photo, const std::vector<bool>& wanted) const;

private:
    std::deque<CString> values;
    std::vector<int> firsts;
    /// The values behind the first of the few photographs that repeat the item.
    std::unordered_map<int, std::vector<int>> others;
};

/// How values stand to each other.
enum class ValueOrder
{
    /// By the codes of code page 932.
    Text,
    /// By the number that a value begins with, behind white space; 0 without digits. One that
    /// doesn't fit becomes the nearest that does.
    Number
};

/// The columns of a document, each made when it is first asked for and kept: the items of
/// photographs don't change once they are loaded. For one thread.
class TOVI_EXPORT ItemColumns
{
public:
    /// Of \p actual, which outlives this.
    explicit ItemColumns(const ToviPhotoArray& actual) : photos(actual) {}

    /// Valid until photographs come or go, as what the others give.
    const ItemColumn& Of(int item) const;
    /// A number for each photograph that tells the place of its first value in \p order; equal ones
    /// share it, and a photograph without the item has that of the empty text.
    const std::vector<int>& Ranks(int item, ValueOrder order) const;

private:
    const ToviPhotoArray& photos;
    mutable std::map<int, ItemColumn> columns;
    mutable std::map<std::pair<int, ValueOrder>, std::vector<int>> ranks;
};
