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

// Where the task list lives: in the local folder, else beside the executable. If there is no list, one of
// an earlier version is moved there: the one in the roaming folder or, without that, the one beside the
// executable. It is deleted only once it has been copied. Failures are not reported: the old list then stays
// where it is.
std::wstring SettleTaskListPath(const stTaskListNames& names, IFileSystem& files);
