#include "cli/commands/Passes.h"

#include <exception>
#include <functional>
#include <ostream>

#include "cli/report/ChangeReport.h"
#include "cli/commands/ExitCode.h"
#include "core/platform/Clock.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "core/launch/SchedulingPass.h"
#include "util/Utf8.h"

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
                context.err << "scvsched: the run of " << ToUtf8(task.m_strProjectPath)
                            << " could not be saved in the list" << std::endl;
                fine = false;
            }
        });
    } catch (const std::exception& cause) {
        stopped = cause.what();
        fine = false;
    }
    if (!stopped.empty() && stopped != error) {
        context.err << "scvsched: the pass stopped at a task whose next run cannot be computed: " << stopped
                    << std::endl;
    }
    error = stopped;
    return fine;
}

}  // namespace

int RunPass(CSCVShchedulerTaskArray& tasks, const Context& context, bool json) {
    std::string error;
    CChangeReport report;
    const bool fine = LaunchDueTasks(tasks, context, error, [&](CSCVShchedulerTask& task) {
        if (json) {
            report.Add(kRunChange, task);
        } else {
            context.out << LaunchAsText(task) << std::endl;
        }
    });
    if (json) {
        report.Write(context, context.platform.clock.Now(), true);
    }
    return fine ? kFine : kFindings;
}

int Watch(CSCVShchedulerTaskArray& tasks, const Context& context, bool json) {
    std::string error;
    do {
        if (const std::string why = context.whyNotToLaunch(); !why.empty()) {
            context.err << "scvsched: " << why << std::endl;
            return kFindings;
        }
        (void)LaunchDueTasks(tasks, context, error, [&](CSCVShchedulerTask& task) {
            context.out << (json ? ChangeAsJson(kRunChange, task, context.platform.clock.Now())
                                 : LaunchAsText(task))
                        << std::endl;
        });
    } while (!context.waitForStop(kTickMilliseconds));
    return kFine;
}
