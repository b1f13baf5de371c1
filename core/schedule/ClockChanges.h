#pragma once

#include <cstdint>
#include <vector>

// A moment at which local time jumps. Local times are counted in seconds since 1970-01-01 00:00 local.
struct ClockChange {
    std::int64_t at;      // the first instant of the new rule
    std::int64_t before;  // local time reached by the old rule at `at`
    std::int64_t after;   // local time shown by the new rule at `at`

    [[nodiscard]] bool Skips() const { return after > before; }
    // Whether a local time is skipped or repeated by this change.
    [[nodiscard]] bool Covers(std::int64_t local) const {
        return Skips() ? local >= before && local < after : local >= after && local < before;
    }
};

// The clock changes of the system's zone after `from` up to `to`, earliest first. If two changes are less
// than a day apart, one or both may be missed.
[[nodiscard]] std::vector<ClockChange> ClockChanges(std::int64_t from, std::int64_t to);

// The changes of the 366 days after `now`.
[[nodiscard]] std::vector<ClockChange> ClockChangesOfYear(std::int64_t now);
