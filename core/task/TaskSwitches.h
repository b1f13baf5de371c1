#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "core/task/TaskFields.h"

// The commands that a task has for the extraction program: everything that command line, list file, checks,
// options, JSON and window know about a command is in its row of kTaskSwitches.
struct TaskSwitch {
    enum class Argument {
        None,      // the switch has no argument
        Required,  // a file; without it the switch is left out of the command line, although its flag is set
        Optional,  // with or without a text
        Suffices,  // as Optional, and the text writes the switch even when its flag is clear
    };

    std::wstring_view letters;  // L"at": "-at" on the command line
    const char* name;           // option "--name" of add and set, key "name" in JSON
    std::wstring_view caption;  // as in the window; empty: neither the window nor the options offer it
    std::int32_t TaskFields::*flag;
    Argument argument = Argument::None;
    std::wstring TaskFields::*text = nullptr;  // null for None
    bool hasElement = false;  // the argument is "name,id,text" of an input element: name or id is needed too

    // Whether the command line has the switch, but for what its argument lacks.
    [[nodiscard]] bool IsOn(const TaskFields& task) const;
    // Whether neither name nor id of the input element that the switch needs is there.
    [[nodiscard]] bool LacksElement(const TaskFields& task) const;
    // An empty text leaves the one that the task has.
    void SwitchOn(TaskFields& task, const std::wstring& newText) const;
    // Clears its texts as well: the list would not keep them.
    void SwitchOff(TaskFields& task) const;
};

// In the order in which they are written. Reading knows one more, "-rft", which means nothing, like any token
// that is not found here.
inline constexpr TaskSwitch kTaskSwitches[] = {
    {L"rt", "reset-urls", L"Reset Project URLs", &TaskFields::m_bResetUrls},
    {L"dt", "delete-urls", L"Delete Project URLs", &TaskFields::m_bDeleteUrls},
    {L"dr", "delete-results", L"Delete Results", &TaskFields::m_bDeleteResults},
    {L"at", "add-urls", L"Add new URLs from file", &TaskFields::m_bAddUrls, TaskSwitch::Argument::Required,
     &TaskFields::m_strUrlsFile},
    {L"gt", "generate-urls", L"Generate new URLs using script", &TaskFields::m_bGenerateUrls,
     TaskSwitch::Argument::Required, &TaskFields::m_strScriptFile},
    {L"aiv", "import-values", L"Import input values from file", &TaskFields::m_bImportInputValues,
     TaskSwitch::Argument::Required, &TaskFields::m_strInputValuesFile, true},
    {L"s", "start-project", L"Start Project", &TaskFields::m_bStart},
    {L"rs", "restart-project", L"Restart Project", &TaskFields::m_bRestart},
    {L"ddr", "ddr", L"", &TaskFields::m_bDdrSwitch},
    {L"fr", "apply-filter", L"Apply Results Filter", &TaskFields::m_bApplyFilter,
     TaskSwitch::Argument::Optional, &TaskFields::m_strFilterArgument},
    {L"qe", "export-results", L"Export Results", &TaskFields::m_bExportResults,
     TaskSwitch::Argument::Suffices, &TaskFields::m_strExportFile},
    {L"eft", "export-failed-urls", L"Export failed URLs into file", &TaskFields::m_bExportFailedUrls,
     TaskSwitch::Argument::Required, &TaskFields::m_strFailedUrlsFile},
    {L"ex", "exit", L"Close program when finished", &TaskFields::m_bExit},
};

// The row of a flag, which must be the flag of a switch.
[[nodiscard]] constexpr const TaskSwitch& SwitchOf(std::int32_t TaskFields::*flag) {
    return *std::find_if(std::begin(kTaskSwitches), std::end(kTaskSwitches),
                         [=](const TaskSwitch& row) { return row.flag == flag; });
}
