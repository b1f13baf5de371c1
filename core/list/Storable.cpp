#include "core/list/Storable.h"

#include <algorithm>

#include "core/list/TaskSection.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/TaskSwitches.h"
#include "util/CaseFold.h"

namespace {

bool HasControlCharacter(const std::wstring& text) {
    return std::any_of(text.begin(), text.end(), [](wchar_t unit) { return unit < L' '; });
}

std::wstring TooLong(const wchar_t* what, std::size_t length) {
    return what + (L" takes " + std::to_wstring(length)) + L" characters, of which the list keeps " +
           std::to_wstring(kLongestText);
}

std::wstring Changed(const std::wstring& what, const std::wstring& text) {
    return L"the list cannot keep " + what + L" '" + text + L"'";
}

// Whether a text of the task is read back from the file unchanged. A double quote inside can be read back,
// but the extraction program would take it for the end of the argument.
bool Survives(const TaskFields& task, const TaskFields& read, std::wstring TaskFields::*text) {
    return HalvedApostrophes(read.*text) == task.*text && (task.*text).find(L'"') == std::wstring::npos;
}

// How a command of the task differs from the one that was read back; empty when it does not.
std::wstring WhyChanged(const TaskSwitch& row, const TaskFields& task, const TaskFields& read) {
    const std::string_view option = row.name;
    const std::wstring name(option.begin(), option.end());
    const bool isOn = row.IsOn(task);
    if (isOn && row.text != nullptr && !Survives(task, read, row.text)) {
        return Changed(name, task.*row.text);
    }
    if (isOn != (read.*row.flag != 0)) {
        return L"the list cannot keep " + name + (isOn ? L" on" : L" off");
    }
    if (isOn && row.hasElement &&
        !(Survives(task, read, &TaskFields::m_strInputElementName) &&
          Survives(task, read, &TaskFields::m_strInputElementId))) {
        return Changed(L"the input element",
                       task.m_strInputElementName + L"' or '" + task.m_strInputElementId);
    }
    return {};
}

}  // namespace

std::wstring WhyNotStorable(const CSCVShchedulerTask& task) {
    const std::wstring commandLine = DoubledApostrophes(task.BuildCommandLine());
    const std::wstring result = DoubledApostrophes(task.m_strLastRunResult);
    if (HasControlCharacter(commandLine) || HasControlCharacter(result)) {
        return L"one of its texts has a control character";
    }
    if (commandLine.size() > kLongestText) {
        return TooLong(L"its command line", commandLine.size());
    }
    if (result.size() > kLongestText) {
        return TooLong(L"its last result", result.size());
    }
    CSCVShchedulerTask read;
    read.ParseCommandLine(commandLine);
    if (!Survives(task, read, &TaskFields::m_strProjectPath)) {
        return Changed(L"the project", task.m_strProjectPath);
    }
    for (const TaskSwitch& row : kTaskSwitches) {
        if (std::wstring why = WhyChanged(row, task, read); !why.empty()) {
            return why;
        }
    }
    return {};
}

bool HoldsApostrophe(const CSCVShchedulerTask& task) {
    return task.BuildCommandLine().find(L'\'') != std::wstring::npos;
}

void AppendDoubledApostrophes(std::wstring_view text, std::wstring& doubled) {
    for (auto at = text.find(L'\''); at != std::wstring_view::npos; at = text.find(L'\'')) {
        doubled += text.substr(0, at + 1);
        doubled += L'\'';
        text.remove_prefix(at + 1);
    }
    doubled += text;
}

std::wstring DoubledApostrophes(std::wstring_view text) {
    std::wstring doubled;
    AppendDoubledApostrophes(text, doubled);
    return doubled;
}

std::wstring ProjectKey(std::wstring_view path) {
    std::wstring key = ToUpperText(path);
    key.erase(std::unique(key.begin(), key.end(),
                          [](wchar_t left, wchar_t right) { return left == L'\'' && right == L'\''; }),
              key.end());
    return key;
}

bool IsSameProject(std::wstring_view left, std::wstring_view right) {
    // From the end: the paths of a list often have the first folders in common.
    const auto [a, b] = std::mismatch(left.rbegin(), left.rend(), right.rbegin(), right.rend());
    const bool areUnits = a != left.rend() && b != right.rend() && *a != L'\'' && *b != L'\'';
    return !(areUnits && ToUpper(*a) != ToUpper(*b)) && ProjectKey(left) == ProjectKey(right);
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
