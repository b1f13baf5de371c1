#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Times on the command line and in reports.

// The instant of an ISO local time ("2024-03-31T02:30"; with or without seconds; a blank may replace the T; a
// date alone means midnight) or of a number of seconds since 1970. Nothing when the text is neither or is an
// impossible date or time. For a local time that a clock change skips or repeats see FromLocalTime.
[[nodiscard]] std::optional<std::int64_t> ParseTime(std::string_view text);

// The minute of the day of "18:00"; nothing when the text is no such time.
[[nodiscard]] std::optional<int> ParseTimeOfDay(std::string_view text);

// "18:00" for minute 1080 of the day.
[[nodiscard]] std::wstring FormatTimeOfDay(int minute);

// "2024-03-31 02:30" in local time; "-" for 0; the number of seconds for an instant that has no local time.
[[nodiscard]] std::wstring FormatMinute(std::int64_t instant);
// As FormatMinute, to the second.
[[nodiscard]] std::wstring FormatSecond(std::int64_t instant);
