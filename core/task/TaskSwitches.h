#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "core/task/TaskFields.h"

// The commands for the extraction program. A command's row in kTaskSwitches has everything that command line,
// list file, checks, options, JSON and window know about it.
struct TaskSwitch {
    enum class Argument {
        None,      // the switch has no argument
        Required,  // a file; without it the command line has no such switch even when the flag is set
        Optional,  // with or without a text
        Suffices,  // as Optional; a text writes the switch even when the flag is clear
    };

    std::wstring_view letters;  // L"at": "-at" on the command line
    const char* name;           // option "--name" of add and set, key "name" in JSON
    std::wstring_view caption;  // as in the window; empty when neither window nor options have it
    std::int32_t TaskFields::*flag;
    Argument argument = Argument::None;
    std::wstring TaskFields::*text = nullptr;  // null for None
    bool hasElement = false;  // the argument is "name,id,text" of an input element: name or id is needed too

    // Whether the command is on, even if the command line has no such switch because its argument is missing.
    [[nodiscard]] bool IsOn(const TaskFields& task) const;
    // Whether the switch needs an input element and the task has neither name nor id.
    [[nodiscard]] bool LacksElement(const TaskFields& task) const;
    // Sets the flag, and the text unless `newText` is empty.
    void SwitchOn(TaskFields& task, const std::wstring& newText) const;
    // Clears the flag and the texts, because the list would not keep them.
    void SwitchOff(TaskFields& task) const;
};

// In the order in which they are written. Other tokens of a command line, "-rft" among them, are ignored.
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
