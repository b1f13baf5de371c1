#include "ui/model/ListSession.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "core/platform/LocalTime.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"

namespace {

class ListSession : public testing::Test {
protected:
    using Texts = std::vector<std::wstring>;

    // Puts a list of these projects into the file, none of them due, and starts the program on it.
    void Start(const Texts& projects) {
        CSCVShchedulerTaskArray tasks;
        for (const std::wstring& project : projects) {
            tasks.AddTask(project, clock.now);
        }
        ASSERT_TRUE(tasks.TrySave(files, kList));
        StartAgain();
    }
    void StartAgain() {
        session.emplace(CPlatform{clock, files, shell}, kList);
        session->Load();
    }
    [[nodiscard]] CSCVShchedulerTask& Task(std::ptrdiff_t index) { return *session->Tasks()[index]; }
    [[nodiscard]] Texts Projects() { return ProjectsOf(session->Tasks()); }
    [[nodiscard]] Texts SavedProjects() {
        CSCVShchedulerTaskArray saved;
        saved.Load(files, kList);
        return ProjectsOf(saved);
    }
    void RunDue() {
        errors.push_back(session->RunDueProjects([this] { ++runs; }));
    }

    const std::wstring kList = L"C:\\list.ini";
    FakeClock clock{FromLocalTime(2026, 2, 25, 10, 0, 0)};
    CFakeFileSystem files;
    FakeShell shell;
    std::optional<CListSession> session;
    int runs = 0;
    std::vector<std::string> errors;

private:
    static Texts ProjectsOf(const CSCVShchedulerTaskArray& tasks) {
        Texts projects;
        for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
            projects.push_back(tasks[i]->m_strProjectPath);
        }
        return projects;
    }
};

TEST_F(ListSession, HeldListIsReadOnceItCanBe) {
    Start({L"a.scvpr"});
    files.Hold(kList, CFakeFileSystem::kForever);
    Task(0).m_strProjectPath = L"edited.scvpr";
    session->Load();
    EXPECT_FALSE(session->ReadPending());
    EXPECT_EQ(Projects(), Texts{L"edited.scvpr"}) << "a list that cannot be read discards nothing";
    files.Hold(kList, 0);
    EXPECT_TRUE(session->ReadPending());
    EXPECT_EQ(Projects(), Texts{L"a.scvpr"});
    EXPECT_FALSE(session->ReadPending()) << "once";
}

TEST_F(ListSession, ListThatWasNeverReadIsNotSavedOver) {
    Start({L"a.scvpr"});
    files.Hold(kList, CFakeFileSystem::kForever);
    StartAgain();
    session->Tasks().AddTask(L"added.scvpr", clock.now);
    session->Save();
    files.Hold(kList, 0);
    session->Save();
    EXPECT_EQ(SavedProjects(), Texts{L"a.scvpr"});
    EXPECT_TRUE(session->ReadPending());
    EXPECT_EQ(Projects(), (Texts{L"a.scvpr", L"added.scvpr"}));
}

TEST_F(ListSession, EditsOutliveASaveThatFails) {
    Start({L"a.scvpr"});
    files.SetReadOnly(kList);
    Task(0).m_bResetUrls = 1;
    session->Save();
    EXPECT_FALSE(session->ReadPending());
    EXPECT_EQ(Task(0).m_bResetUrls, 1);
}

TEST_F(ListSession, RunWhoseSaveFailedIsNotRepeated) {
    Start({L"a.scvpr"});
    clock.now += 300;
    files.Hold(kList, CFakeFileSystem::kForever);
    RunDue();
    session->Save();  // forgets nothing, for it saves nothing
    files.Hold(kList, 0);
    session->Load();
    EXPECT_EQ(Task(0).m_tLastRunTime, clock.now) << "the file knows nothing of it";
    RunDue();
    EXPECT_EQ(shell.starts.size(), 1U);
    EXPECT_EQ(runs, 1);
}

TEST_F(ListSession, NothingIsLaunchedDuringALaunch) {
    Start({L"a.scvpr", L"b.scvpr"});
    // As the system's shell does, which dispatches messages while it starts a program.
    shell.whileOpening = [&] {
        EXPECT_TRUE(session->IsLaunching());
        EXPECT_FALSE(session->RunProject(Task(1)));
        RunDue();
    };
    EXPECT_TRUE(session->RunProject(Task(0)));
    EXPECT_EQ(shell.starts.size(), 1U);
    clock.now += 300;
    RunDue();
    EXPECT_EQ(shell.starts.size(), 2U) << "the pass is left out, not put off";
    EXPECT_FALSE(session->IsLaunching());
}

TEST_F(ListSession, LaunchThatThrowsIsOver) {
    Start({L"a.scvpr"});
    shell.whileOpening = [] { throw std::runtime_error("no shell"); };
    EXPECT_THROW(session->RunProject(Task(0)), std::runtime_error);
    EXPECT_FALSE(session->IsLaunching());
}

TEST_F(ListSession, PassThatFailsIsReportedOnce) {
    Start({L"a.scvpr", L"b.scvpr", L"c.scvpr"});
    clock.now += 300;
    Task(1).m_tLastRunTime = 1;
    Task(1).m_bRepeatOnMonthly = 1;
    Task(1).m_tStartTime = INT64_MIN;  // has no local time
    RunDue();
    RunDue();
    EXPECT_EQ(shell.starts.size(), 1U) << "those before it run";
    Task(1).m_bEnable = 0;
    RunDue();
    EXPECT_EQ(shell.starts.size(), 2U) << "and those behind it once it is off";
    Task(1).m_bEnable = 1;
    RunDue();
    ASSERT_EQ(errors.size(), 4U);
    EXPECT_NE(errors[0], "");
    EXPECT_EQ(errors[1], "") << "the same again";
    EXPECT_EQ(errors[2], "");
    EXPECT_EQ(errors[3], errors[0]) << "again after it had gone";
}

}  // namespace
