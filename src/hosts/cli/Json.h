#pragma once

#include "items/ToviItem.h"
#include "items/ToviItemDef.h"
#include "items/ToviTextPair.h"

#include <concepts>
#include <initializer_list>
#include <ostream>

struct JsonMember;

/// A JSON value, which is text from the start: what is written is never read again.
class Json
{
public:
    Json(std::nullptr_t) : text("null") {}
    Json(bool value) : text(value ? "true" : "false") {}
    template <std::integral Number>
    Json(Number value) : text(std::to_string(value))
    {}
    /// Bytes that are no UTF-8 become U+FFFD.
    Json(const CString& value);
    Json(const char* value) : Json(CString(value)) {}
    static Json Array();
    static Json Object(std::initializer_list<JsonMember> members = {});

    /// Adds \p element to this array.
    void Add(const Json& element);
    /// Adds the member \p name to this object, which has none of that name.
    void Add(const CString& name, const Json& value);

    const CString& Text() const { return text; }

private:
    Json() = default;
    void BeginNext();

    CString text;
};

struct JsonMember
{
    CString name;
    Json value;
};

/// \p value as one line of UTF-8 that no terminal takes orders from.
CString ToText(const Json& value);

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
