#pragma once

#include "extraction/ExtractionConditions.h"
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

    /// \p photos is the actual array; it and \p def outlive the engine. The conditions may change
    /// meanwhile.
    ExtractionEngine(const ToviItemDef& def, const ToviPhotoArray& photos,
                     const ExtractionConditions& conditions);

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
    using Condition = std::function<Verdict(ToviPhoto&)>;

    void AddKeyPhoto();
    void AddRequiredItems();
    void AddItem(const CString& title, const CString& text);
    void AddDate(const ExtractionConditions& conditions);
    /// Adds a condition of two outcomes.
    void Add(std::function<bool(ToviPhoto&)> holds);

    Verdict JudgeAND(ToviPhoto& photo) const;
    Verdict JudgeOR(ToviPhoto& photo) const;
    Outcome Run(ToviPhotoRef& current, Verdict (ExtractionEngine::*judge)(ToviPhoto&) const) const;

    const ToviItemDef& itemDef;
    const ToviPhotoArray& photoData;
    /// Those that are on, in the order of their evaluation.
    std::vector<Condition> tests;
};
