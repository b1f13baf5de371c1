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
        SaveElsewhere(projects);
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
    void Hold(bool isHeld) { files.Hold(kList, isHeld ? CFakeFileSystem::kForever : 0); }
    void SaveElsewhere(const Texts& projects) {
        CSCVShchedulerTaskArray tasks;
        for (const std::wstring& project : projects) {
            tasks.AddTask(project, clock.now);
        }
        ASSERT_TRUE(tasks.TrySave(files, kList));
    }
    // Within two ticks.
    bool TicksReplaceTasks() {
        const bool first = session->OnTick(true);
        const bool second = session->OnTick(true);
        return first || second;
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
    std::vector<std::wstring> errors;

private:
    static Texts ProjectsOf(const CSCVShchedulerTaskArray& tasks) {
        Texts projects;
        for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
            projects.push_back(tasks[i]->m_strProjectPath);
        }
        return projects;
    }
};

TEST_F(ListSession, MarksItsListAsKept) {
    Start({L"C:\\a.scvpr"});
    EXPECT_TRUE(CListKeeper::IsKept(files, kList, CListKeeper::Kind::Window));
    EXPECT_FALSE(CListKeeper::IsKept(files, L"C:\\other.ini", CListKeeper::Kind::Window));
    CListSession second({clock, files, shell}, kList);
    second.Load();
    session.reset();
    EXPECT_FALSE(CListKeeper::IsKept(files, kList, CListKeeper::Kind::Window)) << "released with its program";
    second.OnTick(true);
    EXPECT_TRUE(CListKeeper::IsKept(files, kList, CListKeeper::Kind::Window)) << "by a further instance";
}

TEST_F(ListSession, CancelDiscardsEditsOfAHeldList) {
    Start({L"a.scvpr"});
    session->BeginEditing();
    Task(0).m_strProjectPath = L"edited.scvpr";
    Hold(true);
    session->Discard();
    EXPECT_EQ(Projects(), Texts{L"a.scvpr"});
    EXPECT_FALSE(session->OnTick(true));
    Hold(false);
    SaveElsewhere({L"b.scvpr"});
    EXPECT_TRUE(TicksReplaceTasks());
    EXPECT_EQ(Projects(), Texts{L"b.scvpr"}) << "read as soon as it can be";
    EXPECT_FALSE(TicksReplaceTasks()) << "once";
}

TEST_F(ListSession, AcceptedEditsWinOverAPendingRead) {
    Start({L"a.scvpr"});
    Hold(true);
    session->BeginEditing();
    session->Discard();
    session->BeginEditing();
    Task(0).m_strProjectPath = L"edited.scvpr";
    Hold(false);
    EXPECT_FALSE(TicksReplaceTasks()) << "nor is a list read below the user's hands";
    Hold(true);
    session->Accept();
    Hold(false);
    EXPECT_FALSE(TicksReplaceTasks());
    EXPECT_EQ(Projects(), Texts{L"edited.scvpr"});
    EXPECT_EQ(SavedProjects(), Texts{L"edited.scvpr"});
}

TEST_F(ListSession, CancelGoesBackToWhatWasAccepted) {
    Start({L"a.scvpr"});
    Hold(true);
    session->BeginEditing();
    Task(0).m_strProjectPath = L"accepted.scvpr";
    session->Accept();
    session->BeginEditing();
    Task(0).m_strProjectPath = L"edited.scvpr";
    Hold(false);
    TicksReplaceTasks();
    EXPECT_EQ(SavedProjects(), Texts{L"a.scvpr"}) << "not while nobody has accepted what is edited";
    session->Discard();
    EXPECT_EQ(Projects(), Texts{L"accepted.scvpr"});
    TicksReplaceTasks();
    EXPECT_EQ(SavedProjects(), Texts{L"accepted.scvpr"});
}

TEST_F(ListSession, WhatIsAddedBeforeTheListIsReadJoinsIt) {
    const Texts read{L"a.scvpr"};
    const Texts joined{L"a.scvpr", L"added.scvpr"};
    const struct {
        const char* label;
        bool isAccepted, isDiscarded;
        Texts projects, saved, afterCancel;
    } cases[] = {
        {"still editing", false, false, joined, read, read},
        {"OK", true, false, joined, joined, joined},
        {"Cancel", false, true, read, read, read},
    };
    for (const auto& item : cases) {
        SCOPED_TRACE(item.label);
        Start(read);
        Hold(true);
        StartAgain();
        EXPECT_NE(session->Notice(), L"");
        session->BeginEditing();
        for (const wchar_t* project : {L"A.SCVPR", L"added.scvpr"}) {
            session->Tasks().AddTask(project, clock.now);
        }
        Task(1).m_bResetUrls = 1;
        if (item.isAccepted) {
            session->Accept();
        } else if (item.isDiscarded) {
            session->Discard();
        }
        Hold(false);
        EXPECT_FALSE(session->OnTick(false)) << "not below a dialog";
        EXPECT_TRUE(TicksReplaceTasks());
        EXPECT_EQ(session->Notice(), L"");
        EXPECT_EQ(Projects(), item.projects);
        EXPECT_EQ(SavedProjects(), item.saved);
        EXPECT_EQ(Task(session->Tasks().GetSize() - 1).m_bResetUrls, item.isDiscarded ? 0 : 1);
        session->BeginEditing();
        Hold(true);
        session->Discard();
        EXPECT_EQ(Projects(), item.afterCancel);
        Hold(false);
    }
}

