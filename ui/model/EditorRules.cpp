#include "ui/model/EditorRules.h"

namespace {

template <typename Change>
void ForEach(SelectedTasks tasks, Change change) {
    for (CSCVShchedulerTask* task : tasks) {
        if (task != nullptr) {
            change(*task);
        }
    }
}

void ApplyExportFile(const stEditorMembers& members, SelectedTasks tasks) {
    ForEach(tasks, [&](CSCVShchedulerTask& task) {
        if (members.m_bExportIntoNewFile != 0) {
            task.m_strExportFile = members.m_strExportFile;
        } else {
            task.m_strExportFile.clear();
        }
    });
}

struct stDependants {
    std::int32_t stEditorMembers::*box;
    std::vector<int> controls;
};

}  // namespace

bool ApplyEditorChange(int id, const stEditorMembers& members, SelectedTasks tasks) {
    if (id == IDC_EXPORT_TO_NEW_FILE || id == IDC_EXPORT_RESULTS) {
        ApplyExportFile(members, tasks);
    }
    for (const stFlagControl& control : kFlagControls) {
        if (control.id == id) {
            ForEach(tasks, [&](CSCVShchedulerTask& task) { task.*control.field = members.*control.member; });
            return control.changesNextRun;
        }
    }
    for (const stTextControl& control : kTextControls) {
        if (control.id == id) {
            ForEach(tasks, [&](CSCVShchedulerTask& task) { task.*control.field = members.*control.member; });
            return false;
        }
    }
    if (id == IDC_EVERY_VALUE) {
        ForEach(tasks, [&](CSCVShchedulerTask& task) { task.m_nEveryValue = members.m_nEveryValue; });
        return true;
    }
    if (id == IDC_EVERY_UNIT) {
        ForEach(tasks, [&](CSCVShchedulerTask& task) { task.m_nEveryUnit = members.m_nEveryUnit; });
        return true;
    }
    return false;
}

void ApplyStartDate(const LocalTime& picked, SelectedTasks tasks) {
    ForEach(tasks, [&](CSCVShchedulerTask& task) {
        const LocalTime start = ToLocalTime(task.m_tStartTime);
        task.m_tStartTime =
            FromLocalTime(picked.year, picked.month, picked.day, start.hour, start.minute, start.second);
    });
}

void ApplyStartTime(const LocalTime& picked, SelectedTasks tasks) {
    ForEach(tasks, [&](CSCVShchedulerTask& task) {
        const LocalTime start = ToLocalTime(task.m_tStartTime);
        task.m_tStartTime = FromLocalTime(start.year, start.month, start.day, picked.hour, picked.minute, 0);
    });
}

void ApplyUntilTime(const LocalTime& picked, SelectedTasks tasks) {
    const std::int64_t until =
        FromLocalTime(picked.year, picked.month, picked.day, picked.hour, picked.minute, picked.second);
    ForEach(tasks, [&](CSCVShchedulerTask& task) { task.m_tUntilTime = until; });
}

void ApplyStartNow(std::int64_t now, SelectedTasks tasks) {
    const LocalTime local = ToLocalTime(now);
    ApplyStartDate(local, tasks);
    ApplyStartTime(local, tasks);
}

std::vector<stControlState> EditorStates(const stEditorMembers& members, bool hasSelection) {
    static const stDependants kDependants[] = {
        {&stEditorMembers::m_bExportIntoNewFile, {IDC_EXPORT_FILE, IDC_EXPORT_FILE_BROWSE}},
        {&stEditorMembers::m_bExportFailedUrls, {IDC_FAILED_URLS_FILE, IDC_FAILED_URLS_FILE_BROWSE}},
        {&stEditorMembers::m_bAddUrls, {IDC_URLS_FILE, IDC_URLS_FILE_BROWSE}},
        {&stEditorMembers::m_bGenerateUrls, {IDC_SCRIPT_FILE, IDC_SCRIPT_FILE_BROWSE}},
        {&stEditorMembers::m_bImportInputValues,
         {IDC_INPUT_VALUES_FILE, IDC_INPUT_ELEMENT_NAME, IDC_INPUT_ELEMENT_ID, IDC_INPUT_VALUES_FILE_BROWSE}},
        {&stEditorMembers::m_bEnableEvery,
         {IDC_EVERY_VALUE, IDC_EVERY_SPIN, IDC_EVERY_UNIT, IDC_UNTIL_LABEL, IDC_UNTIL_TIME}},
    };
    std::vector<stControlState> states;
    for (const stDependants& dependants : kDependants) {
        for (const int id : dependants.controls) {
            states.push_back({id, members.*dependants.box != 0});
        }
    }
    for (const int id : {IDC_EDIT_PROJECT, IDC_DELETE_PROJECT, IDC_RUN_PROJECT, IDC_RESET_LAST_RUN}) {
        states.push_back({id, hasSelection});
    }
    return states;
}
