#pragma once

#include "intake/IntakeRule.h"

#include <map>

struct IntakeFinding
{
    CString rule;
    IntakeGrade grade = IntakeGrade::Error;
    /// Photo indexes, ascending; none of what concerns the delivery.
    std::vector<int> photos = {};
    CString file = {};
    CString item = {};
    /// What is found, and what to do about it.
    CString text = {};
    CString action = {};
};

/// A rule that could not look, or a line of the user's table that is no rule.
struct RuleNotRun
{
    CString rule;
    CString why;
};

struct TOVI_EXPORT IntakeReport
{
    std::vector<IntakeFinding> findings;
    std::vector<RuleNotRun> notRun;

    int CountOf(IntakeGrade grade) const;
};

/// A rule of the user: what the values under an item have to be.
struct UserRule
{
    CString id;
    IntakeGrade grade = IntakeGrade::Warning;
    CString item;
    CString sentence;
    /// True for a value that the rule finds; an absent one is empty.
    std::function<bool(std::string_view value)> isWrong;
};

/// What a user's table makes of the built-in rules, and adds to them.
struct UserRules
{
    /// The grades of built-in rules by their names; nothing for those that are switched off.
    std::map<CString, std::optional<IntakeGrade>> grades;
    std::vector<UserRule> rules;
    /// The lines that could not be taken, as "FILE:LINE".
    std::vector<RuleNotRun> mistakes;
};

/// Reads the table \p text, which the file \p name holds. A line each is a rule, its fields with
/// commas between them; what a "#" begins and empty lines are none:
///
///     RULE,error|warning|hint|off                  grades a built-in rule anew
///     NAME,GRADE,ITEM,CONDITION,VALUE,SENTENCE     finds values of ITEM
///
/// The conditions are "required" (there must be a value), "longest" (no more full-width characters
/// than VALUE), "one-of" (one of VALUE, with | between them), "like" (fits VALUE, where * is any
/// text and ? any character) and "without" (VALUE is nowhere in it); the last four let an absent
/// value pass.
TOVI_EXPORT UserRules ParseUserRules(std::string_view text, const CString& name);

/// Reads the table in the file \p path. Nothing when that can't be read as text.
TOVI_EXPORT std::optional<UserRules> ReadUserRules(const CString& path);

/// Looks at \p delivery with all rules that hold for it.
TOVI_EXPORT IntakeReport CheckIntake(const IntakeDelivery& delivery, const UserRules& user = {});

/// All built-in rules.
TOVI_EXPORT std::vector<const IntakeRule*> AllIntakeRules();

/// "error", "warning", "hint".
TOVI_EXPORT const char* NameOf(IntakeGrade grade);

std::optional<IntakeGrade> GradeNamed(std::string_view name);
