#pragma once

#include <cstdint>
#include <vector>

class CSCVShchedulerTask;

// The next `count` runs of the task seen from `now`, fewer when it stops; empty for a disabled task. After
// each run the task counts as run at the later of its time and now, and now moves there. Throws
// what GetNextRunTime throws.
[[nodiscard]] std::vector<std::int64_t> NextRuns(const CSCVShchedulerTask& task, std::int64_t now, int count);
