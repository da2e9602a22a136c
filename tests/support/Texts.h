#pragma once

#include "platform/text/Text.h"

#include <vector>

/// \p array as what matchers of containers take.
inline std::vector<CString> Texts(const CStringArray& array)
{
    return {array.begin(), array.end()};
}
