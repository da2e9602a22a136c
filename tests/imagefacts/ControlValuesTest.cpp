#include "imagefacts/ControlValueParser.h"
#include "imagefacts/ControlValueRows.h"
#include "imagefacts/ToviControlValueArray.h"
#include "photos/ToviPhoto.h"
#include "support/OpenedSample.h"

#include <gtest/gtest.h>

#include <array>

namespace
{
using Texts = std::array<CString, 4>;

Texts TextsOf(const ToviControlValue& value)
{
    return {value.GetName(), value.GetDesign(), value.GetActual(), value.GetDifference()};
}

std::vector<Texts> TextsOf(const ToviControlValues& values)
{
    std::vector<Texts> texts;
    for (const auto& value : values) texts.push_back(TextsOf(*value));
    return texts;
}

enum Shown
{
    AsTable,
    AsText
};

TEST(ControlValues, AreReadFromTheirUsualFormAlone)
{
    const std::tuple<const char*, bool, std::vector<Texts>, Shown> cases[] = {
        {"A:設計値 100・実測値 98・差 -2", true, {{"A", "100", "98", "-2"}}, AsTable},
        {"A:設計 100・実測 98、B:設計 50・実測 51",
         true,
         {{"A", "100", "98", ""}, {"B", "50", "51", ""}},
         AsTable},
        {"A:設計値100・実測値98", true, {{"A", "100", "98", ""}}, AsTable},
        {"A:差 -2・ 実測寸法 98 ・設計1", true, {{"A", "1", "98", "-2"}}, AsTable},
        {"A:設計 値 1・実測\t値2", true, {{"A", "値 1", "値2", ""}}, AsTable},
        {"A:設計値寸法 1・差", true, {{"A", "寸法 1", "", ""}}, AsTable},
        {"A:設計寸法 1・2", true, {{"A", "1・2", "", ""}}, AsTable},
        {"A:設計 1・ 2 ・・実測3・", true, {{"A", "1・ 2 ・", "3", ""}}, AsTable},
        {" \tA\r\n: 設計 1 \r\n", true, {{"A", "1", "", ""}}, AsTable},
        {"A:　設計1", false, {}, AsText},
        {"A:1・2", false, {}, AsText},
        {"A:・設計1", false, {}, AsText},
        {"A:設計値 1・設計値 2", false, {}, AsText},
        {"A:設計値 差1・実測 2・差 3", false, {}, AsText},
        {"A:設計1・実測2・差3・差4", false, {}, AsText},
        {"A:設計1、B:1、C:実測2", false, {{"A", "1", "", ""}, {"C", "", "2", ""}}, AsText},
        {"A:設計1、、B", false, {{"A", "1", "", ""}, {"B", "", "", ""}}, AsText},
        {"A:設計1、", true, {{"A", "1", "", ""}}, AsTable},
        {"規格値±30mm以内", true, {{"規格値±30mm以内", "", "", ""}}, AsText},
        {"A、B", true, {{"A", "", "", ""}, {"B", "", "", ""}}, AsTable},
        {"A、:", true, {{"A", "", "", ""}, {"", "", "", ""}}, AsTable},
        {":設計1", true, {{"", "1", "", ""}}, AsTable},
        {"A：設計100・実測98", true, {{"A：設計100・実測98", "", "", ""}}, AsText},
        {" ", true, {{"", "", "", ""}}, AsText},
        {"、", false, {}, AsText},
        {"", true, {}, AsText},
    };
    for (const auto& [text, valid, expected, shown] : cases) {
        ToviControlValues values;
        ParseControlValues(text, values);
        EXPECT_EQ(values.IsValid(), valid) << text;
        EXPECT_EQ(TextsOf(values), expected) << text;
        EXPECT_EQ(IsShownAsTable(values), shown == AsTable) << text;
    }
    ToviControlValues values;
    ParseControlValues("A:設計1、 、B", values);
    EXPECT_EQ(ControlValueRows(values).size(), 2u) << "blank rows are left out";
}

TEST(ControlValues, TakeTimeInProportionToTheText)
{
    constexpr int pieces = 1'000'000;
    CString continued = "A:設計";
    for (int i = 0; i < pieces; ++i) continued += "・1";
    const std::unique_ptr<ToviControlValue> value = ParseControlValue(continued);
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->GetDesign().size(), continued.size() - std::string_view("A:設計").size());

    CString empty;
    for (int i = 0; i < pieces; ++i) empty += "、";
    ToviControlValues values;
    ParseControlValues(empty, values);
    EXPECT_FALSE(values.IsValid());
    EXPECT_TRUE(values.IsEmpty());
}

TEST(ControlValues, ComeFromTheItemOfAPhotograph)
{
    const OpenedSample sample(DeliveryBuilder({.photos = 3, .drawings = 0, .images = false})
                                  .Set(0, "施工管理値", "A:設計値 10・実測値 11・差 1、B")
                                  .Set(1, "施工管理値", "A:10、B")
                                  .Remove(2, "施工管理値"));
    const ToviControlValueTexts before = {"before", "", "", ""};
    ToviControlValueArray values;
    values.Add(before);
    EXPECT_FALSE(sample.Photo(1).GetControlValueArray(values));
    ASSERT_EQ(values.GetSize(), 1);
    EXPECT_EQ(values[0], before);
    EXPECT_TRUE(sample.Photo(0).GetControlValueArray(values));
    ASSERT_EQ(values.GetSize(), 2);
    EXPECT_EQ(values[0], (ToviControlValueTexts{"A", "10", "11", "1"}));
    EXPECT_EQ(values[1], (ToviControlValueTexts{"B", "", "", ""}));
    EXPECT_TRUE(sample.Photo(2).GetControlValueArray(values));
    EXPECT_TRUE(values.IsEmpty());
    values.Add(before);
    EXPECT_TRUE(ToviPhoto("P1.JPG").GetControlValueArray(values));
    EXPECT_TRUE(values.IsEmpty());
}
} // namespace
