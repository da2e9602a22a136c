#include "hosts/cli/Json.h"

#include "platform/text/TerminalText.h"

#include <iostream>

std::string ToText(const Json& value)
{
    return HarmlessJson(value.dump(-1, ' ', false, Json::error_handler_t::replace));
}

Json ToJson(const ToviItemArray& items, const ToviItemDef& def)
{
    Json array = Json::array();
    for (const ToviItem& item : items) {
        array.push_back(
            {{"title", def.GetTitleFromIndex(item.GetDefIndex())}, {"value", item.GetValue()}});
    }
    return array;
}

Json ToJson(const ToviTextPairArray& pairs)
{
    Json array = Json::array();
    for (const ToviTextPair& pair : pairs) {
        array.push_back({{"item", pair.GetItem()}, {"value", pair.GetValue()}});
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
