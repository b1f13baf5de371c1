#include "cli/commands/Passes.h"

#include <exception>
#include <functional>
#include <nlohmann/json.hpp>
#include <ostream>

#include "cli/report/ChangeReport.h"
#include "cli/report/JsonReport.h"
#include "cli/report/Refusal.h"
#include "core/launch/LaunchClaim.h"
#include "core/launch/SchedulingPass.h"
#include "core/platform/Clock.h"
#include "core/task/SCVShchedulerTaskArray.h"

namespace {

constexpr unsigned kTickMilliseconds = 2000;

// True when every launch succeeded and was recorded. `error` is why the pass stopped early; it is told when
// it differs from the one passed in, so that a watch does not repeat it on every tick.
bool LaunchDueTasks(CSCVShchedulerTaskArray& tasks, const Context& context, CLaunchClaim& claim,
                    std::string& error, const std::function<void(CSCVShchedulerTask&)>& tell) {
    bool fine = true;
    std::string stopped;
    try {
        RunSchedulingPass(tasks, context.platform, claim, [&](const PassRun& run) {
            tell(run.task);
            fine = fine && run.isStarted && run.isSaved;
            if (!run.isSaved) {
                context.Complain("the run of ", run.task.m_strProjectPath, " could not be saved in the list");
            }
            return true;
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
    CLaunchClaim claim(context.platform.files, context.list);
    std::string error;
    CChangeReport report;
    const bool fine = LaunchDueTasks(job.tasks, context, claim, error, [&](CSCVShchedulerTask& task) {
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
    CLaunchClaim claim(context.platform.files, context.list);
    std::string error;
    do {
        if (const std::string why = context.tryClaimLaunching(); !why.empty()) {
            throw CRefusal(why, kFindings);
        }
        (void)LaunchDueTasks(job.tasks, context, claim, error, [&](CSCVShchedulerTask& task) {
            context.out << (job.arguments.json
                                ? ChangeAsJson(kLaunched, task, context.platform.clock.Now()).dump()
                                : LaunchAsText(task))
                        << std::endl;
        });
    } while (!context.waitForStop(kTickMilliseconds));
    return kFine;
}
