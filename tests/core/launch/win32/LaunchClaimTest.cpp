#include "core/launch/LaunchClaim.h"

#include <gtest/gtest.h>

#include "core/platform/win32/WindowsFileSystem.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"
#include "util/Path.h"
#include "util/win32/ModulePath.h"

namespace {

using Status = FileResult::Status;

class LaunchClaim : public testing::Test {
protected:
    // A process that tries to take the claim. It signals m_taken and keeps the claim, or ends with 1.
    [[nodiscard]] CKernelHandle StartContender() const {
        const std::wstring program = GetFolderPath(GetModulePath()) + L"savechild.exe";
        return StartChild(L"\"" + program + L"\" \"" + m_list + L"\" claim " + m_eventName, DETACHED_PROCESS);
    }
    // Whether the contender has taken the claim; waits for it to say so, or to end.
    [[nodiscard]] bool HasTaken(const CKernelHandle& contender) const {
        const HANDLE reports[] = {m_taken.Get(), contender.Get()};
        return WaitForMultipleObjects(2, reports, FALSE, INFINITE) == WAIT_OBJECT_0;
    }

    TemporaryFolder m_folder;
    std::wstring m_list = m_folder.Path(L"list.ini");
    std::wstring m_eventName = L"LaunchClaimTest" + std::to_wstring(GetCurrentProcessId());
    CKernelHandle m_taken{CreateEventW(nullptr, FALSE, FALSE, m_eventName.c_str())};
    CWindowsFileSystem m_files{CWindowsFileSystem::Waiting::Never};
    CLaunchClaim m_claim{m_files, m_list};
};

TEST_F(LaunchClaim, HasOneProcessAtATime) {
    ASSERT_TRUE(m_claim.TryTake());
    EXPECT_FALSE(HasTaken(StartContender()));
    m_claim.Release();
    const CKernelHandle contender = StartContender();
    ASSERT_TRUE(HasTaken(contender));
    EXPECT_EQ(m_claim.TryTake(), Status::Busy);
    EXPECT_FALSE(m_claim.IsTaken());
    TerminateProcess(contender.Get(), 99);
    WaitForSingleObject(contender.Get(), INFINITE);
    EXPECT_TRUE(m_claim.TryTake()) << "the system releases what a killed process had";
    EXPECT_TRUE(m_claim.IsTaken());
}

}  // namespace
