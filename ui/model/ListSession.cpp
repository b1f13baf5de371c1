#include "ui/model/ListSession.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "core/launch/SchedulingPass.h"
#include "core/platform/Clock.h"
#include "core/task/ProjectSet.h"
#include "util/ExceptionText.h"

namespace {

// Sets a flag during its lifetime.
class CFlagGuard {
public:
    explicit CFlagGuard(bool& flag) noexcept : m_flag(flag) { flag = true; }
    CFlagGuard(const CFlagGuard&) = delete;
    CFlagGuard& operator=(const CFlagGuard&) = delete;
    ~CFlagGuard() { m_flag = false; }

private:
    bool& m_flag;
};

CSCVShchedulerTaskArray CopyOf(const CSCVShchedulerTaskArray& tasks) {
    CSCVShchedulerTaskArray copy;
    copy.CopyFrom(tasks);
    return copy;
}

// Adds copies of the tasks in `added` whose projects `tasks` does not list yet.
void Join(CSCVShchedulerTaskArray& tasks, const CSCVShchedulerTaskArray& added) {
    CProjectSet listed(tasks);
    for (std::ptrdiff_t i = 0; i < added.GetSize(); ++i) {
        if (listed.Add(added[i]->m_strProjectPath)) {
            tasks.AddTask(*added[i]);
        }
    }
}

}  // namespace

CListSession::CListSession(const CPlatform& platform, std::wstring file)
    : m_platform(platform),
      m_strFile(std::move(file)),
      m_claim(platform.files, m_strFile),
      m_keeper(platform.files, m_strFile, CListKeeper::Kind::Window) {}

void CListSession::Load() {
    (void)m_keeper.TryKeep();  // another window may keep the list; both run it
    Read(m_platform.files, false);
}

std::wstring CListSession::Notice() const {
    if (m_bWasRead) {
        return {};
    }
    return m_readFailure == FileResult::Status::Busy
               ? L"The list is in use by another program. Trying again\u2026"
               : L"The list cannot be read: " + DescribeFailure(m_platform.files, m_readFailure);
}

void CListSession::BeginEditing() {
    if (!m_beforeEditing) {
        m_beforeEditing = CopyOf(m_tasks);
    }
}

bool CListSession::Accept() {
    return AcceptInto(m_platform.files);
}

bool CListSession::AcceptInto(IFileSystem& files) {
    m_beforeEditing.reset();
    m_bSavePending = true;
    m_bReadPending = !m_bWasRead;
    return TryPending(files, true);
}

void CListSession::Discard() {
    if (!m_bSavePending) {
        Read(m_platform.files, false);
    }
    // When the list is missing, no reading is pending: the tasks stay as they are, edits included.
    if (m_beforeEditing && (m_bSavePending || m_bReadPending)) {
        m_tasks = std::move(*m_beforeEditing);
        m_passRecord.ApplyTo(m_tasks);
    }
    m_beforeEditing.reset();
}

void CListSession::Close(IFileSystem& files) {
    AcceptInto(files);
}

bool CListSession::OnTick(bool mayReplaceTasks) {
    // A window that kept the list at Load may have ended since.
    (void)m_keeper.TryKeep();
    return !m_bLaunching && m_retry.IsTryDue() && TryPending(m_platform.files, mayReplaceTasks);
}

// Reads the list, saves it or saves single runs, whichever is pending. While the user edits, a list that was
// read before is neither read again nor saved.
bool CListSession::TryPending(IFileSystem& files, bool mayReplaceTasks) {
    bool isReplaced = false;
    if (m_bReadPending && mayReplaceTasks && !m_bLaunching && !(m_bWasRead && m_beforeEditing)) {
        isReplaced = Read(files, !m_bWasRead);
    }
    if (m_bSavePending && m_bWasRead && !m_beforeEditing) {
        Save(files);
    }
    m_tasks.SaveUnsavedRuns(files);
    if (!m_bLaunching && !m_tasks.HasUnsavedRun()) {
        // A pass may have kept the claim because its runs were not in the file.
        m_claim.Release();
    }
    m_bReadPending || m_bSavePending || m_tasks.HasUnsavedRun() ? m_retry.OnFailure() : m_retry.OnSuccess();
    return isReplaced;
}

// Returns true when the tasks of the file have replaced those in memory. With `joins`, projects of the memory
// that the file does not list are added. Reads into a second array, because an array that failed to read the
// file refuses to save it.
bool CListSession::Read(IFileSystem& files, bool joins) {
    CSCVShchedulerTaskArray read;
    FileResult result = read.TryLoad(files, m_strFile);
    m_bReadPending = !result && result != FileResult::Status::Missing;
    m_bWasRead = m_bWasRead || !m_bReadPending;
    if (!result) {
        m_readFailure = std::move(result);
        return false;
    }
    if (joins && m_beforeEditing) {
        CSCVShchedulerTaskArray before = CopyOf(read);
        Join(before, *m_beforeEditing);
        m_beforeEditing = std::move(before);
    }
    if (joins) {
        Join(read, m_tasks);
    }
    m_tasks = std::move(read);
    m_passRecord.ApplyTo(m_tasks);
    return true;
}

void CListSession::Save(IFileSystem& files) {
    m_bSavePending = !m_tasks.TrySave(files, m_strFile);
    if (!m_bSavePending) {
        m_passRecord.Clear();
    }
}

std::wstring CListSession::RunDueProjects(const std::function<void()>& onRun) {
    if (m_bLaunching) {
        return {};
    }
    const CFlagGuard launching(m_bLaunching);
    std::wstring error;
    try {
        RunSchedulingPass(m_tasks, m_platform, m_claim, [&](const PassRun& run) {
            m_passRecord.Add(m_tasks, run.task);
            onRun();
            return !m_bPassEnds;
        });
    } catch (const std::exception& failure) {
        error = FromWhat(failure);
    }
    return std::exchange(m_strPassError, error) == error ? std::wstring() : error;
}

bool CListSession::RunProject(CSCVShchedulerTask& task) {
    if (m_bLaunching) {
        return false;
    }
    const CFlagGuard launching(m_bLaunching);
    task.Run(m_platform.shell, m_platform.clock);
    return true;
}
