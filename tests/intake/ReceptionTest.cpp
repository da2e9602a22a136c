#include "intake/Coverage.h"
#include "intake/DateLadder.h"
#include "intake/Sampling.h"
#include "review/LabelEdits.h"
#include "sample/SampleFaults.h"
#include "support/Labels.h"
#include "support/OpenedSample.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace
{
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A delivery that was written to a folder of its own and is looked at as it is received.
struct Received
{
    explicit Received(const DeliveryBuilder& builder)
    {
        builder.Write(temp.Path());
        Look();
    }
    explicit Received(const char* fault, int photos)
    {
        const SampleFault* const faults[] = {FindSampleFault(fault)};
        WriteFaultySample({.photos = photos, .plainPictures = true}, faults, temp.Path());
        Look();
    }

    void Look()
    {
        opened = OpenDelivery(host, temp.Path(), std::nullopt, "");
        delivery.emplace(opened, OwnerMlit, *DayOf("2026-01-01"));
    }

    TempFolder temp;
    TestHost services;
    NotingDocument host;
    OpenedDelivery opened;
    std::optional<IntakeDelivery> delivery;
};

DeliveryBuilder Tidy(int photos, bool images = false)
{
    return DeliveryBuilder(
        {.photos = photos, .drawings = 0, .images = images, .tidy = true, .plainPictures = true});
}

std::vector<CString> KindsOf(const DatedPhoto& photo)
{
    std::vector<CString> kinds;
    for (const DateFinding& finding : photo.findings) kinds.emplace_back(finding.kind);
    return kinds;
}

TEST(DateLadder, TellsWhatDoesNotFit)
{
    struct Row
    {
        const char* fault;
        std::vector<CString> kinds;
    };
    const Row rows[] = {
        {"date-no-day", {"no-day"}},
        {"date-outside-period", {"outside-period", "neighbours-differ"}},
        {"date-future", {"future", "exif-future", "file-earlier", "neighbours-differ"}},
        {"date-other-than-exif", {"exif-differs"}},
        {"clock-unset", {"clock-unset"}},
        {"exif-changed-later", {"changed-differs"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.fault);
        const Received received(row.fault, 8);
        const auto ladder = ReadDateLadder(*received.delivery, [](int, int) { return true; });
        ASSERT_EQ(ladder.size(), 8U);
        for (std::size_t i = 0; i < ladder.size(); ++i) {
            EXPECT_EQ(KindsOf(ladder[i]), i == 3 ? row.kinds : std::vector<CString>()) << i;
        }
    }
    const Received stopped("clock-unset", 8);
    EXPECT_THAT(ReadDateLadder(*stopped.delivery, [](int done, int) { return done < 3; }),
                IsEmpty());
}

TEST(Coverage, CountsAndTellsWhichPartnersAreMissing)
{
    DeliveryBuilder builder = Tidy(5);
    const auto set = [&builder](int photo, std::initializer_list<const char*> values) {
        constexpr const char* titles[] = {"写真区分", "工種",         "種別",     "細別",
                                          "代表写真", "提出頻度写真", "撮影箇所", "写真タイトル"};
        builder.Set(photo, "写真-大分類", "工事");
        for (std::size_t i = 0; i < values.size(); ++i) {
            builder.Set(photo, titles[i], values.begin()[i]);
        }
    };
    set(0, {"着手前及び完成写真", "", "", "", "0", "0", "No.1", "着手前 全景"});
    set(1, {"施工状況写真", "土工", "掘削工", "掘削", "1", "0", "No.1", "掘削"});
    set(2, {"着手前及び完成写真", "", "", "", "1", "1", "No.1", "完成 全景"});
    set(3, {"施工状況写真", "土工", "掘削工", "掘削", "0", "1", "No.2", "掘削"});
    set(4, {"着手前及び完成写真", "", "", "", "0", "1", "No.2", "完成 全景"});
    Received received(builder);
    ToviData& document = *received.opened.document;
    PasteLabel(document, 2, LabelOk);
    PasteLabel(document, 4, LabelNg1);

    const Coverage coverage = CountCoverage(*received.delivery);
    ASSERT_EQ(coverage.rows.size(), 2U);
    const auto numbers = [](const CoverageRow& row) {
        return std::vector{row.count, row.key, row.submitted, row.judged, row.ng};
    };
    EXPECT_THAT(numbers(coverage.rows[0]), ElementsAre(3, 1, 2, 2, 1));
    EXPECT_THAT(numbers(coverage.rows[1]), ElementsAre(2, 1, 1, 0, 0));
    ASSERT_EQ(coverage.missing.size(), 2U);
    EXPECT_EQ(coverage.missing[0].where, "No.2");
    EXPECT_EQ(coverage.missing[0].lacks, "着手前");
    EXPECT_EQ(coverage.missing[1].where, "土工 / 掘削工 / 掘削");
    EXPECT_THAT(coverage.missing[1].photos, ElementsAre(1, 3));
}

TEST(Sampling, DrawsWhatTheTermsSayAndTheSameAlways)
{
    SampleDraw draw(1234567);
    // As published with the generator.
    EXPECT_EQ(draw.Next(), 6457827717110365317U);
    EXPECT_EQ(draw.Next(), 3203168211198807973U);

    DeliveryBuilder builder = Tidy(40);
    for (int photo = 0; photo < 40; ++photo) {
        builder.Set(photo, "代表写真", photo == 5 ? "1" : "0");
        builder.Set(photo, "提出頻度写真", photo == 6 ? "1" : "0");
        builder.Set(photo, "写真-大分類", "工事").Set(photo, "細別", photo < 4 ? "少" : "多");
        builder.Set(photo, "工種", "工").Set(photo, "種別", "種");
    }
    const Received received(builder);
    const auto drawn = [&](int rate, int least, std::uint64_t seed) {
        return DrawSample(*received.delivery, {.rate = rate, .least = least, .seed = seed});
    };
    EXPECT_THAT(drawn(0, 0, 1), ElementsAre(5, 6));
    EXPECT_EQ(drawn(100, 0, 1).size(), 40U);
    // Of 38 a tenth, rounded up, beside the two.
    EXPECT_EQ(drawn(10, 0, 1).size(), 6U);
    const std::vector<int> few = drawn(0, 3, 1);
    EXPECT_EQ(std::ranges::count_if(few, [](int photo) { return photo < 4; }), 3);
    EXPECT_EQ(few.size(), 6U);
    EXPECT_EQ(drawn(0, 99, 1).size(), 40U);
    EXPECT_NE(drawn(10, 0, 1), drawn(10, 0, 2));
    // As another program draws by the words of the header.
    EXPECT_EQ(RangesText(drawn(10, 3, 42)), "1-3,5-6,11,14,22,36");

    ToviData& document = *received.opened.document;
    const TempFolder records;
    const CString record = records.Path("record.xml");
    int reason = -1;
    ASSERT_TRUE(SaveRecordWithSample(document, record, {.seed = 42}, drawn(10, 3, 42), &reason));
    ASSERT_TRUE(document.LoadExamination(record.c_str(), &reason));
    PasteLabel(document, 2, LabelOk);
    ASSERT_TRUE(document.SaveExamination(record.c_str(), nullptr, &reason));
    EXPECT_THAT(records.Read("record.xml"),
                HasSubstr(R"(seed="42" method="splitmix64/1" photos="1-3,5-6,11,14,22,36")"));
}
} // namespace
