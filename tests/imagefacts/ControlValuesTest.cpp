#include "imagefacts/ControlValueParser.h"
#include "imagefacts/ControlValueRows.h"
#include "imagefacts/ToviControlValueArray.h"
#include "photos/ToviPhoto.h"
#include "support/OpenedSample.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

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

std::vector<Texts> RowsOf(const ToviControlValues& values)
{
    std::vector<Texts> texts;
    for (const ToviControlValue* value : ControlValueRows(values)) texts.push_back(TextsOf(*value));
    return texts;
}

enum Shown
{
    AsTable,
    AsText
};

TEST(ControlValues, AreReadFromTheirUsualFormAlone)
{
    const struct
    {
        const char* text;
        bool valid;
        std::vector<Texts> values;
        Shown shown;
    } cases[] = {
        {"A:設計値 100・実測値 98・差 -2", true, {{"A", "100", "98", "-2"}}, AsTable},
        {"A:設計 100・実測 98、B:設計 50・実測 51",
         true,
         {{"A", "100", "98", ""}, {"B", "50", "51", ""}},
         AsTable},
        {"As舗装工(下層路盤工):設計寸法400mm・実測寸法405mm",
         true,
         {{"As舗装工(下層路盤工)", "400mm", "405mm", ""}},
         AsTable},
        {"A:設計値100・実測値98", true, {{"A", "100", "98", ""}}, AsTable},
        {"A:差 -2・ 実測寸法 98 ・設計1", true, {{"A", "1", "98", "-2"}}, AsTable},
        {"A:設計 値 1・実測\t値2", true, {{"A", "値 1", "値2", ""}}, AsTable},
        {"A:設計値寸法 1・差", true, {{"A", "寸法 1", "", ""}}, AsTable},
        {"A:設計寸法 1・2", true, {{"A", "1・2", "", ""}}, AsTable},
        {"A:設計 1・ 2 ・・実測3・", true, {{"A", "1・ 2 ・", "3", ""}}, AsTable},
        {"A:設計:1", true, {{"A", ":1", "", ""}}, AsTable},
        {" \tA\r\n: 設計 1 \r\n", true, {{"A", "1", "", ""}}, AsTable},
        {"　A:設計　1", true, {{"　A", "　1", "", ""}}, AsTable},
        {"A:　設計1", false, {}, AsText},
        {"A:1・2", false, {}, AsText},
        {"A:・設計1", false, {}, AsText},
        {"A:・", false, {}, AsText},
        {"A:設計値 1・設計値 2", false, {}, AsText},
        {"A:設計値 差1・実測 2・差 3", false, {}, AsText},
        {"A:設計値 差1・実測 2", true, {{"A", "差1", "2", ""}}, AsTable},
        {"A:設計1・実測2・差3・差4", false, {}, AsText},
        {"A:設計1、B:1、C:実測2", false, {{"A", "1", "", ""}, {"C", "", "2", ""}}, AsText},
        {"A:設計1、、B", false, {{"A", "1", "", ""}, {"B", "", "", ""}}, AsText},
        {"A:設計1、", true, {{"A", "1", "", ""}}, AsTable},
        {"規格値±30mm以内", true, {{"規格値±30mm以内", "", "", ""}}, AsText},
        {"A:", true, {{"A", "", "", ""}}, AsText},
        {"A、B", true, {{"A", "", "", ""}, {"B", "", "", ""}}, AsTable},
        {"A、:", true, {{"A", "", "", ""}, {"", "", "", ""}}, AsTable},
        {":設計1", true, {{"", "1", "", ""}}, AsTable},
        {"A：設計100・実測98", true, {{"A：設計100・実測98", "", "", ""}}, AsText},
        {" ", true, {{"", "", "", ""}}, AsText},
        {"、", false, {}, AsText},
        {"", true, {}, AsText},
    };
    for (const auto& c : cases) {
        ToviControlValues values;
        ParseControlValues(c.text, values);
        EXPECT_EQ(values.IsValid(), c.valid) << c.text;
        EXPECT_EQ(TextsOf(values), c.values) << c.text;
        EXPECT_EQ(IsShownAsTable(values), c.shown == AsTable) << c.text;
    }
}

TEST(ControlValues, LeaveBlankRowsOutOfTheTable)
{
    ToviControlValues values;
    ParseControlValues("A:設計1、 、B", values);
    const std::vector<Texts> rows = {{"A", "1", "", ""}, {"B", "", "", ""}};
    EXPECT_EQ(RowsOf(values), rows);
}

