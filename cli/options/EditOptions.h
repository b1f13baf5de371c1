#pragma once

#include <array>
#include <functional>
#include <iterator>
#include <string>

#include "cli/options/TaskChanges.h"

namespace CLI {
class App;
}

// Makes the full path of a file as the user names it, in UTF-8; empty for an empty name.
using FullPath = std::function<std::wstring(const std::string& file)>;

// The options of add and set for the properties of a task. The object has to outlive the parsing.
class CEditOptions {
public:
    // Adds the options of both subcommands.
    void AddTo(CLI::App& command);
    // Add an option of one subcommand.
    void AddDisabled(CLI::App& command);
    void AddResetLastRun(CLI::App& command);

    // The changes by the options given. Throws the parser's error when options contradict each other.
    // `fullPath` makes a path from the user a full path.
    [[nodiscard]] TaskChanges Changes(const FullPath& fullPath) const;

private:
    static constexpr std::size_t kCount = std::size(kTaskSwitches);

    void AddCommands(CLI::App& command);
    void TakeRepeat(TaskChanges& changes) const;
    void TakeCommands(TaskChanges& changes, const FullPath& fullPath) const;

    std::string m_start, m_days, m_every, m_until, m_exportFile, m_elementName, m_elementId;
    bool m_noDays = false, m_monthly = false, m_noMonthly = false, m_noEvery = false;
    bool m_noExportFile = false, m_disabled = false, m_resetLastRun = false;
    bool m_hasElementName = false, m_hasElementId = false;
    std::array<bool, kCount> m_on{}, m_off{};
    std::array<std::string, kCount> m_files;
};