TEST_F(ListSession, ListThatIsMissingLeavesTheEdits) {
    StartAgain();
    EXPECT_EQ(session->Notice(), L"") << "there is no list yet";
    session->BeginEditing();
    session->Tasks().AddTask(L"a.scvpr", clock.now);
    session->Discard();
    EXPECT_EQ(Projects(), Texts{L"a.scvpr"});
}

TEST_F(ListSession, SavedWithinTwoTicksOfTheRelease) {
    for (int ticks = 0; ticks < 12; ++ticks) {
        Start({L"a.scvpr"});
        Hold(true);
        Task(0).m_strProjectPath = L"edited.scvpr";
        session->Accept();
        for (int tick = 0; tick < ticks; ++tick) {
            session->OnTick(true);
        }
        Hold(false);
        TicksReplaceTasks();
        EXPECT_EQ(SavedProjects(), Texts{L"edited.scvpr"}) << ticks;
    }
}

TEST_F(ListSession, ExitSavesAddedProjectsOfAHeldList) {
    Start({L"a.scvpr"});
    Hold(true);
    StartAgain();
    session->Tasks().AddTask(L"added.scvpr", clock.now);
    Hold(false);
    session->Close(files);
    EXPECT_EQ(SavedProjects(), (Texts{L"a.scvpr", L"added.scvpr"}));
}

TEST_F(ListSession, EditsOutliveASaveThatFails) {
    Start({L"a.scvpr"});
    files.SetReadOnly(kList);
    Task(0).m_bResetUrls = 1;
    session->Accept();
    EXPECT_FALSE(TicksReplaceTasks());
    EXPECT_EQ(Task(0).m_bResetUrls, 1);
}

TEST_F(ListSession, RunThatCouldNotBeSavedIsSavedLater) {
    Start({L"a.scvpr", L"b.scvpr"});
    clock.now += 300;
    Task(1).m_bEnable = 0;
    session->BeginEditing();
    Task(1).m_strProjectPath = L"edited.scvpr";
    Hold(true);
    RunDue();
    TicksReplaceTasks();
    Hold(false);
    TicksReplaceTasks();
    CSCVShchedulerTaskArray saved;
    saved.Load(files, kList);
    EXPECT_EQ(saved[0]->m_tLastRunTime, clock.now);
    EXPECT_EQ(saved[1]->m_strProjectPath, L"b.scvpr") << "edits are not saved with it";
}

TEST_F(ListSession, RunOutlivesACancel) {
    const struct {
        const char* label;
        bool isHeldAtCancel, isAdded, isRenumbered;
    } cases[] = {{"read again", false, false, false},
                 {"read again, now the second", false, false, true},
                 {"put back", true, false, false},
                 {"put back, from no file", true, true, false}};
    for (const auto& item : cases) {
        SCOPED_TRACE(item.label);
        Start({L"a.scvpr"});
        shell.starts.clear();
        Hold(true);
        if (item.isAdded) {
            session->Tasks().AddTask(L"added.scvpr", clock.now);
            Task(0).m_bEnable = 0;
            session->Accept();
        }
        session->BeginEditing();
        clock.now += 300;
        RunDue();
        Hold(item.isHeldAtCancel);
        if (item.isRenumbered) {
            clock.now -= 300;
            SaveElsewhere({L"other.scvpr", L"a.scvpr"});
            clock.now += 300;
        }
        session->Discard();
        if (item.isRenumbered) {
            Task(0).m_bEnable = 0;
        }
        RunDue();
        EXPECT_EQ(shell.starts.size(), 1U);
        Hold(false);
    }
}

TEST_F(ListSession, AcceptedResetIsNotUndone) {
    Start({L"a.scvpr"});
    clock.now += 300;
    RunDue();
    Task(0).m_tLastRunTime = 0;
    session->Accept();
    session->Discard();
    EXPECT_EQ(Task(0).m_tLastRunTime, 0);
}

TEST_F(ListSession, LaunchKeepsTheTasksInPlace) {
    Start({L"a.scvpr"});
    Hold(true);
    StartAgain();
    session->Tasks().AddTask(L"added.scvpr", clock.now);
    Hold(false);
    shell.whileOpening = [&] {
        EXPECT_FALSE(session->OnTick(true));
        EXPECT_FALSE(session->Accept());
    };
    EXPECT_TRUE(session->RunProject(Task(0)));
    EXPECT_EQ(Projects(), Texts{L"added.scvpr"});
    EXPECT_TRUE(TicksReplaceTasks());
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
    EXPECT_NE(errors[0], L"");
    EXPECT_EQ(errors[1], L"") << "the same again";
    EXPECT_EQ(errors[2], L"");
    EXPECT_EQ(errors[3], errors[0]) << "again after it had gone";
}

}  // namespace
