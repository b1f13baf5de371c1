#!/usr/bin/python3
"""Installs, upgrades and removes the packed program as its users do, by the pages and silently.

Compares the user's files and registry before and after. Wants scripts/package.sh to have run, with x64 for x64.

    SCV_ARCH=x86 tests/journeys/test_installer.py [-v] [Installer.test_pages ...]

Pictures of the pages are in build/installer-journeys/ARCHITECTURE.
"""

import hashlib
import re
import shutil
import subprocess
import sys
import time
import unittest
import zipfile

from scheduler import ARCH, DEMO, PROGRAM, RUN_KEY, SETTINGS, Journey, ids
from wine import ROOT, until

CURRENT_VERSION = r"HKCU\Software\Microsoft\Windows\CurrentVersion"
UNINSTALL_KEY = CURRENT_VERSION + r"\Uninstall\SCVScheduler"
PACKAGE = ROOT / ("build/package" if ARCH == "x86" else "build/package-x64")
INSTALLED = ["SCVScheduler.exe", "scvsched.exe", "README.txt", "guide.html", "scvsched.html", "task-list-file.html",
             "CHANGELOG.html"]
SHORTCUTS = {"SCV Scheduler.lnk": "SCVScheduler.exe", "SCV Scheduler Guide.lnk": "guide.html"}

# Rows of the page with the components, and ids in an installer's window: of its buttons, of its pages' controls.
STARTUP, PATH, LIST = 1, 2, 1
NEXT, CANCEL = 1, 2
COMPONENTS, FOLDER = 1032, 1019
# Buttons of a message box.
IDOK, IDCANCEL, IDRETRY = 1, 2, 4


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


