#include "core/task/SCVShchedulerTask.h"

#include "core/platform/LocalTime.h"
#include "core/task/TaskDays.h"
#include "core/task/TaskSwitches.h"

CSCVShchedulerTask::CSCVShchedulerTask(std::int64_t now) {
    Reset(now);
}

void CSCVShchedulerTask::ClearCommands() noexcept {
    for (const TaskSwitch& row : kTaskSwitches) {
        this->*row.flag = 0;
    }
}

void CSCVShchedulerTask::Reset(std::int64_t now) {
    const LocalTime today = ToLocalTime(now);
    m_tUntilTime = FromLocalTime(today.year, today.month, today.day, 23, 59, 59);
    m_tStartTime = now + 300;
    m_tLastRunTime = 0;

    m_bEnable = 1;
    ClearCommands();
    for (const TaskDay& day : kTaskDays) {
        this->*day.flag = 0;
    }
    m_bRepeatOnMonthly = 0;
    m_bEnableEvery = 0;
    m_nEveryValue = 1;
    m_nEveryUnit = 1;

    for (const TaskSwitch& row : kTaskSwitches) {
        if (row.text != nullptr && !row.hasElement) {
            (this->*row.text).clear();
        }
    }
    for (std::wstring* text : {&m_strProjectPath, &m_strLastRunResult, &m_strIniFile, &m_strIniSection}) {
        text->clear();
    }
}
