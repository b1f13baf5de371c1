#include "core/platform/LocalTime.h"

#include <cstdlib>
#include <ctime>
#include <stdexcept>

namespace {

// Windows' 64-bit functions: the time_t of a 32-bit build ends in 2038.
bool Convert(std::int64_t instant, std::tm& local) noexcept {
#ifdef _WIN32
    const __time64_t time = instant;
    return _localtime64_s(&local, &time) == 0;
#else
    const std::time_t time = instant;
    return localtime_r(&time, &local) != nullptr;
#endif
}

std::int64_t Convert(std::tm& local) noexcept {
#ifdef _WIN32
    return _mktime64(&local);
#else
    return std::mktime(&local);
#endif
}

bool IsBetween(int value, int low, int high) noexcept {
    return value >= low && value <= high;
}

}  // namespace

LocalTime ToLocalTime(std::int64_t instant) noexcept {
    std::tm local{};
    // ISO dates and the standard library's calendar end with these years. Windows' functions end with the
    // year 3000.
    if (!Convert(instant, local) || !IsBetween(local.tm_year, 1 - 1900, 9999 - 1900)) {
        return {};
    }
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_wday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

std::int64_t FromLocalTime(int year, int month, int day, int hour, int minute, int second) {
    if (year < 1900 || !IsBetween(month, 1, 12) || !IsBetween(day, 1, 31) || !IsBetween(hour, 0, 23) ||
        !IsBetween(minute, 0, 59) || !IsBetween(second, 0, 59)) {
        throw std::invalid_argument("a date or time that no calendar holds");
    }
    std::tm local{};
    local.tm_year = year - 1900;
    local.tm_mon = month - 1;
    local.tm_mday = day;
    local.tm_hour = hour;
    local.tm_min = minute;
    local.tm_sec = second;
    local.tm_wday = -1;
    local.tm_isdst = -1;
    const std::int64_t instant = Convert(local);
    // -1 means failure, but also one second before 1970 where such times are supported. Only a conversion
    // that succeeds sets the weekday.
    if (instant == -1 && local.tm_wday < 0) {
        // Only msvcrt refuses dates that pass the checks above; tests under Wine cover that.
        throw std::invalid_argument("a local date that the system cannot convert");  // GCOVR_EXCL_LINE
    }
    return instant;
}

void RefreshTimeZone() {
#ifdef _WIN32
    // Not SetEnvironmentVariable: the C run-time keeps its own copy of the environment and reads TZ there.
    _putenv("TZ=");
    _tzset();
#else
    tzset();
#endif
}
