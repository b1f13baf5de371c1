r"""The scheduler on a Wine desktop: C:\demo with the programs and some projects, its list file, its registry.

A stand-in, tests/standin, is registered as the extraction program. It records the command lines it was started with.
"""

import datetime
import os
import shutil
import time
import unittest

from desktop import Desktop, resource_ids
from wine import ROOT, Display, Wine, until

ARCH = os.environ.get("SCV_ARCH", "x64")  # the build: x64, or x86, which ships
DEMO = "C:\\demo"
PROGRAM = "SCVScheduler.exe"
EXTRACTION_PROGRAM = DEMO + r"\Scrivane.exe"
SETTINGS = r"HKCU\Software\Talvernick\SCVScheduler"
RUN_KEY = r"HKCU\Software\Microsoft\Windows\CurrentVersion\Run"
ids = type("Ids", (), resource_ids())


def end_of_today():
    return int(datetime.datetime.now().replace(hour=23, minute=59, second=59).timestamp())


def tomorrow():
    return int(time.time()) + 24 * 60 * 60


class Scheduler:
    """The demo folder of a prefix, newly made, and the files of the prefix's only user."""

    def __init__(self, wine):
        self.wine = wine
        self._started = []
        self.demo = wine.drive_c / "demo"
        self.demo.mkdir(exist_ok=True)
        build = ROOT / f"build/windows-{wine.arch}"
        for program in (f"ui/{PROGRAM}", "cli/scvsched.exe"):
            shutil.copy(build / program, self.demo)
        shutil.copy(build / "tests/standin.exe", self.demo / "Scrivane.exe")
        # The text of a project is the number of seconds for which the stand-in keeps it open.
        for name, seconds in {"prices": 1, "new books": 2, "news": 0}.items():
            self.make_project(name, seconds)
        # The path is short: the scheduler reads no program path of more than 126 characters.
        wine.registry("add", r"HKCU\Software\Talvernick\Scrivane", "/v", "ProgramFileName", "/d", EXTRACTION_PROGRAM, "/f")
        # By a pattern, because Wine chooses the user's name.
        self.app_data = next(wine.drive_c.glob("users/[!P]*/AppData"))
        self.list_file = self.app_data / "Local/SCVScheduler/SCVScheduler.ini"
        self.old_list_file = self.app_data / "Roaming/Scrivane/SCVScheduler.ini"

    def make_project(self, name, seconds):
        (self.demo / f"{name}.scvpr").write_text(f"{seconds}\n")

    def windows_path(self, path):
        return "C:\\" + str(path.relative_to(self.wine.drive_c)).replace("/", "\\")

    def write_list(self, *tasks, file=None):
        """Writes a list file. A task is a command line, or a pair of a command line and a dictionary of further keys."""
        lines = ["[SCVShchedulerTaskList]", f"TaskCount={len(tasks)}"]
        for number, task in enumerate(tasks, 1):
            command_line, more = (task, {}) if isinstance(task, str) else task
            values = {"Enable": 1, "CommandLine": f"'{command_line}'", "StartTime": tomorrow(),
                      "UntilTime": end_of_today(), "LastRunTime": 0, "EnableEvery": 0, "EveryValue": 0, "EveryUnit": 0}
            lines.append(f"[SCVShchedulerTask{number}]")
            lines += [f"{key}={value}" for key, value in (values | more).items()]
        file = file or self.list_file
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text("\r\n".join([*lines, ""]), newline="")

    def list(self):
        """Returns the list file as a dictionary of sections, each a dictionary of keys; empty without a file."""
        sections, section = {}, {}
        text = self.list_file.read_text() if self.list_file.exists() else ""
        for line in text.splitlines():
            if line.startswith("["):
                section = sections.setdefault(line.strip("[]"), {})
            elif "=" in line:
                key, value = line.split("=", 1)
                section[key] = value.strip("'") if key == "CommandLine" else value
        return sections

    def task(self, number):
        return self.list().get(f"SCVShchedulerTask{number}", {})

    def runs(self, project):
        """Returns the command lines that the stand-in was started with for a project."""
        record = self.demo / f"{project}.scvpr.runs.txt"
        lines = record.read_text().splitlines() if record.exists() else []
        return [line.split("\t", 2)[2] for line in lines]

    def setting(self, key, name):
        return self.wine.value(f"{SETTINGS}\\{key}", name)

    def startup(self):
        """Returns the command that Windows runs when the user logs on."""
        return self.wine.value(RUN_KEY, "SCVScheduler")

    def forget(self):
        """Removes lists, records, settings and start at log-on, as if the user had never run the program."""
        for folder in (self.list_file.parent, self.old_list_file.parent):
            shutil.rmtree(folder, ignore_errors=True)
        for record in self.demo.glob("*.runs.txt"):
            record.unlink()
        self.wine.registry("delete", SETTINGS, "/f")
        self.wine.registry("delete", RUN_KEY, "/v", "SCVScheduler", "/f")

    def start(self, *arguments, folder=None, **more):
        """Starts the window program and returns its process."""
        process = self.wine.start((folder or self.demo) / PROGRAM, *arguments, **more)
        self._started.append(process)
        return process

    def end_all(self):
        self.wine.kill(PROGRAM)
        while self._started:
            self._started.pop().wait()

    def instances(self):
        return len(self.wine.processes(r"[\\/]SCVScheduler\.exe"))


