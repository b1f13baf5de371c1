#include "cli/commands/Watch.h"

#include <algorithm>
#include <exception>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/commands/Keepers.h"
#include "cli/commands/Passes.h"
#include "cli/report/ChangeReport.h"
#include "cli/report/Refusal.h"
#include "core/launch/LaunchClaim.h"
#include "core/list/Storable.h"
#include "core/platform/Clock.h"
#include "core/platform/FileSystem.h"
#include "core/schedule/TimeText.h"
#include "core/task/SCVShchedulerTaskArray.h"

namespace {

constexpr unsigned kTickMilliseconds = 2000;

// The earliest next run in words, or that there is none.
std::string NextRunText(const CSCVShchedulerTaskArray& tasks, std::int64_t now) {
    const CSCVShchedulerTask* first = nullptr;
    std::int64_t earliest = 0;
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        try {
            const std::int64_t next = tasks[i]->m_bEnable == 0 ? 0 : tasks[i]->GetNextRunTime(now);
            if (next > 0 && (first == nullptr || next < earliest)) {
                first = tasks[i];
                earliest = next;
            }
        } catch (const std::exception&) {  // the pass reports it
        }
    }
    return first == nullptr ? "none of them has a next run"
                            : Join("the next run is ", FormatSecond(earliest), "  ", first->m_strProjectPath);
}

class CWatch {
public:
    explicit CWatch(const Job& job)
        : m_context(job.context),
          m_arguments(job.arguments),
          m_tasks(job.tasks),
          m_claim(job.claim),
          m_keeper(job.context.platform.files, job.context.list, CListKeeper::Kind::Watch),
          m_stamp(Stamp()) {}

    // Prints the list, its number of tasks and the next run.
    void Announce(const char* what) const;
    void Tick();

private:
    struct UnsavedRun {
        std::int64_t time = 0;
        std::wstring result;
    };

    [[nodiscard]] std::optional<FileStamp> Stamp() const {
        return m_context.platform.files.Stamp(m_context.list);
    }
    void Follow();
    // While a run is not in the file the claim is kept, so no other scheduler of the list launches anything.
    void SaveUnsavedRuns();
    void Launched(const PassRun& run);
    void ComplainOnce(const std::string& complaint);
    // After the list was read again: restores the runs that the file does not have.
    void RestoreRuns();
    // After the list was read again: restores command lines whose apostrophes our own save has doubled, or
    // each run would double them once more.
    void RestoreApostrophes(const std::map<std::wstring, std::wstring>& commandLines);

    const Context& m_context;
    const Arguments& m_arguments;
    CSCVShchedulerTaskArray& m_tasks;
    CLaunchClaim& m_claim;
    CListKeeper m_keeper;
    std::optional<FileStamp> m_stamp;  // of the file when it was read; nothing while there is none
    bool m_isThere = true;
    std::optional<FileStamp> m_ownStamp;           // of the file as this process has saved it last
    std::map<std::wstring, UnsavedRun> m_unsaved;  // by project: runs that the file does not have
    std::string m_complaint;
    std::string m_stopped;
};

void CWatch::Announce(const char* what) const {
    std::ostream& stream = m_arguments.json ? m_context.err : m_context.out;
    const std::ptrdiff_t count = m_tasks.GetSize();
    stream << Join(what, m_context.list, ": ", std::to_string(count), count == 1 ? " task, " : " tasks, ",
                   NextRunText(m_tasks, m_context.platform.clock.Now()))
           << std::endl;
}

void CWatch::Tick() {
    RequireUnkept(m_context, CListKeeper::Kind::Window);
    if (!m_keeper.TryKeep()) {
        RefuseKept(m_context, CListKeeper::Kind::Watch);
    }
    Follow();
    if (m_isThere) {
        SaveUnsavedRuns();
        // A watch continues after failures, which this call reports.
        (void)LaunchDueTasks(m_tasks, m_context, m_claim, m_stopped,
                             [this](const PassRun& run) { Launched(run); });
    }
    for (const std::uint32_t code : m_context.failureCommand.TakeFailures()) {
        m_context.Complain("the command of --on-failure has ended with code ", std::to_string(code));
    }
}

