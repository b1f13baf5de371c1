#!/usr/bin/python3
"""Journeys of a user through the shipped program, by mouse and keyboard, on a desktop with a task bar.

Each journey then checks the list file, the registry and the stand-in's record.

    SCV_ARCH=x86 tests/journeys/test_journeys.py [--keep] [-v] [Journeys.test_tray ...]

--keep keeps the display and the programs of the last journey. Pictures are in build/journeys/ARCHITECTURE.
"""

import sys
import time
import unittest

from window import HTCAPTION
from scheduler import ARCH, DEMO, EXTRACTION_PROGRAM, PROGRAM, Journey, ids
from wine import until


def command(project, switches):
    return f'"{DEMO}\\{project}.scvpr" {switches}'


THREE_PROJECTS = [command("prices", "-s"), command("new books", "-s -ex"), command("news", "-s")]


class Journeys(Journey):

    def command_lines(self):
        tasks = self.scheduler.list()
        count = int(tasks["SCVShchedulerTaskList"]["TaskCount"])
        return [tasks[f"SCVShchedulerTask{number}"]["CommandLine"] for number in range(1, count + 1)]

    def assert_started(self, project, *switches):
        """Checks that the stand-in was started with a project once for each of `switches`, in this order."""
        self.assertEqual(self.scheduler.runs(project),
                         [f'"{EXTRACTION_PROGRAM}" {command(project, each)}' for each in switches])

    def test_first_start(self):
        """An old list moves to its new place; two projects are added and edited; due ones run while the window is hidden."""
        # One is due every 20 seconds, so that one of them becomes due after the window was hidden, whenever that is.
        start, names = int(time.time()), [f"due{number}" for number in range(1, 31)]
        for name in names:
            self.scheduler.make_project(name, 0)
        due = [start + 20 * number for number in range(1, 31)]
        self.scheduler.write_list(
            *[(command(name, "-dr -s"), {"StartTime": time}) for name, time in zip(names, due)],
            file=self.scheduler.old_list_file)
        _, window = self.start()
        self.assertFalse(self.scheduler.old_list_file.exists(), "The old list is still in the roaming folder.")
        self.assertEqual(self.command_lines(), [command(name, "-dr -s") for name in names], "the moved list")
        self.picture("1-old-list")

        self.add_project(window, "prices")
        self.add_project(window, "new books")
        # The project added last is selected now.
        window.tick(ids.IDC_DELETE_RESULTS)
        window.tick(ids.IDC_ADD_URLS)
        window.type(ids.IDC_URLS_FILE, f"{DEMO}\\urls.csv")
        self.picture("2-two-added")
        self.hide(window)
        ran = sum(bool(self.scheduler.runs(name)) for name in names)
        self.assertLess(ran, len(names), "This machine is too slow: all tasks ran before the window was hidden.")

        until("the next due project is started", lambda: self.scheduler.runs(names[ran]))
        self.assertFalse(window.now()["shown"], "The window came up by itself.")
        self.picture("3-hidden")
        until("the run is in the file", lambda: self.scheduler.task(ran + 1).get("LastRunResult") == "'Success'")
        self.assertGreaterEqual(int(self.scheduler.task(ran + 1)["LastRunTime"]), due[ran], "It ran before its time.")
        self.assert_started(names[ran], "-dr -s")
        self.assertEqual(self.command_lines()[len(names):],
                         [command("prices", "-dt -dr -s -qe -ex"),
                          command("new books", f'-dt -at"{DEMO}\\urls.csv" -s -qe -ex')], "the added ones")
        self.assertEqual(self.scheduler.startup(), "", "start with Windows, as the list was not empty")

    def test_tray(self):
        """A single click on the icon does nothing, a double-click shows the window, Exit in its menu saves and ends."""
        self.scheduler.write_list(*THREE_PROJECTS)
        process, window = self.start()
        self.hide(window)
        self.desktop.click_tray()
        # Messages of the icon arrive in order: once its menu is shown, the click has been handled.
        self.desktop.tray_menu()
        self.assertFalse(window.now()["shown"], "A single click on the icon shows the window.")
        self.picture("1-menu")
        self.desktop.close_tray_menu()
        self.show()
        window.tick(ids.IDC_RUN_AT_STARTUP)
        self.select(window, 0)
        window.tick(ids.IDC_DELETE_RESULTS)
        window.press("Escape")
        window.is_hidden()
        self.show()
        self.select(window, 1)
        window.tick(ids.IDC_DELETE_RESULTS)
        self.desktop.choose_exit_in_tray_menu()
        self.ends(process)
        self.picture("2-ended")
        self.assertEqual(self.command_lines()[1:], [command("new books", "-s -ex"), command("news", "-dr -s")],
                         "what Escape took back, and what Exit saved")
        self.assertEqual(self.scheduler.startup(), f'"{DEMO}\\{PROGRAM}" /background')

    def test_further_instances(self):
        """/BACKGROUND starts hidden and launches; a second start is a further instance, unless a title has no version."""
        self.scheduler.write_list((command("prices", "-s"), {"StartTime": int(time.time()) - 60}))
        first = self.scheduler.start("/BACKGROUND")
        until("the hidden program starts the due project", lambda: self.scheduler.runs("prices"))
        self.desktop.hidden(self.title)
        self.picture("1-hidden")

        second, _ = self.start(f"{DEMO}\\prices.scvpr")
        self.picture("2-second")
        self.assertIsNone(first.poll(), "The first instance has ended.")
        self.desktop.choose_exit_in_tray_menu()
        left = until("one of the two ends", lambda: second if first.poll() is not None
                     else first if second.poll() is not None else None)

        # The remaining instance may be hidden or shown.
        window = self.desktop.windows(self.title)[0]
        window.rename("SCV Scheduler")
        if window.now()["shown"]:
            self.hide(window, ids.IDCANCEL)
        self.ends(self.scheduler.start(f"{DEMO}\\prices.scvpr"))
        self.desktop.shown("SCV Scheduler")
        self.picture("3-handed-over")
        self.assertIsNone(left.poll(), "The instance that was handed the project has ended.")
        self.assert_started("prices", "-s")

    def test_editing(self):
        """Several rows are edited at once, Delete deletes; sort order and place are stored."""
        self.scheduler.write_list(*THREE_PROJECTS)
        process, window = self.start()
        self.select(window, 0)
        window.press("shift+Down", "shift+Down")
        until("three rows are selected", lambda: window.selected(ids.IDC_PROJECT_LIST) == 3)
        window.tick(ids.IDC_DELETE_RESULTS)
        self.picture("1-three-selected")
        self.hide(window)
        edited = [command("prices", "-dr -s"), command("new books", "-dr -s -ex"), command("news", "-dr -s")]
        self.assertEqual(self.command_lines(), edited)

        self.desktop.choose_exit_in_tray_menu()
        self.ends(process)

        process, window = self.start()
        self.assertEqual(window.rows(ids.IDC_PROJECT_LIST), ["new books.scvpr", "news.scvpr", "prices.scvpr"])
        self.select(window, 2)
        window.press("Delete")
        until("prices is gone", lambda: len(window.rows(ids.IDC_PROJECT_LIST)) == 2)
        window.click_header(ids.IDC_PROJECT_LIST, 0)
        until("the order is turned round", lambda: window.rows(ids.IDC_PROJECT_LIST)[0].endswith("news.scvpr"))
        window.drag(HTCAPTION, -37, 31)
        self.picture("2-sorted")
        place = window.place
        self.exit(window, process)
        self.assertEqual(self.command_lines(), edited[1:], "what is left")
        self.assertEqual(self.scheduler.setting("CSCVSchedulerDlg", "ascSort"), "0x0")

        _, window = self.start()
        self.assertEqual(window.place, place, "the window's place")
        self.select(window, 0)
        window.press("alt+r")
        until("the first row is run", lambda: self.scheduler.runs("news"))
        self.picture("3-started-again")
        self.assertEqual(self.scheduler.runs("new books"), [], "what else was started")

    def test_script(self):
        """A script is made from a template, tested on a sample, and saved under a new name."""
        self.scheduler.write_list(*THREE_PROJECTS)
        _, window = self.start()
        self.select(window, 2)
        window.tick(ids.IDC_GENERATE_URLS)
        window.click(ids.IDC_SCRIPT_FILE_BROWSE)
        editor = self.make_left_script(lambda name: self.picture(f"1-{name}"))
        self.picture("2-tested")
        self.assertEqual(editor.text(ids.IDC_SCRIPT_TEST_RESULT), "books-")
        editor.click(ids.IDOK)
        self.desktop.choose_file("Save*", f"{DEMO}\\left.vbs")
        editor.is_gone()
        self.assertEqual(window.text(ids.IDC_SCRIPT_FILE), f"{DEMO}\\left.vbs")
        self.hide(window)
        self.assertEqual(self.command_lines()[0], command("prices", f'-gt"{DEMO}\\left.vbs" -s'))
        self.assertRegex((self.scheduler.demo / "left.vbs").read_text(),
                         r'(?s)Function Main \( text, url \).*"-".*Function Left_String \( text')


if __name__ == "__main__":
    if "--keep" in sys.argv:
        sys.argv.remove("--keep")
        Journey.keeps = True
    print(f"The {ARCH} programs", file=sys.stderr)
    unittest.main(verbosity=2)
