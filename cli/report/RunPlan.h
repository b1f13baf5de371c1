#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class CSCVShchedulerTask;

struct PlannedRun {
    std::int64_t time;
    const CSCVShchedulerTask* task;
};

// The runs of all tasks from `from` to `to`, both included, in order of time, at most `count`. Assumes that
// runs before `from` happen on time. Tasks whose runs cannot be computed are left out and appended to
// `unplanned`.
[[nodiscard]] std::vector<PlannedRun> PlanRuns(const std::vector<CSCVShchedulerTask*>& tasks,
                                               std::int64_t now, std::int64_t from, std::int64_t to,
                                               std::size_t count,
                                               std::vector<const CSCVShchedulerTask*>& unplanned);

// "2024-06-03 10:00:00  C:\projects\prices.scvpr", a line for each run.
[[nodiscard]] std::string RunsAsText(const std::vector<PlannedRun>& runs);
[[nodiscard]] std::string RunsAsCsv(const std::vector<PlannedRun>& runs);
[[nodiscard]] std::string RunsAsJson(const std::wstring& list, std::int64_t now,
                                     const std::vector<PlannedRun>& runs);

// How many projects start in each hour of seven days, of which the first is that of `now`.
struct WeekGrid {
    struct Day {
        std::wstring name;  // "Mon 03 Jun"
        std::wstring date;  // "2024-06-03"
        int starts[24] = {};
    };
    Day days[7];
    int most = 0;             // starts in one minute
    std::int64_t mostAt = 0;  // the first such minute
};

// The last second of the seven days.
[[nodiscard]] std::int64_t EndOfWeek(std::int64_t now);
// Counts `runs`, which are those from now to EndOfWeek(now).
[[nodiscard]] WeekGrid CountStarts(const std::vector<PlannedRun>& runs, std::int64_t now);
// At most 80 columns as long as no hour has more than 99 starts.
[[nodiscard]] std::string WeekAsText(const WeekGrid& week);
[[nodiscard]] std::string WeekAsCsv(const WeekGrid& week);
[[nodiscard]] std::string WeekAsJson(const std::wstring& list, std::int64_t now, const WeekGrid& week);
