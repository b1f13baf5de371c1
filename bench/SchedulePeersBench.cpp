// Compares the time for a next run with systemd's timers and croniter, which are widely used. All compute the
// same runs, Monday and Thursday at 9, each from the one before, and must find the same last run.
#include <sys/resource.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "core/platform/LocalTime.h"
#include "core/schedule/NextRuns.h"
#include "core/schedule/TimeText.h"
#include "tests/support/TaskRules.h"
#include "util/Utf8.h"

namespace {

constexpr int kRuns = 10'000;  // up to 2122; systemd's calendar ends with the year 2199

double ProcessorSeconds(int who) {
    rusage usage{};
    getrusage(who, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

struct Answer {
    std::string lastRun;  // "2026-06-08 09:00"
    double seconds = 0;   // of processor time
};

Answer Ours(std::int64_t start) {
    CSCVShchedulerTask task;
    SetRules(task, {.start = start, .days = kMon | kThu});
    const double before = ProcessorSeconds(RUSAGE_SELF);
    const std::vector<std::int64_t> runs = NextRuns(task, start - 1, kRuns);
    std::wstring text;
    for (const std::int64_t run : runs) {
        text = FormatMinute(run);
    }
    return {.lastRun = ToUtf8(text), .seconds = ProcessorSeconds(RUSAGE_SELF) - before};
}

// Runs a shell command whose last line of output is the date of the last run.
Answer Output(const std::string& command) {
    const double before = ProcessorSeconds(RUSAGE_CHILDREN);
    struct Close {
        void operator()(std::FILE* pipe) const { pclose(pipe); }
    };
    Answer answer;
    {
        const std::unique_ptr<std::FILE, Close> pipe(popen(command.c_str(), "r"));
        std::array<char, 128> line{};
        while (pipe && std::fgets(line.data(), line.size(), pipe.get()) != nullptr) {
            answer.lastRun = line.data();
        }
    }
    answer.seconds = ProcessorSeconds(RUSAGE_CHILDREN) - before;
    answer.lastRun = answer.lastRun.substr(0, answer.lastRun.find('\n'));
    return answer;
}

}  // namespace

int main() {
    setenv("TZ", "UTC", 1);
    RefreshTimeZone();
    const std::int64_t start = FromLocalTime(2026, 6, 1, 9, 0, 0);
    const Answer ours = Ours(start);
    const struct {
        const char* name;
        // The command that computes so many runs. The time for computing one run is subtracted as start-up.
        std::string (*command)(int runs);
    } peers[] = {
        {"systemd-analyze calendar",
         [](int runs) {
             return "systemd-analyze calendar --base-time='2026-06-01 08:59:59' --iterations=" +
                    std::to_string(runs) +
                    " 'Mon,Thu *-*-* 09:00:00' | sed -nE 's/.*: ... (....-..-.. ..:..):00 UTC.*/\\1/p' | "
                    "tail -n 1";
         }},
        {"croniter (Python)",
         [](int runs) {
             return "/usr/bin/python3 -c \"import datetime, croniter\n"
                    "times = croniter.croniter('0 9 * * 1,4', datetime.datetime(2026, 6, 1, 8, 59))\n"
                    "for _ in range(" +
                    std::to_string(runs) +
                    "): time = times.get_next(datetime.datetime)\n"
                    "print(time.strftime('%Y-%m-%d %H:%M'))\"";
         }},
    };
    std::printf("%d runs, the last one at %s: %.0f ns of processor time each here\n", kRuns,
                ours.lastRun.c_str(), ours.seconds / kRuns * 1e9);
    bool isFine = ours.seconds > 0;
    for (const auto& peer : peers) {
        const Answer one = Output(peer.command(1));
        const Answer all = Output(peer.command(kRuns));
        if (all.lastRun != ours.lastRun) {
            std::printf("%-26s FAILED: its last run is \"%s\"\n", peer.name, all.lastRun.c_str());
            isFine = false;
            continue;
        }
        std::printf("%-26s %8.1f times as much\n", peer.name, (all.seconds - one.seconds) / ours.seconds);
    }
    return isFine ? 0 : 1;
}
