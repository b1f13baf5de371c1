#!/usr/bin/env python3
"""Two windows run one list: measures that each project that is due is started exactly once.

    tests/journeys/two_schedulers.py [ROUNDS]

Each of 20 rounds has 50 projects due when both windows start. In every fourth round one of them is killed at a random
moment. Prints a line a round; ends with 1 when a project did not start, or started twice, but for the one that was
being launched at a kill. Takes some minutes.
"""

import os
import random
import signal
import sys
import time

from scheduler import DEMO, PROGRAM, Scheduler
from wine import Display, Wine, until

PROJECTS = [f"p{number:02}" for number in range(50)]


def play(scheduler, kills):
    """Returns how many starts each project had, and after how many seconds a window was killed."""
    scheduler.forget()
    scheduler.write_list(*[(f'"{DEMO}\\{project}.scvpr" -s', {"StartTime": 1}) for project in PROJECTS])
    begin = time.monotonic()
    for _ in range(2):
        scheduler.start("/background")
    until("two windows run", lambda: len(scheduler.wine.processes(PROGRAM)) >= 2)
    killed = None
    if kills:
        until("the first project has started", lambda: any(scheduler.runs(project) for project in PROJECTS))
        moment = time.monotonic() + random.uniform(0, 5)
        until("the moment of the kill", lambda: time.monotonic() > moment)
        os.kill(random.choice(scheduler.wine.processes(PROGRAM)), signal.SIGKILL)
        killed = time.monotonic() - begin
    until("every run is in the list",
          lambda: all(int(scheduler.task(number).get("LastRunTime", 0)) for number in range(1, len(PROJECTS) + 1)))
    quiet = time.monotonic() + 8  # some ticks, in which nothing may start again
    until("some ticks have passed", lambda: time.monotonic() > quiet)
    scheduler.end_all()
    return [len(scheduler.runs(project)) for project in PROJECTS], killed


def main(rounds=20):
    scheduler = Scheduler(Wine("x64", "two-schedulers", Display()))
    for project in PROJECTS:
        scheduler.make_project(project, 0)
    failures = 0
    for number in range(1, rounds + 1):
        starts, killed = play(scheduler, kills=number % 4 == 0)
        missed, again = starts.count(0), sum(count - 1 for count in starts if count > 1)
        failures += missed > 0 or again > (1 if killed else 0)
        print(f"round {number}: {sum(starts)} starts of {len(starts)} projects, {missed} missed, {again} twice"
              + (f", one window killed after {killed:.1f} s" if killed else ""), flush=True)
    print(f"{rounds} rounds, {failures} with a failure")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*map(int, sys.argv[1:])))
