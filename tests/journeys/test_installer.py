#!/usr/bin/python3
"""Installs, upgrades and removes the packed program as its users do, by the pages and silently.

Compares the user's files and registry before and after. Wants scripts/package.sh to have run, with x64 for x64.

    SCV_ARCH=x86 tests/journeys/test_installer.py [-v] [Installer.test_pages ...]

Pictures of the pages are in build/installer-journeys/ARCHITECTURE.
"""

import re
import shutil
import sys
import time
import unittest
import zipfile

from installer import (COMPONENTS, FOLDER, IDCANCEL, IDOK, IDRETRY, INSTALLED, LIST, NEXT, PACKAGE, PATH, SHORTCUTS,
                       STARTUP, UNINSTALL_KEY, InstallerJourney)
from scheduler import ARCH, DEMO, PROGRAM, RUN_KEY, ids
from wine import until


class Installer(InstallerJourney):

    def test_pages(self):
        """By the pages: start at log-on, which the program's own box then shows; upgrade and removal of the running program."""
        setup_title, removal_title = "SCV Scheduler Setup*", "SCV Scheduler Uninstall*"
        pages = self.open_pages(self.setup, setup_title)
        pages.tick_tree(COMPONENTS, STARTUP)
        pages.tick_tree(COMPONENTS, PATH)
        self.picture("1-startup")
        self.next_page(pages, FOLDER)
        self.picture("2-folder")
        pages.click(NEXT)
        until("the last page comes", lambda: self.installed_version() == self.version)
        pages.says("&Start SCV Scheduler")
        self.picture("3-finish")
        self.assert_state(self.with_program(self.before, self.default_folder, self.version, PACKAGE / "files",
                                            startup=True, path=True), "after the installation")
        self.close(pages)
        window = self.desktop.shown(self.title)
        window.tick(ids.IDC_RUN_AT_STARTUP)
        until("the window takes the start at log-on away", lambda: not self.scheduler.startup())
        window.tick(ids.IDC_RUN_AT_STARTUP)
        own_start = f'"{self.scheduler.windows_path(self.default_folder / PROGRAM)}" /background'
        until("it puts it back", lambda: self.scheduler.startup() == own_start)

        pages = self.open_pages(self.older, setup_title)
        self.next_page(pages, FOLDER)
        pages.click(NEXT)
        self.answer(pages, IDCANCEL, "4-running")
        self.assertEqual(self.scheduler.instances(), 1, "instances, after the user said no")
        pages.click(NEXT)
        self.answer(pages, IDOK, "4-running")
        until("the older version is there", lambda: self.installed_version() == "1.0.0")
        self.desktop.hidden(self.title)
        pages.says("&Finish")
        self.picture("5-started-again")
        self.close(pages)
        self.desktop.shown(self.title)
        self.assertEqual(self.scheduler.instances(), 1)
        self.assertEqual(self.wine.value(UNINSTALL_KEY, "InstallLocation"),
                         self.scheduler.windows_path(self.default_folder))

        pages = self.open_pages(self.default_folder / "uninstall.exe", removal_title)
        pages.tick_tree(COMPONENTS, LIST)
        self.picture("6-removal")
        pages.click(NEXT)
        self.answer(pages, IDOK, "7-running")
        until("the program is removed", lambda: not self.installed_version())
        pages.says("&Close")
        self.picture("8-removed")
        self.close(pages)
        self.removal_ends()
        self.assert_state(self.before, "after the removal")

    def test_silent(self):
        """Silently, into a chosen folder."""
        folder = self.elsewhere
        self.install(self.setup, folder=folder)
        self.assert_state(self.with_program(self.before, folder, self.version, PACKAGE / "files"), "after the installation")
        self.assertEqual(self.scheduler.instances(), 0)
        self.assertEqual(self.wine.run(folder / "scvsched.exe", "--version"), (0, f"scvsched {self.version}\n"))
        place = self.scheduler.windows_path(folder)
        for name, file in SHORTCUTS.items():
            shortcut, target = (self.start_menu / name).read_bytes(), f"{place}\\{file}"
            self.assertTrue(target.encode("utf-16-le") in shortcut or target.encode() in shortcut,
                            f"The entry {name} in the start menu leads elsewhere.")

    def read_log(self):
        """Returns the lines of the log file of the last installer or uninstaller."""
        return (self.scheduler.demo / "log.txt").read_text("utf-16").splitlines()

    def test_log(self):
        """/LOG names a log file of what was done, or why not; then all files are as before."""
        folder, log = self.elsewhere, f"/LOG={DEMO}\\log.txt"
        place = self.scheduler.windows_path(folder)
        self.install(self.setup, log, folder=folder)
        self.assertEqual(self.read_log(), [f"Installing SCV Scheduler {self.version}", f"Installed in {place}."])

        watch = self.start_watch(folder)
        (self.scheduler.demo / "log.txt").unlink()
        installed = self.state()
        in_use = f"{place}\\scvsched.exe is in use or cannot be written. End scvsched, which may be watching in a " \
                 "console (Ctrl+C), and try again."
        self.install(self.older, log, status=2)
        self.assertEqual(self.read_log(), ["Installing SCV Scheduler 1.0.0", in_use, "Nothing was changed."])
        self.run_to(2, folder / "uninstall.exe", "/S", log, *f"_?={place}".split(" "))
        self.assertEqual(self.read_log(), [f"Removing SCV Scheduler {self.version}", in_use, "Nothing was changed."])
        watch.terminate()
        watch.wait()

        # The last file cannot be written.
        obstacle = folder / "CHANGELOG.html.new"
        obstacle.mkdir()
        self.install(self.older, log, status=2)
        obstacle.rmdir()
        self.assertEqual(self.read_log()[1:], [f"{place}\\CHANGELOG.html could not be written.", "Nothing was changed."])
        (self.scheduler.demo / "log.txt").unlink()
        self.install(self.older, f"/LOG={DEMO}\\nowhere\\log.txt", status=2)
        self.assert_state(installed, "after what failed")

    def test_question(self):
        """While the program shows a dialog, the pages ask the user to answer it, and continue afterwards."""
        self.install(self.older)
        process, window = self.start(folder=self.default_folder)
        window.press("alt+a")
        asked = self.desktop.shown("Open")
        pages = self.open_pages(self.setup, "SCV Scheduler Setup*")
        self.next_page(pages, FOLDER)
        pages.click(NEXT)
        self.answer(pages, IDOK, "1-running")
        self.answer(pages, IDRETRY, "2-asking")
        box = self.message(pages)
        self.assertEqual(self.installed_version(), "1.0.0")
        asked.activate()
        asked.press("Escape")
        asked.is_gone()
        self.desktop.choose_in_task_bar(pages)
        box.click(IDRETRY)
        self.ends(process)
        until("the newer version is there", lambda: self.installed_version() == self.version)
        pages.says("&Finish")
        self.close(pages)
        self.desktop.shown(self.title)

    def test_path(self):
        """The folder is added to the user's PATH and removed again; the other entries stay as they are, however long."""
        environment = r"HKCU\Environment"
        place = self.scheduler.windows_path(self.default_folder)
        long = ";".join(f"C:\\tools\\number {number:03}" for number in range(1, 301))
        self.assertGreater(len(long), 4096)
        # By label: the PATH before, its type, the PATH with the folder.
        rows = {
            "none": (None, None, f"{place}"),
            "variables": (r"%USERPROFILE%\bin;", "REG_EXPAND_SZ", rf"%USERPROFILE%\bin;{place};"),
            "a longer folder": (f"{place}\\more", "REG_SZ", f"{place}\\more;{place}"),
            "5,000 characters": (long, "REG_EXPAND_SZ", f"{long};{place}"),
        }
        for name, (value, kind, expected) in rows.items():
            with self.subTest(name):
                self.wine.registry("delete", environment, "/v", "Path", "/f")
                if value:
                    self.wine.registry("add", environment, "/v", "Path", "/t", kind, "/d", value, "/f")
                before = self.state()
                self.install(self.setup, "/PATH=yes")
                self.assertEqual(self.wine.value(environment, "Path"), expected)
                self.remove_silently()
                self.assert_state(before, "after the removal")

        # An entry from before the first installation keeps its place until the program is removed from that folder.
        self.wine.registry("add", environment, "/v", "Path", "/d", f"C:\\a;{place};C:\\b", "/f")
        self.install(self.setup)
        self.assertEqual(self.wine.value(environment, "Path"), f"C:\\a;{place};C:\\b")
        self.install(self.setup, "/PATH=no")
        self.assertEqual(self.wine.value(environment, "Path"), "C:\\a;C:\\b")

    def start_watch(self, folder):
        """Starts `scvsched watch` from this folder, on a list with a due task, and waits until it has saved that task's run."""
        self.scheduler.write_list((f'"{DEMO}\\news.scvpr" -s', {"StartTime": int(time.time()) - 60}))
        watch = self.wine.start(folder / "scvsched.exe", "watch")
        self.started.append(watch)
        until("scvsched launches", lambda: self.scheduler.task(1).get("LastRunResult") == "'Success'")
        lock = self.scheduler.list_file.with_name(self.scheduler.list_file.name + ".lock")
        until("the save is over", lambda: not lock.exists())
        return watch

    def test_upgrade(self):
        """An upgrade in place keeps list, settings and start at log-on.

        It works while the program is hidden and while its window has a change; it is refused while the program shows a dialog.
        """
        self.install(self.older, "/STARTUP=yes", folder=self.elsewhere)
        installed = self.with_program(self.before, self.elsewhere, "1.0.0", self.older_files, startup=True)
        self.a_list()
        process, window = self.start(folder=self.elsewhere)
        self.exit(window, process)
        # Now the program has stored settings, too.
        upgraded = self.with_program(self.before | (self.state() - installed), self.elsewhere, self.version,
                                     PACKAGE / "files", startup=True)
        process = self.scheduler.start("/background", folder=self.elsewhere)
        self.desktop.hidden(self.title)
        self.install(self.setup)
        self.ends(process)
        self.desktop.hidden(self.title)
        self.assert_state(upgraded, "after the upgrade of the running program")
        self.desktop.choose_exit_in_tray_menu()
        self.desktop.gone(self.title)

        self.install(self.older)
        process, window = self.start(folder=self.elsewhere)
        self.change_first_task(window)
        self.install(self.setup)
        self.ends(process)
        window = self.desktop.shown(self.title)
        self.picture("1-shown-again")
        self.assert_change_saved()

        window.activate()
        window.press("alt+a")
        self.desktop.shown("Open")
        asking = self.state()
        self.install(self.older, status=2)
        self.desktop.shown("Open")
        self.assert_state(asking, "while the program asks for a file")

    def test_move(self):
        """Into another folder, then with another start at log-on; of the old folder only our files are removed."""
        self.install(self.older, "/STARTUP=yes")
        self.a_list()
        notes = self.default_folder / "notes.txt"
        notes.write_text("mine\n")
        self.install(self.setup, folder=self.elsewhere)
        self.assertEqual(list(self.default_folder.iterdir()), [notes], "what is left in the old folder")
        shutil.rmtree(self.default_folder)
        shutil.rmtree(self.scheduler.list_file.parent)
        self.assert_state(self.with_program(self.before, self.elsewhere, self.version, PACKAGE / "files", startup=True),
                          "after the move")
        self.install(self.setup, "/STARTUP=no")
        self.assert_state(self.with_program(self.before, self.elsewhere, self.version, PACKAGE / "files"),
                          "with the other choice")

    def test_removal(self):
        """The registered command removes the running program and keeps list, settings and other files, unless /LIST."""
        self.install(self.setup, "/STARTUP=yes")
        self.a_list()
        notes = self.default_folder / "notes.txt"
        notes.write_text("mine\n")
        process, window = self.start(folder=self.default_folder)
        self.change_first_task(window)
        self.remove_silently()
        self.ends(process)
        self.assert_change_saved()
        self.assertTrue(self.scheduler.setting("CSCVSchedulerDlg", "ascSort"), "The settings were not kept.")
        self.assertEqual(list(self.default_folder.iterdir()), [notes], "what is left in the folder")

        notes.unlink()
        self.install(self.setup, "/STARTUP=yes")
        another = r'"C:\portable\SCVScheduler.exe" /background'
        self.wine.registry("add", RUN_KEY, "/v", "SCVScheduler", "/d", another, "/f")
        self.remove_silently("/LIST")
        self.assertEqual(self.scheduler.startup(), another, "the start of another copy")
        self.wine.registry("delete", RUN_KEY, "/v", "SCVScheduler", "/f")
        self.assert_state(self.before, "without the list")

    def test_portable(self):
        """Unpacked, each program runs."""
        with zipfile.ZipFile(next(PACKAGE.glob("*-portable.zip"))) as archive:
            archive.extractall(self.elsewhere)
        packed = {file.name: file.read_bytes() for file in (PACKAGE / "files").iterdir()}
        self.assertEqual({file.name: file.read_bytes() for file in self.elsewhere.iterdir()}, packed)
        self.assertEqual(sorted(packed), sorted(INSTALLED))
        for name in (name for name in packed if name.endswith(".html")):
            with self.subTest(name):
                page = packed[name].decode()
                self.assertEqual([link for link in re.findall(r'(?:src|href)="([^"#]+)', page)
                                  if not link.startswith(("data:", "https:")) and link not in packed], [], "dead links")
        self.assertEqual(self.wine.run(self.elsewhere / "scvsched.exe", "--version"), (0, f"scvsched {self.version}\n"))
        process, window = self.start(folder=self.elsewhere)
        self.exit(window, process)


if __name__ == "__main__":
    print(f"The {ARCH} programs", file=sys.stderr)
    unittest.main(verbosity=2)
