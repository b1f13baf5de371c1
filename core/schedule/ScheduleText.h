#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/schedule/ClockChanges.h"

class CSCVShchedulerTask;

// A task's schedule in words. All functions with a task throw what GetNextRunTime throws.

// The last run of an Every rule that ends for good, seen from `now`: without weekdays and months the rule
// stops for ever at the first run whose successor would be later in the day than the until time. 0 when it
// has ended already; nothing for a task without such a rule or with one that never ends.
// `changes` are those of ClockChangesOfYear(now); clock changes of later years are ignored.
[[nodiscard]] std::optional<std::int64_t> LastRunForGood(const CSCVShchedulerTask& task, std::int64_t now,
                                                         const std::vector<ClockChange>& changes);

// "ends for good on 2026-11-23 with the run of 18:00" or "has ended for good, as the next run would be later
// than the until time"; empty when LastRunForGood returns nothing.
[[nodiscard]] std::wstring EndForGoodText(const CSCVShchedulerTask& task, std::int64_t now,
                                          const std::vector<ClockChange>& changes);

// Warnings about what may surprise in the schedule: that it ends for good, and that it runs from midnight.
// Sentences without a full stop.
[[nodiscard]] std::vector<std::wstring> ScheduleWarnings(const CSCVShchedulerTask& task, std::int64_t now);

// The whole schedule, seen from `now`, whether the task is enabled or not. For instance:
//   "once, on 23 Nov 2026 at 08:00"
//   "every 60 minutes until 18:00, only on 23 Nov 2026; ends for good"
//   "on Mon and Thu at 08:00 and on day 1 of each month at 08:00"
//   "first on 23 Nov 2026 at 08:00, then every day from 00:00 until 18:00, every 2 hours"
[[nodiscard]] std::wstring ScheduleInWords(const CSCVShchedulerTask& task, std::int64_t now);
// The same for many tasks. `changes` are those of ClockChangesOfYear(now).
[[nodiscard]] std::wstring ScheduleInWords(const CSCVShchedulerTask& task, std::int64_t now,
                                           const std::vector<ClockChange>& changes);

// "Mon 2026-11-23 18:00", in local time; "-" for 0.
[[nodiscard]] std::wstring FormatWithWeekday(std::int64_t instant);
