#include "ui/model/HoverText.h"

#include <gtest/gtest.h>

#include "core/platform/LocalTime.h"
#include "core/platform/Platform.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"
#include "tests/support/TaskRules.h"

TEST(HoverText, ShowsWhatTheRowHasNoRoomFor) {
    const auto at = [](int day, int hour) { return FromLocalTime(2026, 11, day, hour, 0, 0); };
    CFakeFileSystem files;
    FakeShell shell;
    FakeClock clock(at(20, 12));
    const CPlatform platform{clock, files, shell};
    CSCVShchedulerTaskArray tasks;
    for (const wchar_t* project : {L"C:\\a.scvpr", L"C:\\b.scvpr", L"C:\\A.scvpr"}) {
        tasks.AddTask(project, 0);
    }
    SetRules(*tasks[0], {.start = at(2, 8), .last = at(19, 8), .days = kMon | kFri});
    tasks[0]->m_strLastRunResult = L"Failure: File does not exist";
    shell.missing = {L"C:\\a.scvpr"};
    EXPECT_EQ(HoverText(*tasks[0], tasks, platform),
              L"C:\\a.scvpr\r\n"
              L"Last run: Thu 2026-11-19 08:00, Failure: File does not exist\r\n"
              L"Schedule: on Mon and Fri at 08:00\r\n"
              L"Next: Fri 2026-11-20 08:00\r\n"
              L"Next: Mon 2026-11-23 08:00\r\n"
              L"Next: Fri 2026-11-27 08:00\r\n"
              L"Next: Mon 2026-11-30 08:00\r\n"
              L"Next: Fri 2026-12-04 08:00\r\n"
              L"Check: the project file does not exist\r\n"
              L"Check: the last run (2026-11-19 08:00) failed: Failure: File does not exist");
    tasks[1]->m_bEnable = 0;
    EXPECT_NE(HoverText(*tasks[1], tasks, platform).find(L"Not ticked: it does not run"), std::wstring::npos);
    SetRules(*tasks[2], {.start = INT64_MIN, .last = at(2, 8), .days = kMon});
    const std::wstring impossible = HoverText(*tasks[2], tasks, platform);
    EXPECT_NE(impossible.find(L"Check: the next run cannot be computed"), std::wstring::npos);
    EXPECT_EQ(impossible.find(L"Next:"), std::wstring::npos) << impossible;
}
