#pragma once

#include "items/ToviItem.h"
#include "items/ToviItemDef.h"
#include "items/ToviTextPair.h"

#include <nlohmann/json.hpp>

#include <ostream>

using Json = nlohmann::ordered_json;

/// \p value as one line of UTF-8 that no terminal takes orders from; bytes that are no UTF-8 become
/// U+FFFD.
std::string ToText(const Json& value);

/// \p items as an array of {"title","value"}, in their order.
Json ToJson(const ToviItemArray& items, const ToviItemDef& def);

/// \p pairs as an array of {"item","value"}, in their order.
Json ToJson(const ToviTextPairArray& pairs);

/// Writes an array to standard output element by element, so that it need not be in memory whole.
class JsonArrayWriter
{
public:
    JsonArrayWriter();
    void Add(const Json& element);
    /// Begins the next element, whose text the caller writes to the stream: for one so large that
    /// it need not be in memory whole either.
    std::ostream& Next();
    /// Closes the array.
    ~JsonArrayWriter();
    JsonArrayWriter(const JsonArrayWriter&) = delete;
    JsonArrayWriter& operator=(const JsonArrayWriter&) = delete;

private:
    bool isFirst = true;
};
