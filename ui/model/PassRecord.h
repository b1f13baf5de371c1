#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// The runs that the scheduling pass has made since the whole list was last saved. Each is saved as it
// happens, but that can fail while another program holds the file. Reading the list again would then bring
// back the older last run and with it the same run a second time.
class CPassRecord {
public:
    // The last run of `task`, which is one of `tasks`.
    void Add(const CSCVShchedulerTaskArray& tasks, const CSCVShchedulerTask& task);
    // To be called once the list has been read again: gives the recorded run to every task that has
    // only an older one.
    void ApplyTo(const CSCVShchedulerTaskArray& tasks) const;
    // To be called once the whole list has been saved.
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
