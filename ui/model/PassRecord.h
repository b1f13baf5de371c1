#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;
class IFileSystem;

// The runs that the scheduling pass has made since the whole list was last saved. Each is saved as it
// happens, but that can fail while another program holds the file. Reading the list again would then bring
// back the older last run and with it the same run a second time.
class CPassRecord {
public:
    // `isSaved`: the task's file has the run.
    void Add(const CSCVShchedulerTask& task, bool isSaved);
    // To be called once the list has been read again: gives the recorded run to every task that has
    // only an older one.
    void ApplyTo(const CSCVShchedulerTaskArray& tasks) const;
    // Saves the tasks whose runs could not be saved, up to the first failure.
    void SaveTo(IFileSystem& files, CSCVShchedulerTaskArray& tasks);
    // Whether a task that has a section has a run that could not be saved.
    [[nodiscard]] bool HasUnsaved() const noexcept;
    // To be called once the whole list has been saved.
    void Clear() noexcept { m_runs.clear(); }

private:
    struct stRun {
        std::int64_t time = 0;
        std::wstring result;
        bool isSaved = false;
    };
    // The key is the section (empty for a task that is in no file yet) and the project in upper case: another
    // process may have given the section to another project meanwhile.
    using Key = std::pair<std::wstring, std::wstring>;
    [[nodiscard]] static Key KeyOf(const CSCVShchedulerTask& task);

    std::map<Key, stRun> m_runs;
};
