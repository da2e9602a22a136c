#pragma once

#include "intake/IntakeDelivery.h"

#include <span>

enum class IntakeGrade
{
    Error,
    Warning,
    Hint
};

/// Where a rule has found something. What isn't told stays as it is here.
struct IntakeSpot
{
    int photo = -1;
    /// The title of an item.
    CString item = {};
    CString file = {};
    /// What the sentence of the rule leaves open.
    CString detail = {};
};

using TellSpot = std::function<void(IntakeSpot)>;

/// What a rule can't do without.
enum class IntakeNeed
{
    Nothing,
    /// The elements of PHOTO.XML were gone through.
    Elements,
    /// The files were examined.
    Files,
    /// There is an index file.
    Index,
    /// An index file tells 工期.
    Period
};

/// One row of the table of rules.
struct IntakeRule
{
    /// Names the rule everywhere.
    const char* id;
    IntakeGrade grade;
    /// Those that it holds for, as bits.
    unsigned generations;
    unsigned owners;
    IntakeNeed need;
    /// What is found, without a full stop.
    const char* sentence;
    const char* action;
    void (*look)(const IntakeDelivery& delivery, const TellSpot& tell);
};

/// The built-in rules by what they look at.
std::span<const IntakeRule> StructureRules();
std::span<const IntakeRule> NameRules();
std::span<const IntakeRule> ItemRules();
std::span<const IntakeRule> TextRules();
std::span<const IntakeRule> FileRules();
std::span<const IntakeRule> PictureRules();
std::span<const IntakeRule> DateRules();
std::span<const IntakeRule> IndexRules();
