#pragma once

#include <functional>

#include "core/platform/Platform.h"

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// One launch of a pass. What came of it stands in the task, whose run counts in any case.
struct PassRun {
    CSCVShchedulerTask& task;
    bool isStarted;  // the extraction program
    bool isSaved;  // the run, in the task's file; one that is only in memory would come again after a restart
};

// Launches every enabled task of the array that is due, in array order, and saves each launched task at once
// to the file and section that it came from. A failed launch is recorded and saved like a successful one.
// `onRun` is called after each launch has been saved; false ends the pass. It may change the array.
// Throws what GetNextRunTime throws; the tasks before the one that threw have been launched and saved by
// then.
void RunSchedulingPass(CSCVShchedulerTaskArray& tasks, const CPlatform& platform,
                       const std::function<bool(const PassRun&)>& onRun);
