#include "windows/loader/LoadDesk.h"

#include <gmock/gmock.h>

using namespace std::chrono_literals;

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t room = 100;

/// A desk of two workers, whose clock stands still but for what a test adds.
struct Desk : LoadDesk
{
    explicit Desk(int atOnce = 2) : LoadDesk(atOnce, room) {}

    static LoadWish Wish(const CString& path, Urgency urgency = Urgency::Visible,
                         LoadKind kind = LoadKind::Picture,
                         std::shared_ptr<const void> place = nullptr)
    {
        return {{std::move(place), path, kind}, urgency, {}};
    }
    void Want(std::vector<LoadWish> wishes, Viewer viewer = nullptr)
    {
        LoadDesk::Want(viewer, std::move(wishes));
    }
    /// What is taken until nothing is due; it runs from then on.
    std::vector<CString> TakeAll()
    {
        std::vector<CString> paths;
        while (auto task = Take(now)) {
            paths.push_back(task->key.path);
            tasks.push_back(std::move(*task));
        }
        return paths;
    }
    bool Finish(const CString& path, std::size_t bytes, bool ok = true)
    {
        auto loaded = std::make_shared<Loaded>();
        loaded->ok = ok;
        loaded->bytes = bytes;
        loaded->stamp = "of " + path;
        return Finish(path, std::move(loaded));
    }
    bool Finish(const CString& path, LoadedPtr loaded)
    {
        const auto found = std::ranges::find_if(
            tasks, [&path](const Task& task) { return task.key.path == path; });
        const Task task = *found;
        tasks.erase(found);
        return LoadDesk::Finish(task, std::move(loaded));
    }
    /// Reads all that is due, one after the other, and tells in which order.
    std::vector<CString> ReadAll(std::size_t bytes = 1)
    {
        std::vector<CString> order;
        while (auto task = Take(now)) {
            tasks.push_back(*task);
            order.push_back(task->key.path);
            Finish(task->key.path, bytes);
            EXPECT_LE(BytesInHand(), room);
        }
        return order;
    }
    bool Has(const CString& path) { return InHand({nullptr, path}) != nullptr; }

    Time now = Time(1h);
    std::vector<Task> tasks;
};

TEST(LoadDesk, ReadsWhatIsInSightFirst)
{
    Desk desk;
    const int list = 0;
    desk.Want({Desk::Wish("idle", Urgency::Idle), Desk::Wish("previous", Urgency::Previous),
               Desk::Wish("next", Urgency::Next), Desk::Wish("first"), Desk::Wish("second")});
    desk.Want({Desk::Wish("of a list"), Desk::Wish("next", Urgency::Visible)}, &list);
    EXPECT_THAT(desk.ReadAll(),
                ElementsAre("of a list", "next", "first", "second", "previous", "idle"));
}

TEST(LoadDesk, LeavesAWorkerFreeForWhatComesIntoSight)
{
    Desk desk;
    desk.Want({Desk::Wish("next", Urgency::Next), Desk::Wish("then", Urgency::Next)});
    EXPECT_THAT(desk.TakeAll(), ElementsAre("next"));
    desk.Want({Desk::Wish("seen"), Desk::Wish("also"), Desk::Wish("then", Urgency::Next)});
    EXPECT_THAT(desk.TakeAll(), ElementsAre("seen"));
    desk.Finish("next", 1);
    EXPECT_THAT(desk.TakeAll(), ElementsAre("also"));

    Desk alone(1);
    alone.Want({Desk::Wish("next", Urgency::Next)});
    EXPECT_THAT(alone.TakeAll(), ElementsAre("next"));
}

TEST(LoadDesk, GivesUpWhatNobodyWantsAnyMore)
{
    Desk desk(1);
    desk.Want({Desk::Wish("running"), Desk::Wish("waiting")});
    EXPECT_THAT(desk.TakeAll(), ElementsAre("running"));
    desk.Want({Desk::Wish("other")});
    EXPECT_FALSE(desk.Finish("running", 1)) << "a late result is nobody's";
    EXPECT_THAT(desk.ReadAll(), ElementsAre("other"));
    EXPECT_TRUE(desk.IsIdle(desk.now));
    EXPECT_TRUE(desk.Has("running")) << "but it was kept";
}

TEST(LoadDesk, KeepsWithinTheBudgetWhatIsNeededMost)
{
    Desk desk;
    desk.Want({Desk::Wish("old"), Desk::Wish("used")});
    desk.ReadAll(20);
    desk.Want({Desk::Wish("seen"), Desk::Wish("next", Urgency::Next),
               Desk::Wish("previous", Urgency::Previous)});
    EXPECT_TRUE(desk.Has("used"));
    desk.ReadAll(25);
    EXPECT_TRUE(desk.Has("seen") && desk.Has("next") && desk.Has("previous"));
    EXPECT_FALSE(desk.Has("old"));

    desk.Want({Desk::Wish("seen"), Desk::Wish("large"), Desk::Wish("next", Urgency::Next),
               Desk::Wish("previous", Urgency::Previous)});
    EXPECT_THAT(desk.ReadAll(40), ElementsAre("large", "previous"));
    EXPECT_TRUE(desk.Has("seen") && desk.Has("large") && desk.Has("next"));
    EXPECT_FALSE(desk.Has("previous"));

    desk.SetBudget(39);
    EXPECT_LE(desk.BytesInHand(), 39u);
}

