#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// The runs of the scheduling pass since the whole list was last saved. Each run is saved at once, but that
// can fail while another program has the file open. Reading the list again would then restore the older last
// run, and the project would run a second time.
class CPassRecord {
public:
    // The last run of `task`, which is one of `tasks`.
    void Add(const CSCVShchedulerTaskArray& tasks, const CSCVShchedulerTask& task);
    // Call it after the list was read again: gives every task its recorded run if its own last run is older.
    void ApplyTo(const CSCVShchedulerTaskArray& tasks) const;
    // Call it after the whole list was saved.
    void Clear() noexcept { m_runs.clear(); }

private:
    struct stRun {
        std::int64_t time = 0;
        std::wstring result;
        bool isUnsaved = false;  // the task's m_bIsRunUnsaved
    };
    // The project (ProjectKey), and which of its tasks it is in a list that has the project more than once.
    // The section does not identify a task: another program can have renumbered the sections.
    using Key = std::pair<std::wstring, std::size_t>;

    std::map<Key, stRun> m_runs;
};
