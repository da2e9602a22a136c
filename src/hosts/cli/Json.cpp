#include "hosts/cli/Json.h"

#include "platform/text/TerminalText.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iostream>

namespace
{
bool StandsForItself(char c)
{
    return static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\';
}

CString Quoted(const CString& text)
{
    const bool asItIs = std::all_of(text.begin(), text.end(), StandsForItself) && IsUtf8(text);
    if (asItIs) return '"' + text + '"';
    using Library = nlohmann::json;
    return Library(text).dump(-1, ' ', false, Library::error_handler_t::replace);
}
} // namespace

Json::Json(const CString& value) : text(Quoted(value)) {}

Json Json::Array()
{
    Json array;
    array.text = "[]";
    return array;
}

Json Json::Object(std::initializer_list<JsonMember> members)
{
    Json object;
    object.text = "{}";
    for (const auto& [name, value] : members) object.Add(name, value);
    return object;
}

void Json::BeginNext()
{
    constexpr std::size_t sizeOfEmpty = 2;
    if (text.size() == sizeOfEmpty) {
        text.pop_back();
    } else {
        text.back() = ',';
    }
}

void Json::Add(const Json& element)
{
    BeginNext();
    text.append(element.text) += ']';
}

void Json::Add(const CString& name, const Json& value)
{
    BeginNext();
    text.append(Quoted(name)).append(1, ':').append(value.text) += '}';
}

CString ToText(const Json& value)
{
    return HarmlessJson(value.Text());
}

Json ToJson(const ToviItemArray& items, const ToviItemDef& def)
{
    Json array = Json::Array();
    for (const ToviItem& item : items) {
        array.Add(Json::Object(
            {{"title", def.GetTitleFromIndex(item.GetDefIndex())}, {"value", item.GetValue()}}));
    }
    return array;
}

Json ToJson(const ToviTextPairArray& pairs)
{
    Json array = Json::Array();
    for (const ToviTextPair& pair : pairs) {
        array.Add(Json::Object({{"item", pair.GetItem()}, {"value", pair.GetValue()}}));
    }
    return array;
}

JsonArrayWriter::JsonArrayWriter()
{
    std::cout << '[';
}

void JsonArrayWriter::Add(const Json& element)
{
    Next() << ToText(element);
}

std::ostream& JsonArrayWriter::Next()
{
    std::cout << (isFirst ? "\n" : ",\n");
    isFirst = false;
    return std::cout;
}

JsonArrayWriter::~JsonArrayWriter()
{
    std::cout << (isFirst ? "]\n" : "\n]\n");
}
