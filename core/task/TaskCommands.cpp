#include "core/task/TaskCommands.h"

bool TaskCommand::IsOn(const CSCVShchedulerTask& task) const {
    return task.*flag != 0 || (flag == &CSCVShchedulerTask::m_bExportResults && !(task.*text).empty());
}

void TaskCommand::SwitchOn(CSCVShchedulerTask& task, const std::wstring& argument) const {
    task.*flag = 1;
    if (text != nullptr && !argument.empty()) {
        task.*text = argument;
    }
}

void TaskCommand::SwitchOff(CSCVShchedulerTask& task) const {
    task.*flag = 0;
    if (text != nullptr) {
        (task.*text).clear();
    }
    if (flag == &CSCVShchedulerTask::m_bImportInputValues) {
        task.m_strInputElementName.clear();
        task.m_strInputElementId.clear();
    }
}
