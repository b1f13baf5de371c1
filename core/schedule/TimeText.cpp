#include "core/schedule/TimeText.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cwchar>
#include <stdexcept>

#include "core/platform/LocalTime.h"

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// A number that takes up the whole text.
std::optional<std::int64_t> ParseNumber(std::string_view text) {
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

// True when `text` has the shape of the pattern, in which "0" stands for a digit.
bool HasShape(std::string_view text, std::string_view pattern) {
    if (text.size() != pattern.size()) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (pattern[i] == '0' ? !IsDigit(text[i]) : text[i] != pattern[i]) {
            return false;
        }
    }
    return true;
}

std::wstring Format(std::int64_t instant, bool seconds) {
    if (instant == 0) {
        return L"-";
    }
    const LocalTime local = ToLocalTime(instant);
    if (local.hour < 0) {
        return std::to_wstring(instant);
    }
    std::array<wchar_t, 80> text{};
    std::swprintf(text.data(), text.size(), L"%04d-%02d-%02d %02d:%02d:%02d", local.year, local.month,
                  local.day, local.hour, local.minute, local.second);
    constexpr std::size_t kSeconds = 3;
    std::wstring result = text.data();
    return seconds ? result : result.substr(0, result.size() - kSeconds);
}

}  // namespace

std::optional<std::int64_t> ParseTime(std::string_view text) {
    if (const auto seconds = ParseNumber(text)) {
        return seconds;
    }
    std::string iso(text);
    if (iso.size() > 10 && iso[10] == ' ') {
        iso[10] = 'T';
    }
    if (HasShape(iso, "0000-00-00")) {
        iso += "T00:00";
    }
    if (HasShape(iso, "0000-00-00T00:00")) {
        iso += ":00";
    }
    if (!HasShape(iso, "0000-00-00T00:00:00")) {
        return std::nullopt;
    }
    const auto part = [&iso](std::size_t at, std::size_t size) {
        return static_cast<int>(ParseNumber(std::string_view(iso).substr(at, size)).value_or(0));
    };
    const std::chrono::year_month_day date{std::chrono::year(part(0, 4)),
                                           std::chrono::month(static_cast<unsigned>(part(5, 2))),
                                           std::chrono::day(static_cast<unsigned>(part(8, 2)))};
    if (!date.ok()) {
        return std::nullopt;  // the system would carry 31 April over into May
    }
    try {
        return FromLocalTime(part(0, 4), part(5, 2), part(8, 2), part(11, 2), part(14, 2), part(17, 2));
    } catch (const std::invalid_argument&) {
        return std::nullopt;
    }
}

std::optional<int> ParseTimeOfDay(std::string_view text) {
    if (!HasShape(text, "00:00")) {
        return std::nullopt;
    }
    const auto hour = ParseNumber(text.substr(0, 2)).value_or(24);
    const auto minute = ParseNumber(text.substr(3)).value_or(60);
    return hour < 24 && minute < 60 ? std::optional(static_cast<int>(hour * 60 + minute)) : std::nullopt;
}

std::wstring FormatTimeOfDay(int minute) {
    std::array<wchar_t, 32> text{};
    std::swprintf(text.data(), text.size(), L"%02d:%02d", minute / 60, minute % 60);
    return text.data();
}

std::wstring FormatMinute(std::int64_t instant) {
    return Format(instant, false);
}

std::wstring FormatSecond(std::int64_t instant) {
    return Format(instant, true);
}
