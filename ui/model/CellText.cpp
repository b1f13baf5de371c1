#include "ui/model/CellText.h"

#include <stdexcept>

#include "core/platform/LocalTime.h"
#include "core/task/SCVShchedulerTask.h"
#include "util/Path.h"

namespace {

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

std::wstring WholeText(const CSCVShchedulerTask& task, int column, std::int64_t now) {
    switch (column) {
        case kFileNameColumn:
            return GetFileName(task.m_strProjectPath);
        case kLastRunTimeColumn:
            return TimeText(task.m_tLastRunTime);
        case kLastRunResultColumn:
            return task.m_strLastRunResult;
        case kNextRunTimeColumn:
            return TimeText(ShownNextRunTime(task, now));
        case kFilePathColumn:
            return GetFolderPath(task.m_strProjectPath);
        default:
            return {};
    }
}

}  // namespace

std::wstring CellText(const CSCVShchedulerTask& task, int column, std::int64_t now) {
    return WholeText(task, column, now).substr(0, kLongestCell);
}

std::int64_t ShownNextRunTime(const CSCVShchedulerTask& task, std::int64_t now) {
    if (task.m_bEnable == 0) {
        return 0;
    }
    try {
        return task.GetNextRunTime(now);
    } catch (const std::invalid_argument&) {
        return 0;
    }
}
