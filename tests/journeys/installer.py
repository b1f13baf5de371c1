"""The packed program, the pages of its installer, and the state of a user's machine before and after."""

import hashlib
import re
import shutil
import subprocess

from scheduler import ARCH, DEMO, RUN_KEY, Journey, ids
from wine import ROOT, until

CURRENT_VERSION = r"HKCU\Software\Microsoft\Windows\CurrentVersion"
UNINSTALL_KEY = CURRENT_VERSION + r"\Uninstall\SCVScheduler"
PACKAGE = ROOT / ("build/package" if ARCH == "x86" else "build/package-x64")
INSTALLED = ["SCVScheduler.exe", "scvsched.exe", "README.txt", "guide.html", "scvsched.html", "task-list-file.html",
             "CHANGELOG.html"]
SHORTCUTS = {"SCV Scheduler.lnk": "SCVScheduler.exe", "SCV Scheduler Guide.lnk": "guide.html"}

# Rows of the components page, and ids of buttons and of controls of the pages in an installer's window.
STARTUP, PATH, LIST = 1, 2, 1
LOCKS = (".ini.launch", ".ini.window", ".ini.watch")
NEXT = 1
COMPONENTS, FOLDER = 1032, 1019
# Buttons of a message box.
IDOK, IDCANCEL, IDRETRY = 1, 2, 4


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


class InstallerJourney(Journey):
    """Starts each journey without the program installed, and ends what an installer left running."""

    folder = "installer-journeys"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.setup = next(PACKAGE.glob("*-setup.exe"))
        cls.version = re.fullmatch(r"SCVScheduler-(.*)-setup.exe", cls.setup.name)[1]
        # With the version, because the installer's title begins alike.
        cls.title = "SCV Scheduler " + cls.version.rstrip("0").rstrip(".")
        # Otherwise Wine would also add the entry to this machine's own start menu.
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
        """Makes an installer of an older version, with other files."""
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

    # --- The state of the machine -----------------------------------------------------------------------------------

    def state(self):
        """Returns the user's folders, files with a hash of their bytes, and registry values, one per line.

        A file whose bytes differ each time has only its name.
        """
        lines = set()
        for path in self.wine.drive_c.rglob("*"):
            name = str(path.relative_to(self.wine.drive_c))
            # Without the locks of a running program and the stand-in's records, which can change at any time.
            if name.startswith("windows/") or "/Temp/" in name or name.endswith((*LOCKS, ".runs.txt")):
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
        """Returns a state together with what an installation adds to it."""
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

    # --- Steps ------------------------------------------------------------------------------------------------------

    def run_to(self, status, program, *arguments):
        found, output = self.wine.run(program, *arguments)
        self.assertEqual(found, status, f"exit code of {program.name} {arguments}: {output}")

    def install(self, setup, *arguments, folder=None, status=0):
        """Installs silently. /D comes last and is not quoted, even if the folder contains a blank."""
        more = f"/D={self.scheduler.windows_path(folder)}".split(" ") if folder else []
        self.run_to(status, setup, "/S", *arguments, *more)

    def remove_silently(self, *switches):
        """Removes the program with the command in the system's registry key for it."""
        command = re.fullmatch(r'"(.*)" /S', self.wine.value(UNINSTALL_KEY, "QuietUninstallString"))
        self.assertTrue(command, "The system does not know how to remove the program.")
        program = self.wine.drive_c / command[1][3:].replace("\\", "/")
        self.run_to(0, program, "/S", *switches)
        # On a busy machine the copy may not be a process yet when this one has ended.
        until("the uninstaller removes itself", lambda: not program.exists())
        self.removal_ends()

    def removal_ends(self):
        """Waits for the uninstaller: it continues as a copy of itself, which removes the last files after the key."""
        until("the uninstaller ends", lambda: not self.wine.processes(r"[\\/](uninstall\.exe|~nsu)"))

    def open_pages(self, program, title):
        """Starts an installer or uninstaller and returns its window, which shows the components page."""
        self.started.append(self.wine.start(program))
        window = self.desktop.shown(title)
        window.inner(COMPONENTS)
        return window

    def next_page(self, window, shows):
        """Clicks Next and waits until the page has a control of this id."""
        window.click(NEXT)
        window.inner(shows)

    def message(self, window):
        """Waits for the message box above an installer's window, and returns it."""
        return until("a message box is shown", lambda: next(
            (box for box in self.desktop.windows(window.facts["title"].rstrip() + "*")
             if box.handle != window.handle and box.facts["shown"]), None))

    def answer(self, window, button, picture):
        box = self.message(window)
        self.picture(picture)
        box.click(button)
        box.is_gone()

    def close(self, window):
        """Closes the last page, whose button is enabled once everything is done."""
        window.click(NEXT)
        window.is_gone()

    def a_list(self):
        self.scheduler.write_list(f'"{DEMO}\\prices.scvpr" -s')

    def change_first_task(self, window):
        self.select(window, 0)
        window.tick(ids.IDC_DELETE_RESULTS)

    def assert_change_saved(self):
        self.assertEqual(self.scheduler.task(1)["CommandLine"], f'"{DEMO}\\prices.scvpr" -dr -s')
