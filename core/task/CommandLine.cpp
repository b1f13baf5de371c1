#include "core/task/CommandLine.h"

#include <algorithm>
#include <optional>

#include "core/task/SCVShchedulerTask.h"
#include "core/task/TaskSwitches.h"
#include "util/CaseFold.h"
#include "util/Csv.h"

// The extraction program's command line. The list file stores a task's project and commands only in this
// form, and every version of the program reads it. That reading and writing are not symmetric is part of
// the format.

namespace {

using Task = CSCVShchedulerTask;

// The argument to write after the switch; empty when there is none.
std::wstring ArgumentOf(const Task& task, const TaskSwitch& s) {
    if (s.text == nullptr || s.LacksElement(task)) {
        return {};
    }
    const std::wstring& text = task.*s.text;
    if (!s.hasElement || text.empty()) {
        return text;
    }
    return task.m_strInputElementName + L',' + task.m_strInputElementId + L',' + text;
}

bool IsWritten(const TaskSwitch& s, bool flag, bool hasArgument) {
    switch (s.argument) {
        case TaskSwitch::Argument::Required:
            return flag && hasArgument;
        case TaskSwitch::Argument::Suffices:
            return flag || hasArgument;
        case TaskSwitch::Argument::None:
        case TaskSwitch::Argument::Optional:
            break;
    }
    return flag;
}

bool Matches(const TaskSwitch& s, std::wstring_view token) {
    const std::size_t length = s.letters.size() + 1;
    return token.size() >= length && (s.text != nullptr || token.size() == length) &&
           (token[0] == L'-' || token[0] == L'/') &&
           EqualNoCase(token.substr(1, s.letters.size()), s.letters);
}

std::wstring_view WithoutOuterQuotes(std::wstring_view text) {
    while (text.starts_with(L'"')) {
        text.remove_prefix(1);
    }
    while (text.ends_with(L'"')) {
        text.remove_suffix(1);
    }
    return text;
}

// The argument of the first token that is this switch, without outer quotes; nothing without such a token.
std::optional<std::wstring_view> FindArgument(const CCsv& tokens, const TaskSwitch& s) {
    const auto token =
        std::ranges::find_if(tokens, [&s](const std::wstring& candidate) { return Matches(s, candidate); });
    if (token == tokens.end()) {
        return std::nullopt;
    }
    return WithoutOuterQuotes(std::wstring_view(*token).substr(s.letters.size() + 1));
}

void TakeInputValues(Task& task, std::wstring_view argument) {
    task.m_strInputValuesFile = argument;
    CCsv fields;
    const std::int32_t count = fields.Split(argument, L',', true, false);
    if (count < 2) {
        return;
    }
    task.m_strInputElementName = fields[0];
    if (count > 2) {
        task.m_strInputElementId = fields[1];
    }
    task.m_strInputValuesFile = fields[count > 2 ? 2 : 1];
}

}  // namespace

std::wstring CSCVShchedulerTask::BuildCommandLine() const {
    std::wstring text;
    text.reserve(m_strProjectPath.size() + 64);  // enough for most
    text += L'"';
    text += m_strProjectPath;
    text += L'"';
    for (const TaskSwitch& s : kTaskSwitches) {
        const std::wstring argument = ArgumentOf(*this, s);
        if (!IsWritten(s, this->*s.flag != 0, !argument.empty())) {
            continue;
        }
        text += L" -";
        text += s.letters;
        if (!argument.empty()) {
            // A quote inside is not escaped, because the reader knows no escapes.
            text += L'"' + argument + L'"';
        }
    }
    return text;
}

int CSCVShchedulerTask::ParseCommandLine(std::wstring_view text) {
    ClearCommands();
    CCsv tokens;
    tokens.Split(text, L' ', true, true);
    if (!tokens.IsEmpty()) {
        m_strProjectPath = tokens[0];
    }
    for (const TaskSwitch& s : kTaskSwitches) {
        const std::optional<std::wstring_view> argument = FindArgument(tokens, s);
        if (!argument) {
            continue;
        }
        this->*s.flag = 1;
        if (s.hasElement) {
            TakeInputValues(*this, *argument);
        } else if (s.text != nullptr) {
            this->*s.text = *argument;
        }
    }
    return 1;
}

std::int32_t CountInputValues(std::wstring_view commandLine) {
    CCsv tokens;
    tokens.Split(commandLine, L' ', true, true);
    const auto argument = FindArgument(tokens, SwitchOf(&TaskFields::m_bImportInputValues));
    CCsv fields;
    return argument ? fields.Split(*argument, L',', true, false) : 0;
}
