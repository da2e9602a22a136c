#include "items/ToviItemShowSettings.h"

#include <algorithm>

bool ToviItemShowSetting::operator==(const ToviItemShowSetting& other) const
{
    return title == other.title && bold == other.bold && index == other.index &&
           grade == other.grade && infoType == other.infoType;
}

ToviItemShowSettings& ToviItemShowSettings::operator=(const ToviItemShowSettings& other)
{
    RemoveAll();
    showTitle = other.showTitle;
    Reserve(other.GetSize());
    for (const ToviItemShowSetting& item : other) Add(item);
    return *this;
}

bool ToviItemShowSettings::operator==(const ToviItemShowSettings& other) const
{
    return showTitle == other.showTitle &&
           std::equal(begin(), end(), other.begin(), other.end(),
                      [](const ToviItemShowSetting& left, const ToviItemShowSetting& right) {
                          return left.operator==(right);
                      });
}

int ToviItemShowSettings::Add(const char* title, bool bold, int index, Grade grade,
                              InfoType infoType)
{
    ToviItemShowSetting item(title);
    item.bold = bold;
    item.index = index;
    item.grade = grade;
    item.infoType = infoType;
    return Add(std::move(item));
}

int ToviItemShowSettings::Find(const char* title) const
{
    const auto found = std::find_if(
        begin(), end(), [title](const ToviItemShowSetting& item) { return item.title == title; });
    return found == end() ? -1 : static_cast<int>(found - begin());
}

bool ToviItemShowSettings::IsBold(const char* title) const
{
    const int position = Find(title);
    return position != -1 && IsBold(position);
}