TEST(LoadDesk, DoesNotReadAgainWhatHasNoRoom)
{
    Desk desk;
    desk.Want({Desk::Wish("seen"), Desk::Wish("next", Urgency::Next),
               Desk::Wish("then", Urgency::Next),
               Desk::Wish("survey", Urgency::Idle, LoadKind::Survey)});
    EXPECT_THAT(desk.ReadAll(60), ElementsAre("seen", "next", "survey")) << "which takes none";
    EXPECT_TRUE(desk.IsIdle(desk.now));
    desk.Want({Desk::Wish("next")});
    EXPECT_THAT(desk.ReadAll(60), ElementsAre("next"));
}

TEST(LoadDesk, LetsOthersPassWhatDoesNotAnswer)
{
    const auto share = std::make_shared<int>();
    const auto of = [&](const CString& path, LoadKind kind = LoadKind::Picture) {
        return Desk::Wish(path, Urgency::Visible, kind, share);
    };
    Desk desk;
    desk.Want({of("1"), of("2"), of("3"), of("4"), of("5"), Desk::Wish("elsewhere")});
    EXPECT_THAT(desk.TakeAll(), ElementsAre("1", "2"));
    desk.now += 3s;
    EXPECT_THAT(desk.TakeAll(), ElementsAre("elsewhere")) << "two wait in the same place";
    desk.Finish("1", 1);
    EXPECT_THAT(desk.TakeAll(), ElementsAre("3")) << "it answers again";
}

TEST(LoadDesk, ChecksOneAtATime)
{
    Desk desk(4);
    desk.Want({Desk::Wish("1", Urgency::Visible, LoadKind::Check),
               Desk::Wish("2", Urgency::Visible, LoadKind::Check), Desk::Wish("3")});
    EXPECT_THAT(desk.TakeAll(), ElementsAre("1", "3"));
    desk.Finish("1", 1);
    EXPECT_THAT(desk.TakeAll(), ElementsAre("2"));
}

TEST(LoadDesk, ComparesWithItsFileWhatComesIntoSightAgain)
{
    Desk desk(1);
    const auto lookAgain = [&desk] {
        desk.Want({});
        desk.Want({Desk::Wish("seen"), Desk::Wish("new")});
    };
    desk.Want({Desk::Wish("seen")});
    desk.ReadAll();
    desk.Want({Desk::Wish("seen")});
    EXPECT_THAT(desk.TakeAll(), IsEmpty()) << "it was in sight all the time";

    lookAgain();
    EXPECT_TRUE(desk.Has("seen")) << "to be shown meanwhile";
    ASSERT_THAT(desk.TakeAll(), ElementsAre("new"));
    desk.Finish("new", 1);
    ASSERT_THAT(desk.TakeAll(), ElementsAre("seen"));
    EXPECT_EQ(desk.tasks.back().known, "of seen");
    EXPECT_FALSE(desk.Finish("seen", nullptr)) << "it still holds";
    EXPECT_TRUE(desk.IsIdle(desk.now));

    lookAgain();
    ASSERT_THAT(desk.TakeAll(), ElementsAre("seen"));
    EXPECT_TRUE(desk.Finish("seen", 0, false)) << "the file is gone";
    desk.TakeAll();
    desk.Finish("new", nullptr);
    lookAgain();
    desk.TakeAll();
    EXPECT_EQ(desk.tasks.back().known, "") << "a failure is tried again";
}

TEST(LoadDesk, ForgetsAPlaceThatIsClosed)
{
    const auto place = std::make_shared<int>();
    const auto of = [&](const CString& path) {
        return Desk::Wish(path, Urgency::Visible, LoadKind::Picture, place);
    };
    Desk desk(1);
    desk.Want({of("read"), of("running"), Desk::Wish("elsewhere")});
    EXPECT_THAT(desk.TakeAll(), ElementsAre("read"));
    desk.Finish("read", 10);
    EXPECT_THAT(desk.TakeAll(), ElementsAre("running"));
    desk.Want({Desk::Wish("elsewhere")});
    desk.Forget(place.get());
    EXPECT_FALSE(desk.Finish("running", 10));
    EXPECT_EQ(desk.BytesInHand(), 0u);
    EXPECT_THAT(desk.ReadAll(), ElementsAre("elsewhere"));
}
} // namespace
