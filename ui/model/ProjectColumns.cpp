#include "ui/model/ProjectColumns.h"

#include <stdexcept>

#include "core/platform/LocalTime.h"
#include "core/task/SCVShchedulerTask.h"
#include "util/CaseFold.h"
#include "util/Path.h"

namespace {

using Task = CSCVShchedulerTask;

std::wstring TwoDigits(int number) {
    return {static_cast<wchar_t>(L'0' + number / 10), static_cast<wchar_t>(L'0' + number % 10)};
}

// dd/mm/yyyy hh:mm in local time; empty for an instant that is not set or has no local time.
std::wstring TimeText(std::int64_t instant) {
    const LocalTime local = instant > 0 ? ToLocalTime(instant) : LocalTime{};
    if (local.hour < 0) {
        return {};
    }
    return TwoDigits(local.day) + L'/' + TwoDigits(local.month) + L'/' + std::to_wstring(local.year) + L' ' +
           TwoDigits(local.hour) + L':' + TwoDigits(local.minute);
}

std::wstring FileNameText(const Task& task, std::int64_t) {
    return GetFileName(task.m_strProjectPath);
}

SortKey FileNameKey(const Task& task, std::int64_t) {
    return ToUpperText(StripFileExtension(task.m_strProjectPath));
}

std::wstring LastRunTimeText(const Task& task, std::int64_t) {
    return TimeText(task.m_tLastRunTime);
}

SortKey LastRunTimeKey(const Task& task, std::int64_t) {
    return task.m_tLastRunTime;
}

std::wstring LastRunResultText(const Task& task, std::int64_t) {
    return task.m_strLastRunResult;
}

SortKey LastRunResultKey(const Task& task, std::int64_t) {
    return ToUpperText(task.m_strLastRunResult);
}

std::wstring NextRunTimeText(const Task& task, std::int64_t now) {
    return TimeText(ShownNextRunTime(task, now));
}

SortKey NextRunTimeKey(const Task& task, std::int64_t now) {
    return ShownNextRunTime(task, now);
}

std::wstring FilePathText(const Task& task, std::int64_t) {
    return GetFolderPath(task.m_strProjectPath);
}

SortKey FilePathKey(const Task& task, std::int64_t) {
    return ToUpperText(task.m_strProjectPath);
}

}  // namespace

constexpr std::array<stProjectColumn, kProjectColumnCount> kProjectColumns{{
    {L"Project File Name", 200, FileNameText, FileNameKey},
    {L"Last Run Time", 110, LastRunTimeText, LastRunTimeKey},
    {L"Last Run Result", 100, LastRunResultText, LastRunResultKey},
    {L"Next Run Time", 110, NextRunTimeText, NextRunTimeKey},
    {L"File Path", 400, FilePathText, FilePathKey},
}};

const stProjectColumn* FindProjectColumn(int index) noexcept {
    return index >= 0 && index < kProjectColumnCount ? &kProjectColumns[static_cast<std::size_t>(index)]
                                                     : nullptr;
}

std::wstring CellText(const Task& task, int column, std::int64_t now) {
    const stProjectColumn* found = FindProjectColumn(column);
    return found != nullptr ? found->text(task, now).substr(0, kLongestCell) : std::wstring();
}

std::int64_t ShownNextRunTime(const Task& task, std::int64_t now) {
    if (task.m_bEnable == 0) {
        return 0;
    }
    try {
        return task.GetNextRunTime(now);
    } catch (const std::invalid_argument&) {
        return 0;
    }
}
