#pragma once

#include "platform/text/Text.h"

#include <chrono>
#include <optional>
#include <string_view>

/// Days and moments as deliveries and cameras write them.

using Day = std::chrono::sys_days;
/// Of a camera's clock, whose zone nobody knows.
using Moment = std::chrono::sys_seconds;

/// The day that \p text tells as CCYY-MM-DD; nothing when it has another form or there is no such
/// day.
std::optional<Day> DayOf(std::string_view text);

/// True when \p text has that form, whatever day it tells.
bool HasFormOfDay(std::string_view text);

/// The day that it is here and now.
TOVI_EXPORT Day Today();

/// The moment that \p text tells as "CCYY:MM:DD hh:mm:ss", Exif's form; nothing as above.
std::optional<Moment> MomentOf(std::string_view text);
