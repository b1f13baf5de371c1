#pragma once

#include <functional>

#include "core/platform/FileSystem.h"
#include "core/platform/Platform.h"

class CLaunchClaim;
class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// One launch of a pass. The task holds its result; the run counts even when the launch failed.
struct PassRun {
    CSCVShchedulerTask& task;
    bool isStarted;  // the extraction program was started
    bool isSaved;    // the run is in the task's file; otherwise it would be repeated after a restart
};

// Launches every enabled task of the array that is due, in array order, and saves each launched task at once
// to the file and section that it came from. A failed launch is recorded and saved like a successful one.
// Follows a change of the system's time zone. `onRun` is called after each launch has been saved; false ends
// the pass. It may change the array. Throws std::invalid_argument, with a sentence (FromWhat) that names
// project and remedy, for a task whose next run cannot be computed; the tasks before it have been launched
// and saved by then.
//
// At the first due task it takes the claim and then, if the list file has changed, reads the runs that other
// schedulers of the list have saved: a project that they have run is not launched again. When another
// scheduler holds the claim (Busy), or has changed a file that cannot be read now, everything due is left to
// the next pass; the result is the reason. The claim is released at the end, but while a run is not saved it
// is kept until a later pass finds the run saved.
FileResult RunSchedulingPass(CSCVShchedulerTaskArray& tasks, const CPlatform& platform, CLaunchClaim& claim,
                             const std::function<bool(const PassRun&)>& onRun);
