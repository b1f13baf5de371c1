#include "core/schedule/ClockChanges.h"

#include <algorithm>

#include "core/platform/LocalTime.h"
#include "core/schedule/WallClock.h"

namespace {

// Local time at the instant, in seconds; the instant itself when the conversion fails.
std::int64_t Local(std::int64_t instant) {
    const LocalTime local = ToLocalTime(instant);
    if (local.hour < 0) {
        return instant;
    }
    return WallSeconds(DateOf(local), MinuteOfDay(local), local.second);
}

std::int64_t Offset(std::int64_t instant) {
    return Local(instant) - instant;
}

}  // namespace

std::vector<ClockChange> ClockChanges(std::int64_t from, std::int64_t to) {
    std::vector<ClockChange> changes;
    for (std::int64_t low = from; low < to; low += kSecondsPerDay) {
        const std::int64_t offset = Offset(low);
        std::int64_t old = low;                                     // has the old offset
        std::int64_t changed = std::min(low + kSecondsPerDay, to);  // has the new one
        if (Offset(changed) == offset) {
            continue;
        }
        while (changed - old > 1) {
            const std::int64_t middle = old + (changed - old) / 2;
            (Offset(middle) == offset ? old : changed) = middle;
        }
        changes.push_back({changed, changed + offset, Local(changed)});
    }
    return changes;
}

std::vector<ClockChange> ClockChangesOfYear(std::int64_t now) {
    return ClockChanges(now, now + 366 * kSecondsPerDay);
}
