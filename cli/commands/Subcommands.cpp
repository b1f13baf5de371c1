#include "cli/commands/Subcommands.h"

#include "cli/commands/Edit.h"
#include "cli/commands/Exchange.h"
#include "cli/commands/Keepers.h"
#include "cli/commands/Looks.h"
#include "cli/commands/Passes.h"
#include "cli/commands/Watch.h"
#include "cli/report/Refusal.h"
#include "core/launch/LaunchClaim.h"
#include "core/platform/Clock.h"
#include "core/task/SCVShchedulerTaskArray.h"

namespace {

constexpr Subcommand kSubcommands[] = {
    {.name = "list",
     .help =
         "Show every task with its last and next run and its schedule in words; with --failed or projects, "
         "a line each with tabs: last run, next run, last result, project, schedule",
     .example = "--failed",
     .takes = Takes::Filter,
     .handler = ListTasks},
    {.name = "next",
     .help = "Show when each task runs next; or all runs in order of time; or how many start in which hour",
     .example = "--from 2030-03-04 --to 2030-03-05 --csv",
     .takes = Takes::NextRuns,
     .handler = ListNextRuns},
    {.name = "check",
     .help = "Find what will not work or will not survive",
     .example = "",
     .takes = Takes::Time,
     .handler = CheckList},
    {.name = "pass",
     .help = "Launch what is due now, once",
     .example = "",
     .claim = Claim::List,
     .handler = RunPass},
    {.name = "watch",
     .help = "Launch what is due, every two seconds until Ctrl+C",
     .example = "--on-failure C:\\tools\\mail.cmd",
     .takes = Takes::Command,
     .claim = Claim::Watch,
     .handler = Watch},
    {.name = "add",
     .help =
         "Add projects to the list. Without commands a task deletes its URLs and results, starts, exports "
         "its results and closes the program; the first run is five minutes from now",
     .example = R"(C:\projects\prices.scvpr --start 2030-03-04T08:00 --days mon,tue,wed,thu,fri)",
     .takes = Takes::NewTask,
     .claim = Claim::List,
     .makesList = true,
     .canTry = true,
     .handler = AddProjects},
    {.name = "set",
     .help = "Change listed tasks; what is not named stays",
     .example = R"(C:\projects\prices.scvpr C:\projects\news.scvpr --no-every --add-urls more.csv)",
     .takes = Takes::Changes,
     .claim = Claim::List,
     .canTry = true,
     .handler = SetTasks},
    {.name = "enable",
     .help = "Let listed tasks run when they are due",
     .example = R"(C:\projects\prices.scvpr)",
     .takes = Takes::Projects,
     .claim = Claim::List,
     .canTry = true,
     .handler = EnableTasks},
    {.name = "disable",
     .help = "Keep listed tasks from running",
     .example = R"(C:\projects\prices.scvpr)",
     .takes = Takes::Projects,
     .claim = Claim::List,
     .canTry = true,
     .handler = DisableTasks},
    {.name = "remove",
     .help = "Take tasks out of the list",
     .example = R"(C:\projects\prices.scvpr)",
     .takes = Takes::Projects,
     .claim = Claim::List,
     .canTry = true,
     .handler = RemoveTasks},
    {.name = "run",
     .help = "Run listed projects now, due or not, and note when and how it went",
     .example = R"(C:\projects\prices.scvpr C:\projects\news.scvpr)",
     .takes = Takes::Projects,
     .claim = Claim::List,
     .canTry = true,
     .handler = RunProjects},
    {.name = "export",
     .help = "Write the whole list as JSON",
     .example = "tasks.json",
     .takes = Takes::OutFile,
     .handler = ExportList},
    {.name = "import",
     .help =
         "Add the tasks of what export has written. A task that says nothing but its project becomes what "
         "add makes of it",
     .example = "tasks.json --replace",
     .takes = Takes::InFile,
     .claim = Claim::List,
     .makesList = true,
     .canTry = true,
     .handler = ImportList},
};

// Throws CRefusal when another program uses the tasks, or when the list is read-only.
void ClaimAndSettleList(const Subcommand& subcommand, const Context& context, CLaunchClaim& claim) {
    if (subcommand.claim == Claim::None) {
        return;
    }
    RequireUnkept(context, CListKeeper::Kind::Window);
    RequireUnkept(context, CListKeeper::Kind::Watch);
    context.settleList();
    if (subcommand.claim == Claim::List && !claim.TryTake()) {
        throw CRefusal(Join("another program launches or edits the tasks of ", context.list,
                            " right now; try again when it has finished"),
                       kFindings);
    }
    if (context.platform.files.IsReadOnly(context.list)) {
        throw CRefusal(Join("the task list ", context.list, " is read-only, so nothing could be recorded"),
                       kFindings);
    }
}

// Throws CRefusal when there is no list and the subcommand needs one.
void LoadList(const Subcommand& subcommand, const Context& context, CSCVShchedulerTaskArray& tasks) {
    const FileResult loaded = tasks.TryLoad(context.platform.files, context.list);
    if (loaded == FileResult::Status::Missing) {
        if (!subcommand.makesList) {
            throw CRefusal(Join("the task list ", context.list, " does not exist"), kNoList);
        }
    } else if (!loaded) {
        throw CRefusal(Join("the task list cannot be read: ", context.Reason(loaded)), kNoList);
    }
    if (tasks.IsForeign() && subcommand.claim != Claim::None) {
        throw CRefusal(Join(context.list, " has a text that is no task list; nothing is written into it"));
    }
    if (tasks.IsForeign()) {
        context.Warn(context.list, " has a text that is no task list");
    }
}

}  // namespace

std::span<const Subcommand> Subcommands() {
    return kSubcommands;
}

int RunSubcommand(const Arguments& arguments, const Context& context) {
    const Subcommand& subcommand = *arguments.subcommand;
    try {
        // Read the input before claiming the list: another scvsched may still have to export it.
        const std::string input =
            subcommand.takes == Takes::InFile ? ReadImport(arguments.file, context) : std::string();
        CLaunchClaim claim(context.platform.files, context.list);
        if (!arguments.dryRun) {
            ClaimAndSettleList(subcommand, context, claim);
        }
        CSCVShchedulerTaskArray tasks;
        LoadList(subcommand, context, tasks);
        const std::int64_t now = arguments.at.value_or(context.platform.clock.Now());
        return subcommand.handler({arguments, context, tasks, claim, now, input});
    } catch (const CRefusal& refusal) {
        context.Complain(refusal.what());
        return refusal.Code();
    }
}
