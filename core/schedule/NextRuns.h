#pragma once

#include <cstdint>
#include <vector>

class CSCVShchedulerTask;

// The next `count` runs of the task seen from `now`, fewer when the task stops; empty for a disabled task.
// Assumes that each run happens on time, an overdue one at `now`. Throws what GetNextRunTime throws.
[[nodiscard]] std::vector<std::int64_t> NextRuns(const CSCVShchedulerTask& task, std::int64_t now, int count);
