#include "core/task/TaskSwitches.h"

bool TaskSwitch::IsOn(const TaskFields& task) const {
    return task.*flag != 0 || (argument == Argument::Suffices && !(task.*text).empty());
}

bool TaskSwitch::LacksElement(const TaskFields& task) const {
    return hasElement && task.m_strInputElementName.empty() && task.m_strInputElementId.empty();
}

void TaskSwitch::SwitchOn(TaskFields& task, const std::wstring& newText) const {
    task.*flag = 1;
    if (text != nullptr && !newText.empty()) {
        task.*text = newText;
    }
}

void TaskSwitch::SwitchOff(TaskFields& task) const {
    task.*flag = 0;
    if (text != nullptr) {
        (task.*text).clear();
    }
    if (hasElement) {
        task.m_strInputElementName.clear();
        task.m_strInputElementId.clear();
    }
}
