#pragma once

// What the process answers to its caller.
enum ExitCode : int {
    kFine = 0,
    kFindings = 1,  // findings, failed launches, or a pass that was refused
    kUsage = 2,
    kNoList = 3,  // the list file is missing or unreadable
};
