#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cli/report/Json.h"

class CSCVShchedulerTask;

// Names of changes: a launch, and those that make a schedule, which the report shows in words.
inline constexpr std::string_view kLaunched = "run";
inline constexpr std::string_view kAdded = "added";
inline constexpr std::string_view kReplaced = "replaced";
inline constexpr std::string_view kSet = "set";

// One launch as a line for people: when, what and with which result.
[[nodiscard]] std::string LaunchAsText(const CSCVShchedulerTask& task);
// {"change": ..., "task": {...}}
[[nodiscard]] Json ChangeAsJson(std::string_view change, const CSCVShchedulerTask& task, std::int64_t now);

// What a subcommand has done to tasks, one entry a task.
class CChangeReport {
public:
    // Keeps a pointer: Write() shows the task's state then, so it must still exist.
    void Add(std::string_view change, CSCVShchedulerTask& task) {
        m_changes.push_back({change, &task, {}, {}});
    }
    // For a task that is deleted before Write().
    void AddRemoved(CSCVShchedulerTask& task, std::int64_t now);

    // For a task that already is what was asked for.
    void AddUnchanged(const CSCVShchedulerTask& task) { m_unchanged.push_back(&task); }

    [[nodiscard]] bool HasLaunches() const;
    // The tasks that Add got, in that order.
    [[nodiscard]] std::vector<CSCVShchedulerTask*> ChangedTasks() const;
    // One object with all changes, or a line for each. With `isTry` nothing has been changed: the report says
    // what would be.
    [[nodiscard]] std::string Write(const std::wstring& list, std::int64_t now, bool json,
                                    bool isTry = false) const;

private:
    struct Change {
        std::string_view name;
        CSCVShchedulerTask* task;  // null once it is removed; the two below describe it then
        std::wstring project;
        std::shared_ptr<const Json> json;
    };
    [[nodiscard]] Json AsJson(const std::wstring& list, std::int64_t now, bool isTry) const;

    std::vector<Change> m_changes;
    std::vector<const CSCVShchedulerTask*> m_unchanged;
};
