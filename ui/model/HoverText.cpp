#include "ui/model/HoverText.h"

#include <exception>

#include "core/check/Check.h"
#include "core/platform/Clock.h"
#include "core/platform/Platform.h"
#include "core/schedule/NextRuns.h"
#include "core/schedule/ScheduleText.h"
#include "core/task/SCVShchedulerTaskArray.h"

namespace {

constexpr int kRuns = 5;

// The lines of the schedule; empty when its times cannot be computed, which is then one of the findings.
std::wstring ScheduleLines(const CSCVShchedulerTask& task, std::int64_t now) {
    try {
        std::wstring lines = L"\r\nSchedule: " + ScheduleInWords(task, now);
        for (const std::int64_t run : NextRuns(task, now, kRuns)) {
            lines += L"\r\nNext: " + FormatWithWeekday(run);
        }
        return lines;
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace

std::wstring HoverText(CSCVShchedulerTask& task, const CSCVShchedulerTaskArray& tasks,
                       const CPlatform& platform) {
    const std::int64_t now = platform.clock.Now();
    std::wstring text = task.m_strProjectPath;
    if (!task.m_strLastRunResult.empty()) {
        text += L"\r\nLast run: " + FormatWithWeekday(task.m_tLastRunTime) + L", " + task.m_strLastRunResult;
    }
    text += task.m_bEnable == 0 ? L"\r\nNot ticked: it does not run by itself." : L"";
    text += ScheduleLines(task, now);
    for (const Finding& finding : FindProblemsOf(task, tasks, platform.shell, now)) {
        text += L"\r\nCheck: " + finding.message;
    }
    return text;
}
