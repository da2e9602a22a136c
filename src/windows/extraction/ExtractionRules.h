#pragma once

#include "extraction/ExtractionConditions.h"
#include "platform/text/Export.h"

class ToviData;

/// A condition that is on or off and nothing else.
struct SimpleCondition
{
    bool ExtractionConditions::*on;
    const char* text;
};

/// These conditions, in the order in which they are shown and tried.
inline constexpr SimpleCondition simpleConditions[] = {
    {&ExtractionConditions::keyPhoto, "代表写真"},
    {&ExtractionConditions::ngPhoto, "NG写真"},
    {&ExtractionConditions::notcheckPhoto, "未検査写真"},
    {&ExtractionConditions::notExifinfo, "Exif情報非保有写真"},
    {&ExtractionConditions::neceNotwrite, "必須項目未入力写真"}};

/// Any condition is on: there is something to extract by.
TOVI_EXPORT bool HasCondition(const ExtractionConditions& conditions);

/// The conditions that are on as one phrase: "NG写真 かつ 撮影箇所が「No.1」". Empty without any.
TOVI_EXPORT CString ConditionsText(const ExtractionConditions& conditions);
/// The same of those alone that the detail window sets.
TOVI_EXPORT CString DetailConditionsText(const ExtractionConditions& conditions);

/// What a change of the conditions leads to.
enum class ConditionsChange
{
    /// Extraction is off, and there is nothing to extract by.
    CannotRun,
    /// Extraction is off and can be switched on.
    CanRun,
    /// Extraction is on and runs anew.
    RunAnew,
    /// Extraction is on and ends: the last condition went off.
    End
};
TOVI_EXPORT ConditionsChange ChangeTo(const ExtractionConditions& conditions, bool running);

/// What extraction and the search make of the photographs on show.
struct ExtractionView
{
    enum Kind
    {
        /// Both are off.
        Off,
        /// The photographs on show are those that meet the conditions, or were found.
        Narrowed,
        /// The same, but there are none.
        Nothing,
        /// Extraction alone is on, but the photographs of a label are on show, which it doesn't
        /// narrow.
        Label
    };

    Kind kind = Off;
    bool extracted = false;
    bool searched = false;
    bool ofLabel = false;
    /// How many are on show, and of how many in the selected node or with the selected label.
    int shown = 0;
    int all = 0;

    bool operator==(const ExtractionView&) const = default;
};

/// \p running: extraction is on; \p ofLabel: the photographs on show are those of a label.
TOVI_EXPORT ExtractionView ViewOf(const ToviData& document, bool running, bool ofLabel);

/// What the strip over the photographs says of \p view, which shows the text of the search itself.
TOVI_EXPORT CString StripText(const ExtractionView& view, const ExtractionConditions& conditions);
/// What the button says that ends all that \p view tells of.
TOVI_EXPORT CString EndText(const ExtractionView& view);
/// What stands in the place of the photographs when there are none; \p searchText is what was
/// looked for.
TOVI_EXPORT CString NothingText(const ExtractionView& view, const ExtractionConditions& conditions,
                                const CString& searchText);
