#!/usr/bin/env python3
"""Checks that two windows on one list start each due project exactly once.

    bench/two_schedulers.py [ROUNDS]

One window is the 64-bit build, the other the 32-bit one. In each of 20 rounds 50 projects become due at once while both
run. In every fourth round one of them is killed at a random moment. The project that was then being launched may start
twice: it is the first project of the list without a run, read while the other window is stopped. Prints a line for each
round. The exit code is 1 when any other project started twice, or one not at all. Takes some minutes. Needs windows-x64
and windows-x86.
"""

import os
import random
import shutil
import signal
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests/journeys"))

from scheduler import PROGRAM, installed  # noqa: E402
from wine import ROOT, Display, until  # noqa: E402

PROJECTS = [f"p{number:02}" for number in range(50)]
SCRIVANE = r"HKCU\Software\Talvernick\Scrivane"
BITS = {"x64": 64, "joined": 32}


class Rounds:

    def __init__(self):
        self.wine, self.desktop, self.scheduler = installed("two-schedulers", Display(), ROOT / "build/two-schedulers")
        for project in PROJECTS:
            self.scheduler.make_project(project, 0)
        self._install_32_bit()

    def _install_32_bit(self):
        """Copies the 32-bit build, and both stand-ins to where each window finds the one of its architecture."""
        self.wine.run("cmd.exe", "/c", "exit", arch="joined")  # creates the folder of 32-bit modules
        build = ROOT / "build/windows-x86"
        (self.scheduler.demo / "joined").mkdir()
        shutil.copy(build / "ui" / PROGRAM, self.scheduler.demo / "joined")
        windows = self.wine.drive_c / "windows"
        shutil.copy(self.scheduler.demo / "standin.exe", windows / "system32")
        shutil.copy(build / "tests/standin.exe", windows / "syswow64")  # which is system32 for a 32-bit program
        self.wine.registry("add", SCRIVANE, "/v", "ProgramFileName", "/d", r"C:\windows\system32\standin.exe", "/f")

    def start(self, arch, number):
        """Starts window number `number` and returns its architecture and its process."""
        folder = self.scheduler.demo / ("joined" if arch == "joined" else "")
        process = self.scheduler.start("/background", folder=folder, arch=arch).pid
        # Wait until its title has the version: before that, a second process would hand over to it and end.
        until(f"{number} windows run", lambda: len(self.desktop.windows("SCV Scheduler *")) == number)
        return arch, process

    def has_run(self, number):
        return int(self.scheduler.task(number + 1).get("LastRunTime", 0)) != 0

    def play(self, kills):
        """Returns the starts of each project, the index of one that may start twice, and the kill in words."""
        self.scheduler.forget()
        due = int(time.time()) + 15  # usually enough for both windows to start
        self.scheduler.write_list(*[(f'"C:\\demo\\{project}.scvpr" -s', {"StartTime": due}) for project in PROJECTS])
        windows = [self.start(arch, number) for number, arch in enumerate(random.sample(sorted(BITS), 2), 1)]
        may_repeat, note = kill_one(self, windows) if kills else (None, "")
        until("every run is in the list", lambda: all(map(self.has_run, range(len(PROJECTS)))))
        quiet = time.monotonic() + 8  # some ticks in which no project may start again
        until("some ticks have passed", lambda: time.monotonic() > quiet)
        self.scheduler.end_all()
        return [len(self.scheduler.runs(project)) for project in PROJECTS], may_repeat, note


def kill_one(rounds, windows):
    """Kills a window once a random number of projects has started; returns the project being launched, and a text."""
    count = random.randrange(1, len(PROJECTS))
    until(f"{count} projects have started", lambda: sum(
        bool(rounds.scheduler.runs(project)) for project in PROJECTS) >= count)
    random.shuffle(windows)
    (arch, victim), (_, other) = windows
    os.kill(other, signal.SIGSTOP)
    os.kill(victim, signal.SIGKILL)
    at_hand = next((number for number in range(len(PROJECTS)) if not rounds.has_run(number)), None)
    os.kill(other, signal.SIGCONT)
    return at_hand, (f", {BITS[arch]}-bit window killed after {count} starts, "
                     f"while launching {PROJECTS[at_hand] if at_hand is not None else 'nothing'}")


def main(rounds=20):
    table = Rounds()
    failures = 0
    for number in range(1, rounds + 1):
        starts, may_repeat, note = table.play(kills=number % 4 == 0)
        again = [project for project, count in zip(PROJECTS, starts) if count > 1]
        allowed = [PROJECTS[may_repeat]] if may_repeat is not None and starts[may_repeat] == 2 else []
        failures += 0 in starts or again not in ([], allowed)
        print(f"round {number}: {sum(starts)} starts of {len(starts)} projects, {starts.count(0)} missed, "
              f"{', '.join(again) or 'none'} twice{note}", flush=True)
    print(f"{rounds} rounds, {failures} with a failure")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*map(int, sys.argv[1:])))
