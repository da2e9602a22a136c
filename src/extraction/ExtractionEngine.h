#pragma once

#include "extraction/ExtractionConditions.h"
#include "photos/ItemColumns.h"
#include "photos/ToviPhotoArray.h"
#include "photos/ToviPhotoRef.h"

#include <functional>
#include <vector>

class ToviItemDef;

/// Narrows a current array to the photographs that meet conditions, under a progress window with
/// Cancel. It serves one run.
class ExtractionEngine
{
public:
    enum class Outcome
    {
        Done,
        /// The user cancelled.
        Cancelled,
        /// The actual array lacks a photograph.
        Abandoned
    };

    /// \p photos is the actual array, \p itemColumns its columns; they and \p def outlive the
    /// engine. The conditions may change meanwhile.
    ExtractionEngine(const ToviItemDef& def, const ToviPhotoArray& photos,
                     const ItemColumns& itemColumns, const ExtractionConditions& conditions);

    /// Keeps of \p current the photographs for which every condition holds that is on. What isn't
    /// done leaves \p current unchanged. An index outside the actual array throws InvalidArgument.
    [[nodiscard]] Outcome ExecExtractionAND(ToviPhotoRef& current) const;
    /// The same with the photographs for which any condition holds.
    [[nodiscard]] Outcome ExecExtractionOR(ToviPhotoRef& current) const;

private:
    enum class Verdict
    {
        Holds,
        Fails,
        /// There is no date to judge by: the photograph is left out at once, whatever else holds.
        NoDate
    };
    /// Judges the photograph with this index.
    using Condition = std::function<Verdict(int photo)>;

    void AddKeyPhoto();
    void AddRequiredItems();
    void AddItem(const CString& title, const CString& text);
    void AddDate(const ExtractionConditions& conditions);
    /// Adds a condition of two outcomes.
    void Add(std::function<bool(ToviPhoto&)> holds);
    /// Adds what \p judge says of the first value of \p item, which is empty where there is none.
    void AddFirst(int item, const std::function<Verdict(const CString&)>& judge);
    /// Adds whether \p isWanted says so of any value of \p item.
    void AddAny(int item, const std::function<bool(const CString&)>& isWanted);

    Verdict JudgeAND(int photo) const;
    Verdict JudgeOR(int photo) const;
    Outcome Run(ToviPhotoRef& current, Verdict (ExtractionEngine::*judge)(int) const) const;

    const ToviItemDef& itemDef;
    const ToviPhotoArray& photoData;
    const ItemColumns& columns;
    /// Those that are on, in the order of their evaluation.
    std::vector<Condition> tests;
};
