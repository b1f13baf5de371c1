#include "core/list/Storable.h"

#include <algorithm>

#include "core/list/TaskListFile.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/TaskSwitches.h"
#include "util/Utf8.h"

namespace {

std::wstring DoubledApostrophes(const std::wstring& text) {
    std::wstring doubled;
    for (const wchar_t unit : text) {
        doubled.append(unit == L'\'' ? 2 : 1, unit);
    }
    return doubled;
}

bool HasControlCharacter(const std::wstring& text) {
    return std::any_of(text.begin(), text.end(), [](wchar_t unit) { return unit < L' '; });
}

std::string TooLong(const char* what, std::size_t length) {
    return std::string(what) + " takes " + std::to_string(length) + " characters, of which the list keeps " +
           std::to_string(kLongestText);
}

std::string Changed(const std::string& what, const std::wstring& text) {
    return "the list cannot keep " + what + " '" + ToUtf8(text) + "'";
}

}  // namespace

std::string WhyNotStorable(const CSCVShchedulerTask& task) {
    const std::wstring commandLine = DoubledApostrophes(task.BuildCommandLine());
    if (HasControlCharacter(commandLine) || HasControlCharacter(task.m_strLastRunResult)) {
        return "a control character stands in one of its texts";
    }
    if (commandLine.size() > kLongestText) {
        return TooLong("its command line", commandLine.size());
    }
    if (const std::size_t size = DoubledApostrophes(task.m_strLastRunResult).size(); size > kLongestText) {
        return TooLong("its last result", size);
    }
    CSCVShchedulerTask read;
    read.ParseCommandLine(commandLine);
    // A double quote inside a text comes back at times, and the extraction program takes it for an end.
    const auto survives = [&](std::wstring TaskFields::*text) {
        return HalvedApostrophes(read.*text) == task.*text && (task.*text).find(L'"') == std::wstring::npos;
    };
    if (!survives(&TaskFields::m_strProjectPath)) {
        return Changed("the project", task.m_strProjectPath);
    }
    for (const TaskSwitch& row : kTaskSwitches) {
        const bool isOn = row.IsOn(task);
        if (isOn && row.text != nullptr && !survives(row.text)) {
            return Changed(row.name, task.*row.text);
        }
        if (isOn != (read.*row.flag != 0)) {
            return std::string("the list cannot keep ") + row.name + (isOn ? " on" : " off");
        }
    }
    if (task.m_bImportInputValues != 0 &&
        !(survives(&TaskFields::m_strInputElementName) && survives(&TaskFields::m_strInputElementId))) {
        return Changed("the input element",
                       task.m_strInputElementName + L"' or '" + task.m_strInputElementId);
    }
    return {};
}

bool HoldsApostrophe(const CSCVShchedulerTask& task) {
    return task.BuildCommandLine().find(L'\'') != std::wstring::npos;
}

std::wstring HalvedApostrophes(const std::wstring& text) {
    std::wstring halved;
    bool isFirstOfPair = false;
    for (const wchar_t unit : text) {
        isFirstOfPair = unit == L'\'' && !isFirstOfPair;
        if (unit != L'\'' || isFirstOfPair) {
            halved += unit;
        }
    }
    return halved;
}
