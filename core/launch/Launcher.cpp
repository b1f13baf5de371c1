#include "core/launch/ExtractionProgram.h"
#include "core/launch/LaunchResult.h"
#include "core/platform/Clock.h"
#include "core/platform/Shell.h"
#include "core/task/SCVShchedulerTask.h"

namespace {

bool Launch(const CSCVShchedulerTask& task, IShell& shell, std::wstring& result) {
    const std::wstring& project = task.m_strProjectPath;
    if (!shell.FileExists(project)) {
        result = L"Failure: File does not exist";
        return false;
    }
    // A project that is in use must not be started a second time.
    if (!shell.CanOpenForWriting(project)) {
        result = L"Failure: File is already opened";
        return false;
    }
    const std::wstring program = FindExtractionProgram(shell, project);
    constexpr std::intptr_t kHighestFailure = 32;
    if (program.empty() || shell.Open(program, task.BuildCommandLine()) <= kHighestFailure) {
        result = L"Failure to run '" + program + L"'";
        return false;
    }
    result = kLaunchSuccess;
    return true;
}

}  // namespace

int CSCVShchedulerTask::Run(IShell& shell, const IClock& clock) {
    const bool started = Launch(*this, shell, m_strLastRunResult);
    // Also after a failure: a failed launch counts as a run and is tried again at the next regular time.
    m_tLastRunTime = clock.Now();
    return started ? 1 : 0;
}
