#pragma once

#include <string>
#include <vector>

#include "cli/options/EditOptions.h"
#include "cli/options/Subcommand.h"

struct Arguments;

namespace CLI {
class App;
class Option;
}  // namespace CLI

// The options and arguments that subcommands take behind their name. Has to outlive the parsing.
class CSubcommandOptions {
public:
    // `arguments`, which outlives the object, receives what was given: some of it while the words are parsed,
    // the rest by Take.
    explicit CSubcommandOptions(Arguments& arguments) noexcept : m_arguments(arguments) {}

    void AddTo(CLI::App& command, const Subcommand& row);
    // Throws the parser's error for what contradicts itself and for an empty path.
    void Take(const FullPath& fullPath);

private:
    void AddGroup(CLI::App& command, Takes takes);
    CLI::Option* AddPaths(CLI::App& command, const char* text);
    void AddFilter(CLI::App& command);
    void AddNextRuns(CLI::App& command);
    void AddOnFailure(CLI::App& command);
    void AddNewTask(CLI::App& command);
    void AddChanges(CLI::App& command);
    void AddInFile(CLI::App& command);
    void AddFile(CLI::App& command, const char* text);
    [[nodiscard]] std::wstring Project(const std::string& path, const FullPath& fullPath) const;

    Arguments& m_arguments;
    CEditOptions m_edit;
    std::string m_at, m_from, m_to;
    std::string m_file;
    std::string m_onFailure;
    std::vector<std::string> m_paths;
};
