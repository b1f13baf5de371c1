#include "core/task/SCVShchedulerTask.h"

#include "core/platform/LocalTime.h"

CSCVShchedulerTask::CSCVShchedulerTask(std::int64_t now) {
    Reset(now);
}

void CSCVShchedulerTask::ClearCommands() noexcept {
    for (std::int32_t* flag : {&m_bResetUrls, &m_bDeleteUrls, &m_bDeleteResults, &m_bAddUrls,
                               &m_bGenerateUrls, &m_bImportInputValues, &m_bStart, &m_bRestart, &m_bDdrSwitch,
                               &m_bApplyFilter, &m_bExportResults, &m_bExportFailedUrls, &m_bExit}) {
        *flag = 0;
    }
}

void CSCVShchedulerTask::Reset(std::int64_t now) {
    const LocalTime today = ToLocalTime(now);
    m_tUntilTime = FromLocalTime(today.year, today.month, today.day, 23, 59, 59);
    m_tStartTime = now + 300;
    m_tLastRunTime = 0;

    m_bEnable = 1;
    ClearCommands();
    for (std::int32_t* flag :
         {&m_bRepeatOnMon, &m_bRepeatOnTue, &m_bRepeatOnWen, &m_bRepeatOnThu, &m_bRepeatOnFri,
          &m_bRepeatOnSat, &m_bRepeatOnSun, &m_bRepeatOnMonthly, &m_bEnableEvery}) {
        *flag = 0;
    }
    m_nEveryValue = 1;
    m_nEveryUnit = 1;

    for (std::wstring* text :
         {&m_strProjectPath, &m_strUrlsFile, &m_strScriptFile, &m_strExportFile, &m_strFailedUrlsFile,
          &m_strFilterArgument, &m_strLastRunResult, &m_strIniFile, &m_strIniSection}) {
        text->clear();
    }
}