/// A second reading of the same form, over texts in which one letter stands for each word, and from
/// the end to the front.
class SecondReading
{
public:
    explicit SecondReading(const std::string& letters)
    {
        std::string part;
        for (const char letter : letters) {
            if (letter == ',') {
                Add(part);
                part.clear();
            } else {
                part += letter;
            }
        }
        if (!part.empty()) Add(part);
    }

    static CString Words(const std::string& letters)
    {
        CString words;
        for (const char letter : letters) {
            switch (letter) {
            case 'D':
                words += "設計";
                break;
            case 'M':
                words += "実測";
                break;
            case 'E':
                words += "差";
                break;
            case 'v':
                words += "値";
                break;
            case 's':
                words += "寸法";
                break;
            case 'h':
                words += "設";
                break;
            case 'w':
                words += "　";
                break;
            case 'c':
                words += "：";
                break;
            case '.':
                words += "・";
                break;
            case ',':
                words += "、";
                break;
            default:
                words += letter;
            }
        }
        return words;
    }

    bool valid = true;
    std::vector<Texts> values;

private:
    static bool IsBlank(char letter) { return letter == ' ' || letter == '\t' || letter == '\n'; }

    static std::string Strip(std::string text)
    {
        while (!text.empty() && IsBlank(text.back())) text.pop_back();
        while (!text.empty() && IsBlank(text.front())) text.erase(0, 1);
        return text;
    }

    static bool Has(const std::string& text, char letter)
    {
        return text.find(letter) != std::string::npos;
    }

    void Add(const std::string& part)
    {
        Texts texts;
        const bool read = Read(part, texts);
        valid = valid && read;
        if (read) values.push_back(texts);
    }

    static bool Read(const std::string& part, Texts& texts)
    {
        if (part.empty()) return false;
        const std::size_t colon = std::min(part.find(':'), part.size());
        texts[0] = Words(Strip(part.substr(0, colon)));
        std::string rest = Strip(part.substr(std::min(colon + 1, part.size())));
        if (rest.empty()) return true;
        if (rest.back() == '.') rest.pop_back();
        std::string seen;
        std::string tail;
        for (;;) {
            const std::size_t dot = rest.rfind('.');
            const std::size_t begin = dot == std::string::npos ? 0 : dot + 1;
            const std::string token = rest.substr(begin) + tail;
            const std::string entry = Strip(token);
            const char kind = entry.empty() ? '?' : entry.front();
            const std::size_t place = std::string("?DME").find(kind);
            if (place != std::string::npos && place > 0) {
                std::string inEntry;
                for (const char word : {'D', 'M', 'E'}) {
                    if (!Has(entry, word)) continue;
                    if (Has(seen, word)) return false;
                    inEntry += word;
                }
                seen += inEntry;
                const bool hasPrefixEnd = entry.size() > 1 && (entry[1] == 'v' || entry[1] == 's');
                texts[place] = Words(Strip(entry.substr(hasPrefixEnd ? 2 : 1)));
                tail.clear();
            } else if (begin == 0) {
                return false;
            } else {
                tail = "." + token;
            }
            if (begin == 0) return true;
            rest.resize(dot);
        }
    }
};

#ifndef __SANITIZE_ADDRESS__
constexpr int randomTexts = 1'000'000;
#else
constexpr int randomTexts = 100'000;
#endif

TEST(ControlValues, AgreeWithASecondReadingOfRandomTexts)
{
    const char* const pieces[] = {"A",  "1",    ":",      ".",   ",",    "D",   "M",    "E",  "v",
                                  "s",  "h",    "c",      "w",   " ",    "\t",  "\n",   "v ", "s ",
                                  ".2", "A:D1", "A:Dv 1", ".M1", ".Ms2", ".E3", " .E 3"};
    std::mt19937 random(1);
    int withThreeFigures = 0;
    int invalid = 0;
    for (int i = 0; i < randomTexts; ++i) {
        std::string letters;
        for (unsigned left = random() % 16; left > 0; --left) {
            letters += pieces[random() % std::size(pieces)];
        }
        const CString text = SecondReading::Words(letters);
        const SecondReading expected(letters);
        ToviControlValues values;
        ParseControlValues(text, values);
        ASSERT_EQ(values.IsValid(), expected.valid) << text;
        ASSERT_EQ(TextsOf(values), expected.values) << text;
        if (!expected.valid) ++invalid;
        for (const Texts& texts : expected.values) {
            if (!texts[1].empty() && !texts[2].empty() && !texts[3].empty()) ++withThreeFigures;
        }
    }
    EXPECT_GT(withThreeFigures, randomTexts / 1000);
    EXPECT_GT(invalid, randomTexts / 10);
    EXPECT_LT(invalid, randomTexts * 9 / 10);
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