def installed(prefix, display, pictures, arch="x64", **options):
    """Returns a new prefix on a display (wine.Wine), its desktop and a scheduler in it."""
    wine = Wine(arch, prefix, display, **options)
    return wine, Desktop(wine, pictures), Scheduler(wine)


class Steps:
    """A user's steps in the program's windows. A derived class has self.desktop and self.scheduler."""

    title = "SCV Scheduler*"

    def start(self, *arguments, **more):
        """Starts the program, waits for its window and returns both."""
        process = self.scheduler.start(*arguments, **more)
        return process, self.desktop.shown(self.title)

    def hide(self, window, button=ids.IDOK):
        window.click(button)
        window.is_hidden()

    def show(self):
        """Double-clicks the icon in the notification area."""
        self.desktop.click_tray(times=2)
        return self.desktop.shown(self.title)

    def exit(self, window, process):
        window.click(ids.ID_EXIT_PROGRAM)
        self.ends(process)

    def ends(self, process):
        until("the program ends", lambda: process.poll() is not None)

    def add_project(self, window, name):
        window.press("alt+a")
        self.desktop.choose_file("Open", f"{DEMO}\\{name}.scvpr")

    def select(self, window, row):
        window.select_row(ids.IDC_PROJECT_LIST, row)

    def make_left_script(self, picture=lambda name: None):
        """In the script editor makes a script from the template Left_String and tests it on a sample."""
        editor = self.desktop.shown("Script Editor")
        editor.choose(ids.IDC_SCRIPT_LANGUAGE, "VBScript")
        editor.double_click_entry(ids.IDC_SCRIPT_TEMPLATES, "Left_String")
        parameters = self.desktop.shown("Script Function")
        parameters.type(ids.IDC_FUNCTION_PARAM_1, "-")
        parameters.type(ids.IDC_FUNCTION_PARAM_2, "0")
        picture("function")
        parameters.press("Return")
        parameters.is_gone()
        editor.type(ids.IDC_SCRIPT_TEST_TEXT, "books-2026-11")
        editor.click(ids.IDC_SCRIPT_TEST_RUN)
        until("the test has a result", lambda: editor.text(ids.IDC_SCRIPT_TEST_RESULT))
        return editor


class Journey(unittest.TestCase, Steps):
    """Plays a user on a desktop that all journeys of a class share.

    After a journey the programs that it started are ended. Pictures go to build/NAME/ARCHITECTURE; a journey that fails
    leaves one of the screen.
    """

    folder = "journeys"
    keeps = False  # True keeps the display and the programs of the last journey

    @classmethod
    def setUpClass(cls):
        cls.display = Display()
        pictures = ROOT / "build" / cls.folder / ARCH
        for old in pictures.glob("*.png"):
            old.unlink()
        cls.wine, cls.desktop, cls.scheduler = installed(f"{cls.folder}-{ARCH}", cls.display, pictures, ARCH)

    @classmethod
    def tearDownClass(cls):
        cls.desktop.stop()
        for part in (cls.wine, cls.display):
            part.keep() if cls.keeps else part.stop()
        if cls.keeps:
            print(f"The display is {os.environ['DISPLAY']}.")

    def run(self, result=None):
        self._result = result
        return super().run(result)

    def setUp(self):
        self.scheduler.forget()

    def tearDown(self):
        if any(test is self for test, _ in self._result.failures + self._result.errors):
            self.desktop.picture(f"{self._testMethodName.removeprefix('test_')}-failed")
        if not self.keeps:
            self.scheduler.end_all()

    def picture(self, name):
        self.desktop.picture(f"{self._testMethodName.removeprefix('test_')}-{name}")
