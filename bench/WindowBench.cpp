#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <optional>

#include "bench/Judge.h"
#include "core/platform/LocalTime.h"
#include "tests/support/DroppedFiles.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"
#include "tests/support/ProcessUse.h"
#include "tests/support/TestApp.h"
#include "ui/resource.h"
#include "ui/win32/SCVSchedulerDlg.h"

// Measures the window with long lists and while it is idle. Exit code 1 when a bound is missed. Needs a
// display.

namespace {

constexpr wchar_t kList[] = L"C:\\list.ini";

// The dialog over a list of so many tasks that repeat in all the usual ways, none of them due.
struct Window {
    TestApp app;
    FakeClock clock{FromLocalTime(2026, 2, 25, 10, 0, 0)};
    CFakeFileSystem files;
    FakeShell shell;
    std::optional<CSCVSchedulerDlg> dialog;

    explicit Window(int count) {
        CSCVShchedulerTaskArray tasks;
        for (int i = 0; i < count; ++i) {
            CSCVShchedulerTask& task = *tasks[tasks.AddTask(
                L"C:\\projects\\" + std::to_wstring(i * 7919 % count) + L".scvpr", clock.now)];
            task.m_tStartTime = clock.now - 86400 + i;
            task.m_tLastRunTime = clock.now - 60;
            task.m_bRepeatOnMon = i % 3 == 0;
            task.m_bRepeatOnMonthly = i % 3 == 1;
            task.m_bEnableEvery = i % 3 == 2;
        }
        const bool isSaved{tasks.TrySave(files, kList)};
        dialog.emplace(CPlatform{clock, files, shell}, kList);
        // Without a window every operation would seem fast.
        if (!isSaved || !dialog->Create(IDD_MAIN) || List(LVM_GETITEMCOUNT) != count) {
            std::fputs("The window with its tasks could not be made.\n", stderr);
            std::exit(2);
        }
    }
    LRESULT List(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(dialog->GetDlgItem(IDC_PROJECT_LIST), message, wParam, lParam);
    }
    void SelectFirst(int count) {
        LVITEMW item{};
        item.state = item.stateMask = LVIS_SELECTED;
        for (int row = 0; row < count; ++row) {
            List(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        }
    }
    void SelectAll() {
        BYTE keys[256] = {};
        keys[VK_CONTROL] = 0x80;
        SetKeyboardState(keys);
        MSG message{dialog->GetDlgItem(IDC_PROJECT_LIST), WM_KEYDOWN, 'A', 0, 0, {}};
        dialog->PreTranslateMessage(&message);
        keys[VK_CONTROL] = 0;
        SetKeyboardState(keys);
    }
    // `paths` are those of projects, each ended by a zero.
    void Drop(const std::wstring& paths) const {
        dialog->SendMessage(WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDroppedFiles(paths)));
    }
    void Click(int button) const { SendMessageW(dialog->GetDlgItem(button), BM_CLICK, 0, 0); }
    void ClickHeader(int column) const {
        NMLISTVIEW click{};
        click.hdr.hwndFrom = dialog->GetDlgItem(IDC_PROJECT_LIST);
        click.hdr.idFrom = IDC_PROJECT_LIST;
        click.hdr.code = LVN_COLUMNCLICK;
        click.iSubItem = column;
        dialog->SendMessage(WM_NOTIFY, IDC_PROJECT_LIST, reinterpret_cast<LPARAM>(&click));
    }
    void Tick() const { dialog->SendMessage(WM_TIMER, CSCVSchedulerDlg::kTimer); }
};

bool JudgeLongList() {
    Window window(10'000);
    bool areMet = true;
    for (const int column : {0, 3, 4}) {
        window.ClickHeader(column);
        // For a project that is listed already the list is filled and sorted, and its row is selected.
        const std::wstring listed(L"C:\\projects\\5.scvpr\0", 20);
        areMet &= Judge("ms to fill the list with 10,000 tasks and sort it",
                        Best([&] { window.Drop(listed); }), 500);
    }
    window.dialog->ShowWindow(SW_SHOW);
    window.dialog->UpdateWindow();
    areMet &=
        Judge("ms of a pass and a repaint with nothing due, 10,000 tasks", Best([&] {
                  window.Tick();
                  window.dialog->Invalidate();
                  RedrawWindow(window.dialog->m_hWnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
              }),
              50);
    areMet &= Judge("ms to select 1,000 rows", Milliseconds([&] { window.SelectFirst(1'000); }), 500);
    int typed = 0;
    for (const int edit : {IDC_EVERY_VALUE, IDC_INPUT_ELEMENT_ID}) {
        areMet &= Judge("ms for a letter typed with 1,000 rows selected", Best([&] {
                            window.dialog->SetDlgItemText(edit, std::to_wstring(++typed));
                            window.dialog->UpdateWindow();
                        }),
                        50);
    }
    return areMet && window.shell.starts.empty();
}

// Processor time of this process; under Wine in steps of 10 milliseconds.
double ProcessorMilliseconds() {
    FILETIME created;
    FILETIME exited;
    FILETIME kernel;
    FILETIME user;
    GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user);
    const auto milliseconds = [](const FILETIME& time) {
        return (time.dwHighDateTime * 4294967296.0 + time.dwLowDateTime) / 10'000;
    };
    return milliseconds(kernel) + milliseconds(user);
}

// Mean processor time of a round with so many projects, in milliseconds.
struct ProjectTimes {
    double added = 0, selected = 0, deleted = 0;
};

ProjectTimes MeasureProjects(int count, int rounds) {
    Window window(0);
    window.dialog->ShowWindow(SW_SHOW);  // a hidden window ignores keys
    std::wstring paths;
    for (int i = 0; i < count; ++i) {
        paths += L"C:\\projects\\" + std::to_wstring(i * 7919 % count) + L".scvpr" + L'\0';
    }
    ProjectTimes times;
    const auto measure = [&](double& time, auto work) {
        const double begin = ProcessorMilliseconds();
        work();
        time += (ProcessorMilliseconds() - begin) / rounds;
    };
    for (int round = 0; round < rounds; ++round) {
        measure(times.added, [&] { window.Drop(paths); });
        measure(times.selected, [&] { window.SelectAll(); });
        measure(times.deleted, [&] { window.Click(IDC_DELETE_PROJECT); });
    }
    return times;
}

bool JudgeManyProjects() {
    const ProjectTimes some = MeasureProjects(1'000, 50);
    const ProjectTimes many = MeasureProjects(10'000, 5);
    bool areMet = Judge("ms to add 10,000 projects", many.added, 200);
    areMet &= Judge("ms to select them with Ctrl+A", many.selected, 200);
    areMet &= Judge("ms to delete them", many.deleted, 200);
    areMet &= Judge("a project's share of these, to that of 1,000 projects: add",
                    many.added / some.added / 10, 1.5);
    areMet &= Judge("select", many.selected / some.selected / 10, 1.5);
    return Judge("delete", many.deleted / some.deleted / 10, 1.5) && areMet;
}

struct Use {
    std::size_t memory, handles;
    DWORD gdi, user;
};

Use Measure() {
    return {HeapUse(), HandleUse(), GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS),
            GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)};
}

bool JudgeIdle() {
    Window window(1'000);
    const auto idle = [&] {
        window.Tick();
        window.dialog->Invalidate();
        window.dialog->UpdateWindow();
    };
    for (int pass = 0; pass < 100; ++pass) {
        idle();
    }
    const Use before = Measure();
    const double all = Milliseconds([&] {
        for (int pass = 0; pass < 10'000; ++pass) {
            idle();
        }
    });
    const Use after = Measure();
    bool areMet = Judge("% of a core for a hidden window with 1,000 tasks", all / 10'000 / 2'000 * 100, 0.5);
    areMet &= Judge("KB more after 10,000 passes",
                    static_cast<double>(after.memory) / 1024 - static_cast<double>(before.memory) / 1024, 64);
    const auto grown = [](std::size_t now, std::size_t then) {
        return static_cast<double>(now) - static_cast<double>(then);
    };
    areMet &= Judge("more handles", grown(after.handles, before.handles), 0);
    areMet &= Judge("more GDI objects", grown(after.gdi, before.gdi), 0);
    areMet &= Judge("more USER objects", grown(after.user, before.user), 0);
    return areMet;
}

}  // namespace

int wmain() {
    RefreshTimeZone();
    bool areMet = JudgeLongList();
    areMet &= JudgeManyProjects();
    return JudgeIdle() && areMet ? 0 : 1;
}
