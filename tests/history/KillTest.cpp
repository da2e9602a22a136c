// An inspection whose program is killed again and again. TOVI_KILLS is how often, 20 by default.

#include "history/HistoryOpening.h"
#include "history/HistoryPath.h"
#include "platform/files/Digest.h"
#include "review/LabelRules.h"
#include "support/OpenedSample.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <random>
#include <sstream>
#include <thread>

namespace
{
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int photoCount = 60;
/// What a disk that follows at once may be behind.
constexpr milliseconds allowance(100);

/// Something that was asked for: when, and what stands after it.
struct Asked
{
    std::int64_t time = 0;
    CString state;
};

std::int64_t Now()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch())
        .count();
}

CString StateOf(const ToviData& data)
{
    return TextDigest(PackReviews(data.GetReviews()));
}

LabelEdit RandomEdit(ToviData& data, std::mt19937& random)
{
    std::vector<int> photos{static_cast<int>(random() % photoCount)};
    if (random() % 20 == 0) {
        for (int photo = 0; photo < photoCount; photo += 2) photos.push_back(photo);
    }
    const unsigned int slot = random() % labelCount;
    const CString comment = Format("所見%u", static_cast<unsigned int>(random() % 100));
    return data.GetLabelEdits().Make(LabelEdit::Batch, photos, [&](PhotoReview& review) {
        if (slot == LabelComment) return LabelRules::EditComment(review, comment);
        if (review.labels[slot]) return LabelRules::Remove(review, slot);
        LabelRules::Paste(review, slot);
    });
}

CString StateAfter(PhotoReviews reviews, const LabelEdit& edit)
{
    for (const LabelEdit::Change& change : edit.changes) {
        reviews[static_cast<std::size_t>(change.photo)] = change.after;
    }
    return TextDigest(PackReviews(reviews));
}

/// Notes in a file what is asked for before it is done.
class Log
{
public:
    explicit Log(const CString& path)
        : file(open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600))
    {}
    void Note(const CString& state) const
    {
        const CString line = std::to_string(Now()) + ' ' + state + '\n';
        if (write(file, line.data(), line.size()) < 0) _exit(1);
    }

private:
    int file;
};

/// A program that goes on with the inspection where it is, works without an end, and notes in the
/// file \p logPath what it is asked for.
[[noreturn]] void Inspect(OpenedSample& sample, unsigned int seed, const CString& logPath)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const Log log(logPath);
    std::mt19937 random(seed);
    sample.services.user.options = {0};
    const OpenedHistory opened =
        OpenHistory(*sample.document, {}, HistoryPathOf(sample.document->RootPath()));
    ToviData& data = *sample.document;
    // Of the changes of this run.
    std::vector<CString> states{StateOf(data)};
    for (std::size_t at = 0;;) {
        const unsigned int what = random() % 8;
        if (what == 0 && at > 0) {
            log.Note(states[--at]);
            opened.history->Undo();
        } else if (what == 1 && at + 1 < states.size()) {
            log.Note(states[++at]);
            opened.history->Redo();
        } else {
            LabelEdit edit = RandomEdit(data, random);
            if (edit.changes.empty()) continue;
            states.resize(++at);
            states.push_back(StateAfter(data.GetReviews(), edit));
            log.Note(states.back());
            data.GetLabelEdits().Apply(std::move(edit));
        }
        std::this_thread::sleep_for(milliseconds(random() % 15));
    }
}

/// Writes and syncs beside the history for \p time. The longest that it took, in nanoseconds.
std::int64_t SyncBeside(const TempFolder& folder, milliseconds time)
{
    const int file = open(folder.Path("beside").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    const CString bytes(4096, 'x');
    std::int64_t longest = 0;
    for (const Clock::time_point end = Clock::now() + time; Clock::now() < end;) {
        const std::int64_t start = Now();
        if (pwrite(file, bytes.data(), bytes.size(), 0) < 0 || fdatasync(file) != 0) break;
        longest = std::max(longest, Now() - start);
        std::this_thread::sleep_for(milliseconds(5));
    }
    close(file);
    return longest;
}

std::vector<Asked> ReadLog(const TempFolder& folder)
{
    std::istringstream lines(folder.Read("log"));
    std::vector<Asked> all;
    for (Asked asked; lines >> asked.time >> asked.state;) all.push_back(asked);
    return all;
}

TEST(Killed, InspectionIsOfferedBack)
{
    const char* const wanted = std::getenv("TOVI_KILLS");
    const int kills = wanted == nullptr ? 20 : std::atoi(wanted);
    OpenedSample sample(DeliveryBuilder({.photos = photoCount, .drawings = 0, .images = false}));
    const TempFolder state;
    setenv("XDG_STATE_HOME", state.Path().c_str(), 1);
    std::mt19937 random(kills == 20 ? 20 : std::random_device()());
    CString before = StateOf(*sample.document);
    std::size_t askedInAll = 0;
    std::size_t unwritten = 0;
    std::int64_t oldest = 0;
    std::int64_t slowest = 0;
    int late = 0;
    int losses = 0;
    for (int kill = 0; kill < kills; ++kill) {
        const unsigned int seed = random();
        const pid_t program = fork();
        ASSERT_GE(program, 0);
        if (program == 0) Inspect(sample, seed, state.Path("log"));
        slowest = std::max(slowest, SyncBeside(state, milliseconds(random() % 300)));
        const std::int64_t end = Now();
        ::kill(program, SIGKILL);
        waitpid(program, nullptr, 0);

        sample.Open(sample.temp.Path("PHOTO"));
        sample.services.user.options = {0};
        CString after;
        {
            const OpenedHistory opened =
                OpenHistory(*sample.document, {}, HistoryPathOf(sample.document->RootPath()));
            after = StateOf(*sample.document);
        }
        sample.Open(sample.temp.Path("PHOTO"));
        std::vector<Asked> asked = ReadLog(state);
        std::filesystem::remove(state.Path("log"));
        asked.insert(asked.begin(), Asked{0, before});
        std::size_t kept = asked.size();
        while (kept > 0 && asked[kept - 1].state != after) --kept;
        askedInAll += asked.size() - 1;
        unwritten += asked.size() - kept;
        const std::int64_t age = kept < asked.size() ? end - asked[kept].time : 0;
        oldest = std::max(oldest, age);
        const std::int64_t allowed = std::chrono::nanoseconds(allowance).count();
        // A commit is a sync, perhaps behind one that was under way and one of another file.
        const bool isLost = kept == 0 || age > allowed + 3 * slowest;
        EXPECT_FALSE(isLost) << "kill " << kill << ", seed " << seed;
        losses += isLost;
        late += age > allowed;
        before = after;
    }
    unsetenv("XDG_STATE_HOME");
    const auto inMs = [](std::int64_t time) { return time / 1000000; };
    std::cout << kills << " kills, " << askedInAll << " changes asked for, " << unwritten
              << " not written yet, the oldest of them for " << inMs(oldest) << " ms, " << late
              << " times for more than 100 ms (a bare sync took up to " << inMs(slowest) << " ms); "
              << losses << " losses" << std::endl;
}
} // namespace
