#include "ui/model/EditorRules.h"

#include <initializer_list>
#include <stdexcept>
#include <string>

#include "util/ExceptionText.h"

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

void SetStart(CSCVShchedulerTask& task, const LocalTime& start) {
    try {
        task.m_tStartTime =
            FromLocalTime(start.year, start.month, start.day, start.hour, start.minute, start.second);
    } catch (const std::invalid_argument&) {
        throw std::invalid_argument(ToWhat(L"The project " + task.m_strProjectPath +
                                           L" cannot start on that date, so its start stays as it was."));
    }
}

}  // namespace

LocalTime ShownTime(std::int64_t instant) {
    const LocalTime local = ToLocalTime(instant);
    return local.hour < 0 ? LocalTime{1970, 1, 1, 4, 0, 0, 0} : local;
}

bool ApplyEditorChange(int id, const stEditorMembers& members, SelectedTasks tasks) {
    if (id == IDC_EXPORT_TO_NEW_FILE || id == IDC_EXPORT_RESULTS) {
        ApplyExportFile(members, tasks);
    }
    for (const stFlagControl& control : kFlagControls) {
        if (control.id == id) {
            ForEach(tasks, [&](CSCVShchedulerTask& task) { task.*control.field = members.*control.field; });
            return control.changesNextRun;
        }
    }
    for (const stTextControl& control : kTextControls) {
        if (control.id == id) {
            ForEach(tasks, [&](CSCVShchedulerTask& task) { task.*control.field = members.*control.field; });
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
        const LocalTime start = ShownTime(task.m_tStartTime);
        SetStart(task, {picked.year, picked.month, picked.day, 0, start.hour, start.minute, start.second});
    });
}

void ApplyStartTime(const LocalTime& picked, SelectedTasks tasks) {
    ForEach(tasks, [&](CSCVShchedulerTask& task) {
        const LocalTime start = ShownTime(task.m_tStartTime);
        SetStart(task, {start.year, start.month, start.day, 0, picked.hour, picked.minute, 0});
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
    std::vector<stControlState> states;
    const auto add = [&](std::initializer_list<int> ids, std::int32_t flag) {
        for (const int id : ids) {
            states.push_back({id, flag != 0});
        }
    };
    for (const stSwitchControls& row : kSwitchControls) {
        if (row.edit != 0) {
            const bool isExport = row.flag == &TaskFields::m_bExportResults;
            add({row.edit, row.browse}, isExport ? members.m_bExportIntoNewFile : members.*row.flag);
        }
    }
    add({IDC_INPUT_ELEMENT_NAME, IDC_INPUT_ELEMENT_ID}, members.m_bImportInputValues);
    add({IDC_EVERY_VALUE, IDC_EVERY_SPIN, IDC_EVERY_UNIT, IDC_UNTIL_LABEL, IDC_UNTIL_TIME},
        members.m_bEnableEvery);
    for (const int id : {IDC_EDIT_PROJECT, IDC_DELETE_PROJECT, IDC_RUN_PROJECT, IDC_RESET_LAST_RUN}) {
        states.push_back({id, hasSelection});
    }
    return states;
}
