#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cli/report/Json.h"

class CSCVShchedulerTask;

// Names of changes: a launch, and the changes for which the report shows the schedule in words.
inline constexpr std::string_view kLaunched = "run";
inline constexpr std::string_view kAdded = "added";
inline constexpr std::string_view kReplaced = "replaced";
inline constexpr std::string_view kSet = "set";

// One launch as a line of text: time, project and result.
[[nodiscard]] std::string LaunchAsText(const CSCVShchedulerTask& task);
// {"change": ..., "task": {...}}
[[nodiscard]] Json ChangeAsJson(std::string_view change, const CSCVShchedulerTask& task, std::int64_t now);

// The changes of tasks by a subcommand, with one entry for each task.
class CChangeReport {
public:
    // Keeps a pointer: Write() shows the task's state then, so it must still exist.
    void Add(std::string_view change, CSCVShchedulerTask& task) {
        m_changes.push_back({change, &task, {}, {}});
    }
    // For a task that is deleted before Write().
    void AddRemoved(CSCVShchedulerTask& task, std::int64_t now);

    // For a task that is already as the command line says.
    void AddUnchanged(const CSCVShchedulerTask& task) { m_unchanged.push_back(&task); }

    [[nodiscard]] bool HasLaunches() const;
    // The tasks that were passed to Add, in this order.
    [[nodiscard]] std::vector<CSCVShchedulerTask*> ChangedTasks() const;
    // One JSON object with all changes, or a line for each. With `isTry` nothing has been changed: the report
    // shows what would change.
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
