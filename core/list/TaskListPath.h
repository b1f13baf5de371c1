#pragma once

#include <string>

class IFileSystem;

struct stTaskListNames {
    // Folder and base name of the executable with the extension "HLP".
    std::wstring helpFile;
    // The user's application data, without a backslash at its end; empty when unknown.
    std::wstring roamingFolder;
    // As roamingFolder, for this machine alone.
    std::wstring localFolder;
    // Name of the application.
    std::wstring application;
    // Base name of the executable.
    std::wstring executable;
};

// Returns the path of the task list: in the local folder, or beside the executable when that is unknown. If
// there is no list, moves one of an earlier version there: the one in the roaming folder or, without that,
// the one beside the executable. The old list is deleted only after it was copied. Failures are not reported:
// the old list then stays.
std::wstring SettleTaskListPath(const stTaskListNames& names, IFileSystem& files);
