#include "core/launch/SchedulingPass.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "core/launch/LaunchClaim.h"
#include "core/platform/Clock.h"
#include "core/platform/LocalTime.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/ExceptionText.h"

namespace {

// Throws std::invalid_argument with a sentence for the user instead of GetNextRunTime's own.
std::int64_t NextRunTime(const CSCVShchedulerTask& task, std::int64_t now) {
    try {
        return task.GetNextRunTime(now);
    } catch (const std::invalid_argument&) {
        throw std::invalid_argument(
            ToWhat(L"The project " + task.m_strProjectPath +
                   L" has an impossible start time. Untick it, delete it, or set a new start."));
    }
}

bool IsDue(const CSCVShchedulerTask& task, std::int64_t now) {
    if (task.m_bEnable == 0) {
        return false;
    }
    const std::int64_t next = NextRunTime(task, now);
    return next > 0 && next <= now;
}

// Takes the claim for one pass. The claim is kept while a run could not be saved: other schedulers learn of a
// run only from the file.
class CPassClaim {
public:
    CPassClaim(CLaunchClaim& claim, CSCVShchedulerTaskArray& tasks, IFileSystem& files)
        : m_claim(claim), m_tasks(tasks), m_files(files) {
        ReleaseOnceSaved();
    }
    CPassClaim(const CPassClaim&) = delete;
    CPassClaim& operator=(const CPassClaim&) = delete;
    ~CPassClaim() { ReleaseOnceSaved(); }

    // Does its work once in a pass: takes the claim, then reads the runs that others have saved. Nobody else
    // can launch anything afterwards, so the tasks stay up to date for the whole pass.
    [[nodiscard]] FileResult TryTake() {
        if (m_isReady) {
            return {};
        }
        FileResult result = m_claim.TryTake();
        if (result) {
            result = m_tasks.TakeOverRuns(m_files, m_claim.List());
        }
        m_isReady = result || result == FileResult::Status::Missing;
        return m_isReady ? FileResult() : result;
    }

private:
    void ReleaseOnceSaved() {
        if (m_claim.IsTaken() && !m_tasks.HasUnsavedRun()) {
            m_claim.Release();
        }
    }

    CLaunchClaim& m_claim;
    CSCVShchedulerTaskArray& m_tasks;
    IFileSystem& m_files;
    bool m_isReady = false;
};

}  // namespace

FileResult RunSchedulingPass(CSCVShchedulerTaskArray& tasks, const CPlatform& platform, CLaunchClaim& claim,
                             const std::function<bool(const PassRun&)>& onRun) {
    RefreshTimeZone();
    const std::int64_t now = platform.clock.Now();
    CPassClaim passClaim(claim, tasks, platform.files);
    // `onRun` may change the array, so its size is read each time.
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        CSCVShchedulerTask& task = *tasks[i];
        if (!IsDue(task, now)) {
            continue;
        }
        if (FileResult result = passClaim.TryTake(); !result) {
            return result;
        }
        if (!IsDue(task, now)) {
            continue;  // another scheduler has run it meanwhile
        }
        const bool isStarted = task.Run(platform.shell, platform.clock) != 0;
        const bool isSaved{tasks.TrySaveRun(platform.files, task)};
        if (!onRun({task, isStarted, isSaved})) {
            break;
        }
    }
    return {};
}
