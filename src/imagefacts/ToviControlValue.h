#pragma once

#include "platform/text/Text.h"

/// One measurement of a construction control value (施工管理値): four texts as they were written.
/// Nothing is calculated; the difference is what the text says.
class TOVI_EXPORT ToviControlValue
{
public:
    ToviControlValue() = default;
    ToviControlValue(const ToviControlValue&) = default;
    ToviControlValue& operator=(const ToviControlValue&) = default;
    virtual ~ToviControlValue() = default;

    /// 項目名
    const CString& GetName() const { return name; }
    void SetName(CString text) { name = std::move(text); }
    /// 設計値
    const CString& GetDesign() const { return design; }
    void SetDesign(CString text) { design = std::move(text); }
    /// 実測値
    const CString& GetActual() const { return actual; }
    void SetActual(CString text) { actual = std::move(text); }
    /// 差
    const CString& GetDifference() const { return difference; }
    void SetDifference(CString text) { difference = std::move(text); }

    /// All four texts are empty.
    bool IsBlank() const { return name.empty() && HasNoFigures(); }
    /// The name is the only text that isn't empty.
    bool IsNameOnly() const { return !name.empty() && HasNoFigures(); }

private:
    bool HasNoFigures() const { return design.empty() && actual.empty() && difference.empty(); }

    CString name;
    CString design;
    CString actual;
    CString difference;
};
