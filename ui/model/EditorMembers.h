#pragma once

#include <cstdint>
#include <string>

#include "core/task/SCVShchedulerTask.h"
#include "ui/resource.h"

// What the task editor's controls hold, named as the task's fields are: check boxes 0 or 1, texts UTF-16,
// pickers in seconds since 1970-01-01 UTC.
struct stEditorMembers {
    std::int32_t m_bDeleteUrls = 0;
    std::int32_t m_bResetUrls = 0;
    std::int32_t m_bDeleteResults = 0;
    std::int32_t m_bStart = 0;
    std::int32_t m_bRestart = 0;
    std::int32_t m_bExportResults = 0;
    std::int32_t m_bApplyFilter = 0;
    std::int32_t m_bExit = 0;
    std::int32_t m_bExportIntoNewFile =
        0;  // the task has no such flag: its export file's name is empty instead
    std::int32_t m_bExportFailedUrls = 0;
    std::int32_t m_bAddUrls = 0;
    std::int32_t m_bGenerateUrls = 0;
    std::int32_t m_bImportInputValues = 0;
    std::wstring m_strExportFile;
    std::wstring m_strFailedUrlsFile;
    std::wstring m_strUrlsFile;
    std::wstring m_strScriptFile;
    std::wstring m_strInputValuesFile;
    std::wstring m_strInputElementName;
    std::wstring m_strInputElementId;

    std::int64_t m_tStartDate = 0;
    std::int64_t m_tStartTime = 0;

    std::int32_t m_bRepeatOnMon = 0;
    std::int32_t m_bRepeatOnTue = 0;
    std::int32_t m_bRepeatOnWen = 0;
    std::int32_t m_bRepeatOnThu = 0;
    std::int32_t m_bRepeatOnFri = 0;
    std::int32_t m_bRepeatOnSat = 0;
    std::int32_t m_bRepeatOnSun = 0;
    std::int32_t m_bRepeatOnMonthly = 0;
    std::int32_t m_bEnableEvery = 0;
    std::int32_t m_nEveryValue = 0;
    std::int32_t m_nEveryUnit = -1;  // index in the combo box, -1 for none
    std::int64_t m_tUntilTime = 0;
};

struct stFlagControl {
    int id;
    std::int32_t stEditorMembers::*member;
    std::int32_t CSCVShchedulerTask::*field;
    bool changesNextRun;
};
// Every check box that stands for a flag of the task.
inline constexpr stFlagControl kFlagControls[] = {
    {IDC_DELETE_URLS, &stEditorMembers::m_bDeleteUrls, &CSCVShchedulerTask::m_bDeleteUrls, false},
    {IDC_RESET_URLS, &stEditorMembers::m_bResetUrls, &CSCVShchedulerTask::m_bResetUrls, false},
    {IDC_DELETE_RESULTS, &stEditorMembers::m_bDeleteResults, &CSCVShchedulerTask::m_bDeleteResults, false},
    {IDC_START_PROJECT, &stEditorMembers::m_bStart, &CSCVShchedulerTask::m_bStart, false},
    {IDC_RESTART_PROJECT, &stEditorMembers::m_bRestart, &CSCVShchedulerTask::m_bRestart, false},
    {IDC_EXPORT_RESULTS, &stEditorMembers::m_bExportResults, &CSCVShchedulerTask::m_bExportResults, false},
    {IDC_APPLY_FILTER, &stEditorMembers::m_bApplyFilter, &CSCVShchedulerTask::m_bApplyFilter, false},
    {IDC_EXIT_WHEN_FINISHED, &stEditorMembers::m_bExit, &CSCVShchedulerTask::m_bExit, false},
    {IDC_EXPORT_FAILED_URLS, &stEditorMembers::m_bExportFailedUrls, &CSCVShchedulerTask::m_bExportFailedUrls,
     false},
    {IDC_ADD_URLS, &stEditorMembers::m_bAddUrls, &CSCVShchedulerTask::m_bAddUrls, false},
    {IDC_GENERATE_URLS, &stEditorMembers::m_bGenerateUrls, &CSCVShchedulerTask::m_bGenerateUrls, false},
    {IDC_IMPORT_INPUT_VALUES, &stEditorMembers::m_bImportInputValues,
     &CSCVShchedulerTask::m_bImportInputValues, false},
    {IDC_REPEAT_MON, &stEditorMembers::m_bRepeatOnMon, &CSCVShchedulerTask::m_bRepeatOnMon, true},
    {IDC_REPEAT_TUE, &stEditorMembers::m_bRepeatOnTue, &CSCVShchedulerTask::m_bRepeatOnTue, true},
    {IDC_REPEAT_WED, &stEditorMembers::m_bRepeatOnWen, &CSCVShchedulerTask::m_bRepeatOnWen, true},
    {IDC_REPEAT_THU, &stEditorMembers::m_bRepeatOnThu, &CSCVShchedulerTask::m_bRepeatOnThu, true},
    {IDC_REPEAT_FRI, &stEditorMembers::m_bRepeatOnFri, &CSCVShchedulerTask::m_bRepeatOnFri, true},
    {IDC_REPEAT_SAT, &stEditorMembers::m_bRepeatOnSat, &CSCVShchedulerTask::m_bRepeatOnSat, true},
    {IDC_REPEAT_SUN, &stEditorMembers::m_bRepeatOnSun, &CSCVShchedulerTask::m_bRepeatOnSun, true},
    {IDC_REPEAT_MONTHLY, &stEditorMembers::m_bRepeatOnMonthly, &CSCVShchedulerTask::m_bRepeatOnMonthly, true},
    {IDC_REPEAT_EVERY, &stEditorMembers::m_bEnableEvery, &CSCVShchedulerTask::m_bEnableEvery, true},
};

struct stTextControl {
    int id;
    std::wstring stEditorMembers::*member;
    std::wstring CSCVShchedulerTask::*field;
};
// Every edit box that stands for a text of the task.
inline constexpr stTextControl kTextControls[] = {
    {IDC_EXPORT_FILE, &stEditorMembers::m_strExportFile, &CSCVShchedulerTask::m_strExportFile},
    {IDC_FAILED_URLS_FILE, &stEditorMembers::m_strFailedUrlsFile, &CSCVShchedulerTask::m_strFailedUrlsFile},
    {IDC_URLS_FILE, &stEditorMembers::m_strUrlsFile, &CSCVShchedulerTask::m_strUrlsFile},
    {IDC_SCRIPT_FILE, &stEditorMembers::m_strScriptFile, &CSCVShchedulerTask::m_strScriptFile},
    {IDC_INPUT_VALUES_FILE, &stEditorMembers::m_strInputValuesFile,
     &CSCVShchedulerTask::m_strInputValuesFile},
    {IDC_INPUT_ELEMENT_NAME, &stEditorMembers::m_strInputElementName,
     &CSCVShchedulerTask::m_strInputElementName},
    {IDC_INPUT_ELEMENT_ID, &stEditorMembers::m_strInputElementId, &CSCVShchedulerTask::m_strInputElementId},
};

// What the editor shows of a task; for no task (null), of a new one made at `now`.
[[nodiscard]] stEditorMembers EditorMembersOf(const CSCVShchedulerTask* task, std::int64_t now);
