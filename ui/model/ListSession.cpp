#include "ui/model/ListSession.h"

#include <exception>
#include <utility>
#include <vector>

#include "core/launch/SchedulingPass.h"
#include "core/platform/Clock.h"
#include "ui/model/AddProjects.h"

namespace {

// Sets a flag for as long as it lives.
class CFlagGuard {
public:
    explicit CFlagGuard(bool& flag) noexcept : m_flag(flag) { flag = true; }
    CFlagGuard(const CFlagGuard&) = delete;
    CFlagGuard& operator=(const CFlagGuard&) = delete;
    ~CFlagGuard() { m_flag = false; }

private:
    bool& m_flag;
};

}  // namespace

CListSession::CListSession(const CPlatform& platform, std::wstring file)
    : m_platform(platform), m_strFile(std::move(file)), m_claim(platform.files, m_strFile) {}

void CListSession::Load() {
    const FileResult loaded = m_tasks.TryLoad(m_platform.files, m_strFile);
    m_bReadPending = !loaded && loaded != FileResult::Status::Missing;
    m_bWasRead = m_bWasRead || !m_bReadPending;
    m_passRecord.ApplyTo(m_tasks);
}

bool CListSession::ReadPending() {
    if (!m_bReadPending) {
        return false;
    }
    // What was added while the list could not be read at all is no part of it yet.
    std::vector<std::wstring> added;
    for (std::ptrdiff_t i = 0; !m_bWasRead && i < m_tasks.GetSize(); ++i) {
        added.push_back(m_tasks[i]->m_strProjectPath);
    }
    Load();
    if (m_bReadPending) {
        return false;
    }
    AddProjects(m_tasks, added, m_platform.clock.Now());
    return true;
}

void CListSession::Save() {
    if (m_tasks.TrySave(m_platform.files, m_strFile)) {
        m_passRecord.Clear();
    }
}

std::string CListSession::RunDueProjects(const std::function<void()>& onRun) {
    if (m_bLaunching) {
        return {};
    }
    const CFlagGuard launching(m_bLaunching);
    std::string error;
    try {
        RunSchedulingPass(m_tasks, m_platform, m_claim, [&](const PassRun& run) {
            m_passRecord.Add(run.task, run.isSaved);
            onRun();
            return true;
        });
    } catch (const std::exception& failure) {
        error = failure.what();
    }
    return std::exchange(m_strPassError, error) == error ? std::string() : error;
}

bool CListSession::RunProject(CSCVShchedulerTask& task) {
    if (m_bLaunching) {
        return false;
    }
    const CFlagGuard launching(m_bLaunching);
    task.Run(m_platform.shell, m_platform.clock);
    return true;
}
