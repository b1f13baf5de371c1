#pragma once

#include <cstdint>
#include <map>
#include <string>

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// The runs that the scheduling pass has made since the whole list was last saved. Each is saved as it
// happens, but that can fail while somebody else holds the file, and reading the list again would then bring
// back the older last run and with it the same run a second time.
class CPassRecord {
public:
    // A task without a section in the file cannot be read again and is not kept.
    void Add(const CSCVShchedulerTask& task);
    // To be called once the list has been read again: gives the recorded run to every task that the file
    // knows only by an older one.
    void ApplyTo(const CSCVShchedulerTaskArray& tasks) const;
    // To be called once the whole list has been saved.
    void Clear() noexcept { m_runs.clear(); }

private:
    struct stRun {
        std::wstring project;
        std::int64_t time = 0;
        std::wstring result;
    };
    std::map<std::wstring, stRun> m_runs;  // by section
};
