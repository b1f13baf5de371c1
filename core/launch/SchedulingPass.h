#pragma once

#include <functional>

#include "core/platform/Platform.h"

class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;

// Launches every enabled task of the array that is due, in array order, and saves each launched task at once
// to the file and section that it came from. `repaint` is called after each launched task has been saved,
// with that task. A failed launch is recorded and saved like a successful one. Raises what GetNextRunTime
// raises; the tasks before the one that raised have been launched and saved by then.
void RunSchedulingPass(CSCVShchedulerTaskArray& tasks, const CPlatform& platform,
                       const std::function<void(CSCVShchedulerTask&)>& repaint);