void CWatch::Follow() {
    const std::optional<FileStamp> stamp = Stamp();
    if (stamp == m_stamp) {
        return;
    }
    std::map<std::wstring, std::wstring> commandLines;
    for (std::ptrdiff_t i = 0; i < m_tasks.GetSize(); ++i) {
        if (HoldsApostrophe(*m_tasks[i])) {
            commandLines[m_tasks[i]->m_strIniSection] = m_tasks[i]->BuildCommandLine();
        }
    }
    const FileResult read = m_tasks.TryLoad(m_context.platform.files, m_context.list);
    if (read == FileResult::Status::Missing) {
        m_isThere = false;
        m_stamp = stamp;
        ComplainOnce(
            Join("the task list ", m_context.list, " is gone; nothing is launched until it is back"));
        return;
    }
    if (!read) {  // the stamp stays, so that the next tick tries again
        ComplainOnce(Join("the task list has changed and cannot be read now, its tasks run as they were: ",
                          m_context.Reason(read)));
        return;
    }
    m_stamp = stamp;
    m_complaint.clear();
    RestoreRuns();
    RestoreApostrophes(commandLines);
    m_isThere = true;
    if (stamp != m_ownStamp) {
        Announce("Changed: ");
    }
}

void CWatch::RestoreRuns() {
    std::erase_if(m_unsaved, [this](const auto& unsaved) {
        const auto& [project, run] = unsaved;
        const std::ptrdiff_t place = m_tasks.FindTask(project);
        if (place < 0 || m_tasks[place]->m_tLastRunTime >= run.time) {
            return true;
        }
        m_tasks[place]->m_tLastRunTime = run.time;
        m_tasks[place]->m_strLastRunResult = run.result;
        m_tasks[place]->m_bIsRunUnsaved = true;
        return false;
    });
}

void CWatch::SaveUnsavedRuns() {
    std::erase_if(m_unsaved, [this](const auto& unsaved) {
        const std::ptrdiff_t place = m_tasks.FindTask(unsaved.first);
        const bool isSaved = place < 0 || m_tasks.TrySaveRun(m_context.platform.files, *m_tasks[place]);
        if (isSaved) {
            m_ownStamp = Stamp();
        }
        return isSaved;
    });
}

void CWatch::RestoreApostrophes(const std::map<std::wstring, std::wstring>& commandLines) {
    for (std::ptrdiff_t i = 0; i < m_tasks.GetSize(); ++i) {
        const auto before = commandLines.find(m_tasks[i]->m_strIniSection);
        if (before != commandLines.end() &&
            HalvedApostrophes(m_tasks[i]->BuildCommandLine()) == before->second) {
            m_tasks[i]->ParseCommandLine(before->second);
        }
    }
}

void CWatch::Launched(const PassRun& run) {
    const CSCVShchedulerTask& task = run.task;
    m_context.out << (m_arguments.json
                          ? ChangeAsJson(kLaunched, run.task, m_context.platform.clock.Now()).dump()
                          : LaunchAsText(task))
                  << std::endl;
    if (run.isSaved) {
        m_ownStamp = Stamp();
        m_unsaved.erase(task.m_strProjectPath);
    } else {
        m_unsaved[task.m_strProjectPath] = {task.m_tLastRunTime, task.m_strLastRunResult};
    }
    if (!run.isStarted && !m_arguments.onFailure.empty()) {
        const std::wstring why = m_context.failureCommand.Start(m_arguments.onFailure, task.m_strProjectPath,
                                                                task.m_strLastRunResult);
        if (!why.empty()) {
            m_context.Complain("the command of --on-failure could not be started: ", why);
        }
    }
}

void CWatch::ComplainOnce(const std::string& complaint) {
    if (complaint != m_complaint) {
        m_context.Complain(complaint);
        m_complaint = complaint;
    }
}

}  // namespace

int Watch(const Job& job) {
    CWatch watch(job);
    watch.Announce("Watching ");
    do {
        watch.Tick();
    } while (!job.context.waitForStop(kTickMilliseconds));
    return kFine;
}
