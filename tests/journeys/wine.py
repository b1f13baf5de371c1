"""A display, a Wine prefix on it and the programs that run there."""

import atexit
import ctypes
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PATIENCE = int(os.environ.get("SCV_TEST_TIMEOUT", "120"))  # seconds until a wait fails


def until(what, condition, patience=PATIENCE):
    """Waits until condition() returns a true value, and returns it. No other function here sleeps."""
    deadline = time.monotonic() + patience
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise AssertionError(f"Did not happen within {patience} seconds: {what}")
        time.sleep(0.05)


# So that atexit's functions also run when this program gets SIGTERM.
signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))


class Display:
    """A virtual X server. DISPLAY names it from then on."""

    def __init__(self, width=1280, height=900):
        self.width, self.height = width, height
        read, write = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{width}x{height}x24", "-nolisten", "tcp"],
            pass_fds=[write], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            start_new_session=True)
        atexit.register(self.stop)
        os.close(write)
        with os.fdopen(read) as number:
            os.environ["DISPLAY"] = ":" + number.readline().strip()  # comes once clients can connect

    @property
    def process(self):
        return self._server.pid

    def set_work_area(self, place):
        """Sets the work area for programs that start from now on, as a desktop with a task bar does."""
        x11 = ctypes.CDLL("libX11.so.6")
        x11.XOpenDisplay.restype = ctypes.c_void_p
        for function in (x11.XDefaultRootWindow, x11.XInternAtom):
            function.restype = ctypes.c_ulong
        # Stays open: the server drops the property when its last client disconnects.
        display = ctypes.c_void_p(x11.XOpenDisplay(None))
        cardinal, replace = ctypes.c_ulong(6), 0
        left, top, right, bottom = place
        x11.XChangeProperty(display, ctypes.c_ulong(x11.XDefaultRootWindow(display)),
                            ctypes.c_ulong(x11.XInternAtom(display, b"_NET_WORKAREA", 0)), cardinal, 32, replace,
                            (ctypes.c_ulong * 4)(left, top, right - left, bottom - top), 4)
        x11.XFlush(display)

    def keep(self):
        """Keeps the display when this program ends."""
        atexit.unregister(self.stop)

    def stop(self):
        self._server.terminate()
        self._server.wait()


class Wine:
    """A fresh prefix below build/wine, with a server that runs until stop().

    With a display its programs share one desktop with a task bar, which fills the screen; with has_task_bar=False they
    use the screen directly. Without a display they have no windows. Programs are started through scripts/wine.sh.
    """

    def __init__(self, arch, name, display=None, dpi=96, has_task_bar=True):
        self.arch = arch
        self.prefix = ROOT / "build/wine" / name
        self.drive_c = self.prefix / "drive_c"
        arguments = ["wine_start", arch, str(self.prefix)]
        settings = {}
        if display:
            arguments += ["desktop"] if has_task_bar else []
            settings = {"display_pid": str(display.process), "wine_screen": f"{display.width}x{display.height}",
                        "wine_dpi": str(dpi)}
        atexit.register(self.stop)
        log = ROOT / "build" / f"wine-{name}.log"
        log.parent.mkdir(exist_ok=True)
        with open(log, "w") as output:
            if subprocess.call(self._shell(arguments), cwd=ROOT, env=os.environ | settings, stdin=subprocess.DEVNULL,
                               stdout=output, stderr=output):
                raise RuntimeError(f"Wine did not start: {log.read_text()[-500:]}")

    def _shell(self, words, folder=ROOT, arch=None):
        script = '. scripts/common.sh; . scripts/wine.sh; wine_prefix[$0]=$1; cd "$2"; shift 2; "$@"'
        return ["bash", "-c", script, arch or self.arch, str(self.prefix), str(folder), *map(str, words)]

    def start(self, program, *arguments, env=None, folder=ROOT, arch=None, **streams):
        """Starts a program, by its path on this machine, in a folder, and returns its process.

        arch="joined" starts a 32-bit program in a 64-bit prefix.
        """
        words = ["wine_exec", arch or self.arch, "env"]
        settings = [f"{name}={value}" for name, value in (env or {}).items()]
        for name in ("stdin", "stdout", "stderr"):
            streams.setdefault(name, subprocess.DEVNULL)
        return subprocess.Popen(self._shell([*words, *settings, program, *arguments], folder, arch), cwd=ROOT, **streams)

    def run(self, program, *arguments, **more):
        """Runs a program to its end and returns its exit code and its output with plain line ends."""
        # Not a pipe: a service that the program starts would inherit it and keep it open.
        with tempfile.TemporaryFile() as output:
            status = self.start(program, *arguments, stdout=output, stderr=subprocess.STDOUT, **more).wait()
            output.seek(0)
            return status, output.read().decode(errors="replace").replace("\r", "")

    def registry(self, *arguments):
        """Runs reg.exe and returns its output, whether it succeeds or not."""
        return self.run("reg.exe", *arguments)[1]

    def value(self, key, name):
        """Returns a registry value as text; empty when there is none."""
        found = re.search(rf"^    {re.escape(name)}    REG_\w+    (.*)$", self.registry("query", key, "/v", name), re.M)
        return found[1] if found else ""

    def processes(self, pattern):
        """Returns the ids of the prefix's processes whose command line matches. Wine's tasklist.exe prints nothing."""
        marker = f"\0WINEPREFIX={self.prefix}\0".encode()
        found = []
        for folder in Path("/proc").glob("[0-9]*"):
            try:
                if marker in b"\0" + (folder / "environ").read_bytes():
                    command = (folder / "cmdline").read_bytes().decode(errors="replace")
                    if re.search(pattern, command):
                        found.append(int(folder.name))
            except OSError:
                pass  # it has ended, or is somebody else's
        return found

    def kill(self, *images):
        """Ends all programs with these names and waits until they have ended."""
        for image in images:
            self.run("taskkill.exe", "/f", "/im", image)
            until(f"{image} ends", lambda: not self.processes(rf"[\\/]{re.escape(image)}"))

    def keep(self):
        """Keeps the server and its programs when this program ends."""
        atexit.unregister(self.stop)

    def restart(self, dpi):
        """Ends all programs and starts a server for the current display, scaled for so many dots per inch."""
        self.stop()
        self.run("reg.exe", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD", "/d", dpi, "/f",
                 env={"DISPLAY": ""})
        for command in ("-k", "-w", "-p"):  # the scale is read when a server starts
            subprocess.call(self._shell(["wine_server", self.arch, command]), cwd=ROOT, stdin=subprocess.DEVNULL,
                            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def stop(self):
        subprocess.call(self._shell(["wine_stop"]), cwd=ROOT, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                        stderr=subprocess.DEVNULL)
