#pragma once

#include <string>

#include "core/task/SCVShchedulerTask.h"

// The commands of a task as users name them: an option "--name" of add and set, a key "name" in JSON.
struct TaskCommand {
    enum class Value {
        None,      // on or off
        File,      // on with a file
        Optional,  // on, with or without a text; the console offers it without
    };

    const char* name;
    const char* help;  // empty: no option, as the window has no box for it either
    Value value;
    std::int32_t CSCVShchedulerTask::*flag;
    std::wstring CSCVShchedulerTask::*text;  // null for None

    [[nodiscard]] bool IsOn(const CSCVShchedulerTask& task) const;
    // An empty argument leaves the one that the task has.
    void SwitchOn(CSCVShchedulerTask& task, const std::wstring& argument) const;
    // Clears its texts as well: the list would not keep them.
    void SwitchOff(CSCVShchedulerTask& task) const;
};

// In the order in which the extraction program is told.
inline constexpr TaskCommand kTaskCommands[] = {
    {"reset-urls", "Reset Project URLs", TaskCommand::Value::None, &CSCVShchedulerTask::m_bResetUrls,
     nullptr},
    {"delete-urls", "Delete Project URLs", TaskCommand::Value::None, &CSCVShchedulerTask::m_bDeleteUrls,
     nullptr},
    {"delete-results", "Delete Results", TaskCommand::Value::None, &CSCVShchedulerTask::m_bDeleteResults,
     nullptr},
    {"add-urls", "Add new URLs from file", TaskCommand::Value::File, &CSCVShchedulerTask::m_bAddUrls,
     &CSCVShchedulerTask::m_strUrlsFile},
    {"generate-urls", "Generate new URLs using script", TaskCommand::Value::File,
     &CSCVShchedulerTask::m_bGenerateUrls, &CSCVShchedulerTask::m_strScriptFile},
    {"import-values", "Import input values from file, for --element-name or --element-id",
     TaskCommand::Value::File, &CSCVShchedulerTask::m_bImportInputValues,
     &CSCVShchedulerTask::m_strInputValuesFile},
    {"start-project", "Start Project", TaskCommand::Value::None, &CSCVShchedulerTask::m_bStart, nullptr},
    {"restart-project", "Restart Project", TaskCommand::Value::None, &CSCVShchedulerTask::m_bRestart,
     nullptr},
    {"ddr", "", TaskCommand::Value::None, &CSCVShchedulerTask::m_bDdrSwitch, nullptr},
    {"apply-filter", "Apply Results Filter", TaskCommand::Value::Optional,
     &CSCVShchedulerTask::m_bApplyFilter, &CSCVShchedulerTask::m_strFilterArgument},
    {"export-results", "Export Results", TaskCommand::Value::Optional, &CSCVShchedulerTask::m_bExportResults,
     &CSCVShchedulerTask::m_strExportFile},
    {"export-failed-urls", "Export failed URLs into file", TaskCommand::Value::File,
     &CSCVShchedulerTask::m_bExportFailedUrls, &CSCVShchedulerTask::m_strFailedUrlsFile},
    {"exit", "Close program when finished", TaskCommand::Value::None, &CSCVShchedulerTask::m_bExit, nullptr},
};
