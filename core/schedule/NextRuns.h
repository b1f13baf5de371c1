#pragma once

#include <cstdint>
#include <vector>

class CSCVShchedulerTask;

// The next `count` runs of the task seen from `now`, fewer when it stops; empty for a disabled task. After
// each run the task counts as run at the later of its time and now, and now moves there. The task is as
// before on return. Raises what GetNextRunTime raises.
[[nodiscard]] std::vector<std::int64_t> NextRuns(CSCVShchedulerTask& task, std::int64_t now, int count);
