#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CSCVShchedulerTask;
struct Context;

// The change that a launch is.
inline constexpr const char* kRunChange = "run";

// One launch as a line for people: when, what and with which result.
[[nodiscard]] std::string LaunchAsText(const CSCVShchedulerTask& task);
// {"change": ..., "task": {...}} in one line.
[[nodiscard]] std::string ChangeAsJson(const char* change, CSCVShchedulerTask& task, std::int64_t now);

// What a command has done to tasks, one entry a task.
class CChangeReport {
public:
    // The task is told of as it is when the report is written, and has to live until then.
    void Add(const char* change, CSCVShchedulerTask& task) { m_changes.push_back({change, &task, {}, {}}); }
    // A task that goes before that.
    void AddGone(const char* change, CSCVShchedulerTask& task, std::int64_t now);

    // One object with all changes, or a line for each.
    void Write(const Context& context, std::int64_t now, bool json) const;

private:
    struct Change {
        const char* change;
        CSCVShchedulerTask* task;  // null once it is gone; then the two below are what is told of it
        std::string text;
        std::string json;
    };
    std::vector<Change> m_changes;
};
