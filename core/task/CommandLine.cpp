#include <algorithm>

#include "core/task/SCVShchedulerTask.h"
#include "util/CaseFold.h"
#include "util/Csv.h"

// The extraction program's command line: the only form in which the list keeps a task's project and commands,
// so what is written here is read back by every version of the program. Its asymmetries are part of that
// format.

namespace {

enum class Argument {
    None,      // the switch is the whole token
    Required,  // without an argument the switch is left out, although its flag is set
    Optional,
    Suffices,  // optional, and writes the switch even when its flag is clear
};

struct Switch {
    std::wstring_view name;
    std::int32_t CSCVShchedulerTask::*flag;
    Argument kind = Argument::None;
    std::wstring CSCVShchedulerTask::*argument = nullptr;
};

using Task = CSCVShchedulerTask;

// In the order in which they are written. Reading knows one more, "-rft", which means nothing, like any other
// token that is not found here.
constexpr Switch kSwitches[] = {
    {L"rt", &Task::m_bResetUrls},
    {L"dt", &Task::m_bDeleteUrls},
    {L"dr", &Task::m_bDeleteResults},
    {L"at", &Task::m_bAddUrls, Argument::Required, &Task::m_strUrlsFile},
    {L"gt", &Task::m_bGenerateUrls, Argument::Required, &Task::m_strScriptFile},
    {L"aiv", &Task::m_bImportInputValues, Argument::Required, &Task::m_strInputValuesFile},
    {L"s", &Task::m_bStart},
    {L"rs", &Task::m_bRestart},
    {L"ddr", &Task::m_bDdrSwitch},
    {L"fr", &Task::m_bApplyFilter, Argument::Optional, &Task::m_strFilterArgument},
    {L"qe", &Task::m_bExportResults, Argument::Suffices, &Task::m_strExportFile},
    {L"eft", &Task::m_bExportFailedUrls, Argument::Required, &Task::m_strFailedUrlsFile},
    {L"ex", &Task::m_bExit},
};

bool IsInputValues(const Switch& s) {
    return s.argument == &Task::m_strInputValuesFile;
}

// Empty when there is nothing to pass on.
std::wstring ArgumentOf(const Task& task, const Switch& s) {
    if (s.argument == nullptr) {
        return {};
    }
    const std::wstring& text = task.*s.argument;
    if (!IsInputValues(s) || text.empty()) {
        return text;
    }
    if (task.m_strInputElementName.empty() && task.m_strInputElementId.empty()) {
        return {};
    }
    return task.m_strInputElementName + L',' + task.m_strInputElementId + L',' + text;
}

bool IsWritten(const Switch& s, bool flag, bool hasArgument) {
    switch (s.kind) {
        case Argument::Required:
            return flag && hasArgument;
        case Argument::Suffices:
            return flag || hasArgument;
        case Argument::None:
        case Argument::Optional:
            break;
    }
    return flag;
}

bool Matches(const Switch& s, std::wstring_view token) {
    const std::size_t length = s.name.size() + 1;
    return token.size() >= length && (s.kind != Argument::None || token.size() == length) &&
           (token[0] == L'-' || token[0] == L'/') && EqualNoCase(token.substr(1, s.name.size()), s.name);
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
    std::wstring text = L'"' + m_strProjectPath + L'"';
    for (const Switch& s : kSwitches) {
        const std::wstring argument = ArgumentOf(*this, s);
        if (!IsWritten(s, this->*s.flag != 0, !argument.empty())) {
            continue;
        }
        text += L" -";
        text += s.name;
        if (!argument.empty()) {
            // Nothing escapes a quote inside: the reader knows no escape either.
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
    for (const Switch& s : kSwitches) {
        const auto token = std::ranges::find_if(
            tokens, [&s](const std::wstring& candidate) { return Matches(s, candidate); });
        if (token == tokens.end()) {
            continue;
        }
        this->*s.flag = 1;
        if (s.argument == nullptr) {
            continue;
        }
        const std::wstring_view argument =
            WithoutOuterQuotes(std::wstring_view(*token).substr(s.name.size() + 1));
        if (IsInputValues(s)) {
            TakeInputValues(*this, argument);
        } else {
            this->*s.argument = argument;
        }
    }
    return 1;
}
