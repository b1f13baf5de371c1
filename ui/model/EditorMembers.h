#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

#include "core/task/SCVShchedulerTask.h"
#include "core/task/TaskDays.h"
#include "core/task/TaskSwitches.h"
#include "ui/model/FileFilters.h"
#include "ui/resource.h"

// The values of the task editor's controls, which are the fields of a task. A check box is 0 or 1; the unit
// is the index in its combo box, -1 for none. All values are empty until the first task is shown.
struct stEditorMembers : TaskFields {
    stEditorMembers() {
        m_nEveryValue = 0;
        m_nEveryUnit = -1;
    }
    // Not a field of a task: the box is ticked when the name of the export file is not empty.
    std::int32_t m_bExportIntoNewFile = 0;
};

// The controls of a switch for the extraction program.
struct stSwitchControls {
    int box = 0;
    std::int32_t TaskFields::*flag = nullptr;
    int edit = 0;  // 0 when there is no edit box
    int browse = 0;
    const wchar_t* extension = nullptr;  // null: the browse button opens the script editor
    const wchar_t* filter = nullptr;

    [[nodiscard]] constexpr std::wstring TaskFields::*Text() const { return SwitchOf(flag).text; }
};
inline constexpr stSwitchControls kSwitchControls[] = {
    {IDC_DELETE_URLS, &TaskFields::m_bDeleteUrls},
    {IDC_RESET_URLS, &TaskFields::m_bResetUrls},
    {IDC_DELETE_RESULTS, &TaskFields::m_bDeleteResults},
    {IDC_START_PROJECT, &TaskFields::m_bStart},
    {IDC_RESTART_PROJECT, &TaskFields::m_bRestart},
    {IDC_EXPORT_RESULTS, &TaskFields::m_bExportResults, IDC_EXPORT_FILE, IDC_EXPORT_FILE_BROWSE, L"csv",
     kExportFilter},
    {IDC_APPLY_FILTER, &TaskFields::m_bApplyFilter},
    {IDC_EXIT_WHEN_FINISHED, &TaskFields::m_bExit},
    {IDC_EXPORT_FAILED_URLS, &TaskFields::m_bExportFailedUrls, IDC_FAILED_URLS_FILE,
     IDC_FAILED_URLS_FILE_BROWSE, L"htm", kFailedUrlsFilter},
    {IDC_ADD_URLS, &TaskFields::m_bAddUrls, IDC_URLS_FILE, IDC_URLS_FILE_BROWSE, L"csv", kInputFilter},
    {IDC_GENERATE_URLS, &TaskFields::m_bGenerateUrls, IDC_SCRIPT_FILE, IDC_SCRIPT_FILE_BROWSE},
    {IDC_IMPORT_INPUT_VALUES, &TaskFields::m_bImportInputValues, IDC_INPUT_VALUES_FILE,
     IDC_INPUT_VALUES_FILE_BROWSE, L"csv", kInputFilter},
};

struct stFlagControl {
    int id;
    std::int32_t TaskFields::*field;
    bool changesNextRun;
};
// Every check box that shows a flag of the task.
inline constexpr auto kFlagControls = [] {
    constexpr stFlagControl kRepeats[] = {
        {IDC_REPEAT_MONTHLY, &TaskFields::m_bRepeatOnMonthly, true},
        {IDC_REPEAT_EVERY, &TaskFields::m_bEnableEvery, true},
    };
    std::array<stFlagControl, std::size(kSwitchControls) + std::size(kTaskDays) + std::size(kRepeats)> all{};
    auto* next = std::transform(std::begin(kSwitchControls), std::end(kSwitchControls), all.begin(),
                                [](const stSwitchControls& row) {
                                    return stFlagControl{row.box, row.flag, false};
                                });
    next = std::transform(std::begin(kTaskDays), std::end(kTaskDays), next,
                          [box = IDC_REPEAT_MON](const TaskDay& row) mutable {
                              return stFlagControl{box++, row.flag, true};
                          });
    std::copy(std::begin(kRepeats), std::end(kRepeats), next);
    return all;
}();

struct stTextControl {
    int id;
    std::wstring TaskFields::*field;
};
// Every edit box that shows a text of the task.
inline constexpr auto kTextControls = [] {
    constexpr stTextControl kElement[] = {{IDC_INPUT_ELEMENT_NAME, &TaskFields::m_strInputElementName},
                                          {IDC_INPUT_ELEMENT_ID, &TaskFields::m_strInputElementId}};
    constexpr auto kHasEdit = [](const stSwitchControls& row) { return row.edit != 0; };
    constexpr auto kEdits = std::count_if(std::begin(kSwitchControls), std::end(kSwitchControls), kHasEdit);
    std::array<stTextControl, static_cast<std::size_t>(kEdits) + std::size(kElement)> all{};
    auto* next = std::copy(std::begin(kElement), std::end(kElement), all.begin());
    for (const stSwitchControls& row : kSwitchControls) {
        if (kHasEdit(row)) {
            *next++ = {row.edit, row.Text()};
        }
    }
    return all;
}();

// The values that the editor shows for a task; for no task (null), those of a new task made at `now`.
[[nodiscard]] stEditorMembers EditorMembersOf(const CSCVShchedulerTask* task, std::int64_t now);
