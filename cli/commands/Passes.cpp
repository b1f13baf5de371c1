#include "cli/commands/Passes.h"

#include <exception>

#include "cli/report/ChangeReport.h"
#include "cli/report/Refusal.h"
#include "core/launch/LaunchClaim.h"
#include "core/platform/Clock.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/ExceptionText.h"

bool LaunchDueTasks(CSCVShchedulerTaskArray& tasks, const Context& context, CLaunchClaim& claim,
                    std::string& stopped, const std::function<void(const PassRun&)>& launched) {
    bool isFine = true;
    std::string why;
    try {
        const FileResult passed = RunSchedulingPass(tasks, context.platform, claim, [&](const PassRun& run) {
            launched(run);
            isFine = isFine && run.isStarted && run.isSaved;
            if (!run.isSaved) {
                context.Complain("the run of ", run.task.m_strProjectPath, " could not be saved in the list");
            }
            return true;
        });
        if (!passed) {
            why = Join("what is due is left to the next pass: ", context.Reason(passed));
        }
    } catch (const std::exception& cause) {
        why = Join("the pass stopped at a task whose next run cannot be computed: ", FromWhat(cause));
    }
    if (!why.empty() && why != stopped) {
        context.Complain(why);
    }
    isFine = isFine && why.empty();
    stopped = why;
    return isFine;
}

int RunPass(const Job& job) {
    const Context& context = job.context;
    std::string stopped;
    CChangeReport report;
    const bool isFine = LaunchDueTasks(job.tasks, context, job.claim, stopped, [&](const PassRun& run) {
        if (job.arguments.json) {
            report.Add(kLaunched, run.task);
        } else {
            context.out << LaunchAsText(run.task) << std::endl;
        }
    });
    if (job.arguments.json) {
        context.out << report.Write(context.list, context.platform.clock.Now(), true);
    }
    return isFine ? kFine : kFindings;
}
