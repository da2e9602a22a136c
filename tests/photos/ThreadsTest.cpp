#include "photos/ToviPhoto.h"
#include "platform/files/TemporaryFiles.h"
#include "platform/host/WorkAhead.h"
#include "platform/pictures/LumImage.h"
#include "platform/text/Cp932.h"
#include "support/OpenedSample.h"

#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <thread>

namespace
{
constexpr int photos = 12;

/// What a worker can find out of a photograph.
CString FactsOf(const ToviPhoto& photo)
{
    const CString path = photo.FindReadablePath();
    LumImage thumb;
    thumb.LoadThumb(path.c_str());
    CString facts = path + Format(" %dx%d", thumb.GetWidth(), thumb.GetHeight());
    for (const auto& comment : LumImage::GetComments(path.c_str())) facts += comment.value_or("-");
    for (const ToviItem& item : photo.GetItems()) facts += Cp932::SortKey(item.GetValue());
    return facts;
}

TEST(Threads, FindWhatOneThreadFinds)
{
    const OpenedSample sample(DeliveryBuilder({.photos = photos, .drawings = 0}));
    // One in other letters, one that a link brings in from outside, one that is missing, one whose
    // path isn't made.
    const CString outside = sample.temp.Path("outside.jpg");
    std::filesystem::rename(sample.Photo(0).GetImagePath(), outside);
    std::filesystem::create_symlink(outside, sample.Photo(0).GetImagePath());
    std::filesystem::rename(sample.Photo(1).GetImagePath(),
                            CString(sample.document->RootPath()) + "PIC/p0000002.jpg");
    std::filesystem::remove(sample.Photo(2).GetImagePath());
    sample.Photo(3).ClearImagePath();

    constexpr int workers = 4;
    std::vector<std::vector<CString>> found(workers);
    std::vector<std::vector<CString>> names(workers);
    std::vector<std::thread> threads;
    for (std::size_t worker = 0; worker < workers; ++worker) {
        threads.emplace_back([&, worker] {
            for (int i = 0; i < photos; ++i) {
                found[worker].push_back(FactsOf(sample.Photo(i)));
                names[worker].push_back(NewTemporaryName());
            }
        });
    }
    for (std::thread& thread : threads) thread.join();

    std::set<CString> different;
    for (const auto& own : names) different.insert(own.begin(), own.end());
    EXPECT_EQ(different.size(), std::size_t{workers * photos});
    for (int i = 0; i < photos; ++i) {
        const CString path = sample.Photo(i).ReadablePath();
        EXPECT_EQ(path.empty(), i == 0 || i == 2) << i;
        for (const auto& own : found) {
            EXPECT_EQ(own[static_cast<std::size_t>(i)], FactsOf(sample.Photo(i))) << i;
            EXPECT_TRUE(own[static_cast<std::size_t>(i)].starts_with(path + " ")) << i;
        }
    }
}

TEST(WorkAhead, TakesInOrderWhatWasMadeAheadAndNoMore)
{
    constexpr int count = 200;
    constexpr int ahead = 7;
    std::atomic<int> takes = 0;
    std::atomic<bool> tooEarly = false;
    int expected = 0;
    WorkAhead<int>(
        count, ahead,
        [&](int number) {
            if (number >= takes + ahead) tooEarly = true;
            return number * number;
        },
        [&](int number, int result) {
            EXPECT_EQ(number, expected++);
            EXPECT_EQ(result, number * number);
            ++takes;
            return number != count - 2;
        });
    EXPECT_EQ(takes, count - 1) << "until it was told to stop";
    EXPECT_FALSE(tooEarly);

    const auto fails = [](int number) -> int {
        if (number == 3) throw InvalidArgument("a maker fails");
        return number;
    };
    expected = 0;
    const auto take = [&expected](int number, int) { return number == expected++; };
    EXPECT_THROW(WorkAhead<int>(count, ahead, fails, take), InvalidArgument);
    EXPECT_EQ(expected, 3);
}
} // namespace
