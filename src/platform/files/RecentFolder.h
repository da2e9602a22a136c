#pragma once

#include "platform/text/Text.h"

#include <chrono>
#include <mutex>

/// Keeps what looks over a whole folder from doing so again for each of many files that are written
/// into it one after the other.
class RecentFolder
{
public:
    /// True when \p folder isn't the one that was noted last, or some seconds have gone by since.
    bool IsDue(const CString& folder)
    {
        const std::lock_guard guard(mutex);
        return folder != noted || std::chrono::steady_clock::now() - when > freshFor;
    }
    void Note(const CString& folder)
    {
        const std::lock_guard guard(mutex);
        noted = folder;
        when = std::chrono::steady_clock::now();
    }

private:
    static constexpr auto freshFor = std::chrono::seconds(5);

    std::mutex mutex;
    CString noted;
    std::chrono::steady_clock::time_point when;
};
