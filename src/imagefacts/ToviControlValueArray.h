#pragma once

#include "platform/text/Text.h"

/// The title of the item that holds the construction control values of a photograph.
inline constexpr const char* controlValueTitle = "施工管理値";

/// One measurement as a host takes it (see imagefacts/ToviControlValue.h).
struct ToviControlValueTexts
{
    CString name;
    CString design;
    CString actual;
    CString difference;

    bool operator==(const ToviControlValueTexts&) const = default;
};

/// The measurements of one photograph in the plain form for a host.
class TOVI_EXPORT ToviControlValueArray : public CArray<ToviControlValueTexts>
{};