class Installer(Journey):

    folder = "installer-journeys"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.setup = next(PACKAGE.glob("*-setup.exe"))
        cls.version = re.fullmatch(r"SCVScheduler-(.*)-setup.exe", cls.setup.name)[1]
        # As the program's title shows it, so that the installer's, which begins alike, is not taken for it.
        cls.title = "SCV Scheduler " + cls.version.rstrip("0").rstrip(".")
        # Wine would write the entry into the start menu of this machine as well.
        cls.wine.registry("add", r"HKCU\Software\Wine\DllOverrides", "/v", "winemenubuilder.exe", "/d", "", "/f")
        # What every Windows has.
        cls.wine.registry("add", CURRENT_VERSION + r"\Uninstall", "/f")
        cls.wine.registry("add", RUN_KEY, "/f")
        cls.default_folder = cls.scheduler.app_data / "Local/Programs/SCVScheduler"
        cls.default_folder.parent.mkdir(exist_ok=True)
        cls.elsewhere = cls.scheduler.demo / "the scheduler"
        cls.start_menu = cls.scheduler.app_data / "Roaming/Microsoft/Windows/Start Menu/Programs"
        cls.work = ROOT / "build" / cls.folder / ARCH / "work"
        cls.make_older()

    @classmethod
    def make_older(cls):
        """Makes an installer of an older version, whose files are others."""
        shutil.rmtree(cls.work, ignore_errors=True)
        cls.older_files = cls.work / "older"
        shutil.copytree(PACKAGE / "files", cls.older_files)
        for program in cls.older_files.glob("*.exe"):
            with open(program, "ab") as file:
                file.write(b"older\n")
        (cls.older_files / "README.txt").write_text("older\n")
        cls.older = cls.work / "older.exe"
        subprocess.run(["makensis", "-V1", "-NOCD", "-DVERSION=1.0.0", *(["-DWIDE"] if ARCH == "x64" else []),
                        f"-DFILES={cls.older_files}", f"-DSETUP={cls.older}", "packaging/SCVScheduler.nsi"],
                       cwd=ROOT, check=True)

    def setUp(self):
        super().setUp()
        self.started = []
        for folder in (self.default_folder, self.elsewhere):
            shutil.rmtree(folder, ignore_errors=True)
        for shortcut in self.start_menu.glob("SCV Scheduler*.lnk"):
            shortcut.unlink()
        self.wine.registry("delete", UNINSTALL_KEY, "/f")
        self.wine.registry("delete", r"HKCU\Environment", "/v", "Path", "/f")
        self.before = self.state()

    def tearDown(self):
        super().tearDown()
        self.wine.kill("scvsched.exe", self.setup.name, self.older.name, "uninstall.exe", "Un_A.exe")
        for process in self.started:
            process.wait()

    # --- What is there ----------------------------------------------------------------------------------------------

    def state(self):
        """Returns the user's folders, his files with the sum of their bytes and his registry's values, a line each.

        Of files that never have the same bytes there is the name alone.
        """
        lines = set()
        for path in self.wine.drive_c.rglob("*"):
            name = str(path.relative_to(self.wine.drive_c))
            if name.startswith("windows/") or "/Temp/" in name:
                continue
            if path.is_dir():
                lines.add(name + "/")
            elif name.endswith((".lnk", "uninstall.exe")):
                lines.add(name)
            else:
                lines.add(f"{name} {hashlib.sha256(path.read_bytes()).hexdigest()}")
        return lines | self.registry_lines()

    def registry_lines(self):
        lines = set()
        for name in ("Software", "Environment"):
            lines |= self.exported("HKCU\\" + name)
        return lines

    def exported(self, root):
        file = self.wine.drive_c / "windows/temp/state.reg"
        self.wine.registry("export", root, r"C:\windows\temp\state.reg", "/y")
        lines, key = set(), ""
        for line in re.sub(r"\\\n\s*", "", file.read_text("utf-16")).splitlines():
            if line.startswith("["):
                key = line
            if line and r"\Software\Wine" not in key:
                lines.add(f"{key} " + re.sub(r'("EstimatedSize"=dword:)(?!0{8}).*', r"\1...", line))
        return lines

    def with_program(self, state, folder, version, files, startup=False, path=False):
        """Returns that state and what an installation adds to it."""
        place = self.scheduler.windows_path(folder)
        inside = str(folder.relative_to(self.wine.drive_c))
        key = "[" + UNINSTALL_KEY.replace("HKCU", "HKEY_CURRENT_USER") + "]"
        values = {"DisplayName": quoted("SCV Scheduler"), "DisplayVersion": quoted(version),
                  "Publisher": quoted("Talvernick"), "DisplayIcon": quoted(f"{place}\\SCVScheduler.exe"),
                  "EstimatedSize": "dword:...", "InstallLocation": quoted(place), "NoModify": "dword:00000001",
                  "NoRepair": "dword:00000001", "UninstallString": quoted(f'"{place}\\uninstall.exe"'),
                  "QuietUninstallString": quoted(f'"{place}\\uninstall.exe" /S')}
        added = {f"{inside}/{name} {hashlib.sha256((files / name).read_bytes()).hexdigest()}" for name in INSTALLED}
        added |= {f"{inside}/", f"{inside}/uninstall.exe", f"{key} {key}"}
        added |= {str((self.start_menu / name).relative_to(self.wine.drive_c)) for name in SHORTCUTS}
        added |= {f'{key} "{name}"={value}' for name, value in values.items()}
        if startup:
            run_key = "[" + RUN_KEY.replace("HKCU", "HKEY_CURRENT_USER") + "]"
            added.add(f'{run_key} "SCVScheduler"=' + quoted(f'"{place}\\SCVScheduler.exe" /background'))
        if path:
            # Of the type REG_EXPAND_SZ, and there was no other folder.
            value = ",".join(f"{byte:02x}" for byte in (place + "\0").encode("utf-16-le"))
            added.add(rf'[HKEY_CURRENT_USER\Environment] "Path"=hex(2):{value}')
        return state | added

    def assert_state(self, expected, when):
        found = self.state()
        differences = [f"missing: {line}" for line in sorted(expected - found)]
        differences += [f"too many: {line}" for line in sorted(found - expected)]
        self.assertEqual(differences, [], when)

    def installed_version(self):
        return self.wine.value(UNINSTALL_KEY, "DisplayVersion")

    # --- What is done -----------------------------------------------------------------------------------------------

    def run_to(self, status, program, *arguments):
        found, output = self.wine.run(program, *arguments)
        self.assertEqual(found, status, f"exit code of {program.name} {arguments}: {output}")

    def install(self, setup, *arguments, folder=None, status=0):
        """Installs silently, with /D as the installer wants it: last, and a blank in it not quoted."""
        more = f"/D={self.scheduler.windows_path(folder)}".split(" ") if folder else []
        self.run_to(status, setup, "/S", *arguments, *more)

    def remove_silently(self, *switches):
        """Removes the program with the command that the system knows."""
        command = re.fullmatch(r'"(.*)" /S', self.wine.value(UNINSTALL_KEY, "QuietUninstallString"))
        self.assertTrue(command, "The system does not know how to remove the program.")
        self.run_to(0, self.wine.drive_c / command[1][3:].replace("\\", "/"), "/S", *switches)
        self.removal_ends()

    def removal_ends(self):
        """The uninstaller goes on as a copy of itself, which removes the last things that there are after the key."""
        until("the uninstaller ends", lambda: not self.wine.processes(r"[\\/](uninstall\.exe|~nsu)"))

    def open_pages(self, program, title):
        """Starts an installer or uninstaller and returns its window, at the page with the components."""
        self.started.append(self.wine.start(program))
        window = self.desktop.shown(title)
        window.inner(COMPONENTS)
        return window

    def next_page(self, window, shows):
        """Goes on, until the page has a control of that id."""
        window.click(NEXT)
        window.inner(shows)

    def message(self, window):
        """Returns the message box over an installer's window, once it is there."""
        return until("a message box is shown", lambda: next(
            (box for box in self.desktop.windows(window.facts["title"].rstrip() + "*")
             if box.handle != window.handle and box.facts["shown"]), None))

    def answer(self, window, button, picture):
        box = self.message(window)
        self.picture(picture)
        box.click(button)
        box.is_gone()

    def close(self, window):
        """Leaves the last page, whose button for that can be used once all is done."""
        window.click(NEXT)
        window.is_gone()

    def a_list(self):
        self.scheduler.write_list(f'"{DEMO}\\prices.scvpr" -s')

    def change_first_task(self, window):
        self.select(window, 0)
        window.tick(ids.IDC_DELETE_RESULTS)

    def assert_change_saved(self):
        self.assertEqual(self.scheduler.task(1)["CommandLine"], f'"{DEMO}\\prices.scvpr" -dr -s')

    # --- The journeys -----------------------------------------------------------------------------------------------

    def test_pages(self):
        """By the pages: with the start at log-on, which the program's own box then shows; upgrade and removal while it runs."""
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
        """No window, a folder of its own; refused while a program runs there or a file cannot be written."""
        folder = self.elsewhere
        self.install(self.setup, folder=folder)
        installed = self.with_program(self.before, folder, self.version, PACKAGE / "files")
        self.assert_state(installed, "after the installation")
        self.assertEqual(self.scheduler.instances(), 0)
        self.assertEqual(self.wine.run(folder / "scvsched.exe", "--version"), (0, f"scvsched {self.version}\n"))
        place = self.scheduler.windows_path(folder)
        for name, file in SHORTCUTS.items():
            shortcut, target = (self.start_menu / name).read_bytes(), f"{place}\\{file}"
            self.assertTrue(target.encode("utf-16-le") in shortcut or target.encode() in shortcut,
                            f"The entry {name} in the start menu leads elsewhere.")

        watch = self.start_watch(folder)
        installed = self.state()
        self.install(self.setup, status=2)
        self.run_to(2, folder / "uninstall.exe", "/S", *f"_?={place}".split(" "))
        self.assert_state(installed, "while scvsched runs")
        watch.terminate()
        watch.wait()

        # The last file cannot be written: the first ones stay as they were.
        obstacle = folder / "CHANGELOG.html.new"
        obstacle.mkdir()
        self.install(self.older, status=2)
        obstacle.rmdir()
        self.assert_state(installed, "after a failure")

    def read_log(self):
        """Returns the lines of the log file that the last installer or uninstaller was told to write."""
        return (self.scheduler.demo / "log.txt").read_text("utf-16").splitlines()

    def test_log(self):
        """/LOG names a file that says what was done, or why not."""
        folder, log = self.elsewhere, f"/LOG={DEMO}\\log.txt"
        place = self.scheduler.windows_path(folder)
        self.install(self.setup, log, folder=folder)
        self.assertEqual(self.read_log(), [f"Installing SCV Scheduler {self.version}", f"Installed in {place}."])

        watch = self.start_watch(folder)
        in_use = f"{place}\\scvsched.exe is in use or cannot be written. End scvsched, which may be watching in a " \
                 "console (Ctrl+C), and try again."
        self.install(self.older, log, status=2)
        self.assertEqual(self.read_log(), ["Installing SCV Scheduler 1.0.0", in_use, "Nothing was changed."])
        self.run_to(2, folder / "uninstall.exe", "/S", log, *f"_?={place}".split(" "))
        self.assertEqual(self.read_log(), [f"Removing SCV Scheduler {self.version}", in_use, "Nothing was changed."])
        watch.terminate()
        watch.wait()

        obstacle = folder / "CHANGELOG.html.new"
        obstacle.mkdir()
        self.install(self.older, log, status=2)
        obstacle.rmdir()
        self.assertEqual(self.read_log()[1:], [f"{place}\\CHANGELOG.html could not be written.", "Nothing was changed."])

        process, window = self.start(folder=folder)
        window.press("alt+a")
        asked = self.desktop.shown("Open")
        self.install(self.older, log, status=2)
        self.assertEqual(self.read_log()[1:], [
            "SCV Scheduler is running and cannot be ended now. Answer what it asks, or end it with its Exit, and try again.",
            "Nothing was changed."])
        asked.activate()
        asked.press("Escape")
        asked.is_gone()
        self.install(self.older, log)
        self.assertEqual(self.read_log()[1:], [
            f"{place}\\SCVScheduler.exe was running and has been ended; it has saved its list.",
            f"Installed in {place}."])
        self.ends(process)

        before = self.state()
        self.install(self.setup, f"/LOG={DEMO}\\nowhere\\log.txt", status=2)
        self.assert_state(before, "with a log file that cannot be written")

    def pages_to_installation(self):
        """Opens the installer's pages and goes through them to the installation."""
        pages = self.open_pages(self.setup, "SCV Scheduler Setup*")
        self.next_page(pages, FOLDER)
        pages.click(NEXT)
        return pages

    def finish(self, pages):
        until("the newer version is there", lambda: self.installed_version() == self.version)
        pages.says("&Finish")
        self.close(pages)

    def test_question_asking(self):
        """While the program asks something, the pages ask the user to answer it, and go on once he has."""
        self.install(self.older)
        process, window = self.start(folder=self.default_folder)
        window.press("alt+a")
        asked = self.desktop.shown("Open")
        pages = self.pages_to_installation()
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
        self.finish(pages)
        self.desktop.shown(self.title)

    def test_question_watching(self):
        """While scvsched watches, the pages ask the user to end it, and go on once he has."""
        self.install(self.older)
        watch = self.start_watch(self.default_folder)
        pages = self.pages_to_installation()
        self.answer(pages, IDRETRY, "1-watching")
        box = self.message(pages)
        self.assertEqual(self.installed_version(), "1.0.0")
        watch.terminate()
        watch.wait()
        box.click(IDRETRY)
        self.finish(pages)
        self.desktop.shown(self.title)

    def test_path(self):
        """The folder is put on the user's PATH and taken off again; what else is there stays as it is, however long."""
        environment = r"HKCU\Environment"
        place = self.scheduler.windows_path(self.default_folder)
        long = ";".join(f"C:\\tools\\number {number:03}" for number in range(1, 301))
        self.assertGreater(len(long), 4096)
        # What is there; its type; what is there with the folder; how it is said.
        rows = {
            "none": (None, None, f"{place}"),
            "one folder": ("C:\\tools", "REG_SZ", f"C:\\tools;{place}"),
            "variables": (r"%USERPROFILE%\bin", "REG_EXPAND_SZ", rf"%USERPROFILE%\bin;{place}"),
            "ends in a semicolon": ("C:\\tools;", "REG_EXPAND_SZ", f"C:\\tools;{place};"),
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
                self.install(self.setup)
                self.assertEqual(self.wine.value(environment, "Path"), expected, "after a second installation")
                self.remove_silently()
                self.assert_state(before, "after the removal")

        # A folder that was there before the first installation stays in its place, until the program leaves it.
        self.wine.registry("add", environment, "/v", "Path", "/d", f"C:\\a;{place};C:\\b", "/f")
        self.install(self.setup)
        self.assertEqual(self.wine.value(environment, "Path"), f"C:\\a;{place};C:\\b")
        self.install(self.setup, folder=self.elsewhere)
        self.assertEqual(self.wine.value(environment, "Path"),
                         f"C:\\a;C:\\b;{self.scheduler.windows_path(self.elsewhere)}")
        self.install(self.setup, "/PATH=no")
        self.assertEqual(self.wine.value(environment, "Path"), "C:\\a;C:\\b")

    def start_watch(self, folder):
        """Starts `scvsched watch` there, on a list with a due task, and waits until it has noted that task's run."""
        self.scheduler.write_list((f'"{DEMO}\\news.scvpr" -s', {"StartTime": int(time.time()) - 60}))
        watch = self.wine.start(folder / "scvsched.exe", "watch")
        until("scvsched launches", lambda: self.scheduler.task(1).get("LastRunResult") == "'Success'")
        return watch

    def test_upgrade(self):
        """In place over an older version, with list, settings and start at log-on as they were.

        While nothing runs, while the program runs hidden, while it shows a change, and not while it asks something.
        """
        self.install(self.older, "/STARTUP=yes", folder=self.elsewhere)
        installed = self.with_program(self.before, self.elsewhere, "1.0.0", self.older_files, startup=True)
        self.assert_state(installed, "after the older version")
        self.a_list()
        process, window = self.start(folder=self.elsewhere)
        self.exit(window, process)
        # Now there are settings, too.
        upgraded = self.with_program(self.before | (self.state() - installed), self.elsewhere, self.version,
                                     PACKAGE / "files", startup=True)
        self.install(self.setup)
        self.assert_state(upgraded, "after the upgrade")
        self.assertEqual(self.scheduler.instances(), 0, "instances, of which none ran before")

        self.install(self.older)
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
        """Another folder, and another choice of the start at log-on; the old folder goes, as far as it is ours."""
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
        """As the system's settings remove it, while it runs: the list, the settings and what is not ours stay, unless asked."""
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
