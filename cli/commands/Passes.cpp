#include "cli/commands/Passes.h"

#include <exception>
#include <functional>
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/report/ChangeReport.h"
#include "cli/report/JsonReport.h"
#include "cli/report/Refusal.h"
#include "core/launch/SchedulingPass.h"
#include "core/platform/Clock.h"
#include "core/task/SCVShchedulerTaskArray.h"

namespace {

constexpr unsigned kTickMilliseconds = 2000;

// Whether the file holds what the pass has just recorded; a run that it does not hold would come again after
// a restart.
bool IsSaved(const CSCVShchedulerTask& task, IFileSystem& files) {
    CSCVShchedulerTask stored;
    return stored.LoadFromIni(files, task.m_strIniFile, task.m_strIniSection) != 0 &&
           stored.m_tLastRunTime == task.m_tLastRunTime;
}

// True when every launch succeeded and was recorded. `error` is why the pass stopped early; it is told when
// it differs from the one passed in, so that a watch does not repeat it on every tick.
bool LaunchDueTasks(CSCVShchedulerTaskArray& tasks, const Context& context, std::string& error,
                    const std::function<void(CSCVShchedulerTask&)>& tell) {
    bool fine = true;
    std::string stopped;
    try {
        RunSchedulingPass(tasks, context.platform, [&](CSCVShchedulerTask& task) {
            tell(task);
            fine = fine && task.m_strLastRunResult == L"Success";
            if (!IsSaved(task, context.platform.files)) {
                context.Complain("the run of ", task.m_strProjectPath, " could not be saved in the list");
                fine = false;
            }
        });
    } catch (const std::exception& cause) {
        stopped = cause.what();
        fine = false;
    }
    if (!stopped.empty() && stopped != error) {
        context.Complain("the pass stopped at a task whose next run cannot be computed: ", stopped);
    }
    error = stopped;
    return fine;
}

}  // namespace

int RunPass(const Job& job) {
    const Context& context = job.context;
    const bool json = job.arguments.json;
    std::string error;
    CChangeReport report;
    const bool fine = LaunchDueTasks(job.tasks, context, error, [&](CSCVShchedulerTask& task) {
        if (json) {
            report.Add(kLaunched, task);
        } else {
            context.out << LaunchAsText(task) << std::endl;
        }
    });
    if (json) {
        context.out << report.Write(context.list, context.platform.clock.Now(), true);
    }
    return fine ? kFine : kFindings;
}

int Watch(const Job& job) {
    const Context& context = job.context;
    std::string error;
    do {
        if (const std::string why = context.tryClaimLaunching(); !why.empty()) {
            throw CRefusal(why, kFindings);
        }
        (void)LaunchDueTasks(job.tasks, context, error, [&](CSCVShchedulerTask& task) {
            context.out << (job.arguments.json
                                ? ChangeAsJson(kLaunched, task, context.platform.clock.Now()).dump()
                                : LaunchAsText(task))
                        << std::endl;
        });
    } while (!context.waitForStop(kTickMilliseconds));
    return kFine;
}
