#pragma once

#include <string>

// The file calls that settling a task list in its place makes. Paths are full Windows paths. Failures are not
// reported but by the answer.
class ITaskListPlaces {
public:
    ITaskListPlaces() = default;
    ITaskListPlaces(const ITaskListPlaces&) = delete;
    ITaskListPlaces& operator=(const ITaskListPlaces&) = delete;
    virtual ~ITaskListPlaces() = default;

    [[nodiscard]] virtual bool Exists(const std::wstring& path) = 0;
    // One level only.
    virtual void CreateFolder(const std::wstring& folder) = 0;
    // True when the whole file stands at `to`, whatever stood there before. Otherwise there is nothing new at
    // `to`: what is left there half copied would be taken for the list from then on.
    [[nodiscard]] virtual bool Copy(const std::wstring& from, const std::wstring& to) = 0;
    virtual void Delete(const std::wstring& path) = 0;
};

struct stTaskListNames {
    std::wstring helpFile;  // folder and base name of the executable with the extension "HLP"
    std::wstring
        roamingFolder;  // the user's application data, without a backslash at its end; empty when unknown
    std::wstring localFolder;  // as roamingFolder, for this machine alone
    std::wstring application;  // name of the application
    std::wstring executable;   // base name of the executable
};

// Where the task list lives: in the local folder, else beside the executable. A list of an earlier version is
// moved there, the one in the roaming folder before the one beside the executable, unless there is a list; it
// is deleted only once it has been copied.
std::wstring SettleTaskListPath(const stTaskListNames& names, ITaskListPlaces& places);
