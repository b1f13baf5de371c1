#!/usr/bin/python3
"""Shows the scheduler on three sample projects. ./run.sh builds it and starts this program.

    SCV_ARCH=x64 scripts/demonstration.py [--keep | --console]
"""

import os
import signal
import sys
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests/journeys"))

from scheduler import ARCH, DEMO, Journey, Scheduler  # noqa: E402
from test_journeys import Journeys  # noqa: E402
from wine import ROOT, Wine, until  # noqa: E402

LAUNCHES = 3  # the number of launches of `scvsched watch` to show


def first_session(keep):
    """Plays a journey, because without a display nobody could see a window."""
    print("There is no display here; playing a first session on one of its own (a minute and a half)", flush=True)
    Journey.keeps = keep
    outcome = unittest.TextTestRunner().run(unittest.TestSuite([Journeys("test_first_start")]))
    print(f"Pictures: build/journeys/{ARCH}/first_start-*.png")
    print(f"The list: {Journeys.scheduler.list_file.relative_to(ROOT)}")
    show_runs(Journeys.scheduler)
    return 0 if outcome.wasSuccessful() else 1


def show_runs(scheduler):
    print("What the stand-in was started with (seconds since 1970, process, command line):")
    for record in sorted(scheduler.demo.glob("*.runs.txt")):
        print("    " + record.read_text().strip())


def make_scheduler():
    print("Starting Wine", flush=True)
    scheduler = Scheduler(Wine(ARCH, f"run-{ARCH}"))
    now = int(time.time())
    scheduler.write_list(
        (f'"{DEMO}\\prices.scvpr" -dr -s -qe"{DEMO}\\prices.csv" -ex', {"StartTime": now - 3600}),
        (f'"{DEMO}\\new books.scvpr" -s -ex', {"StartTime": now + 8}),
        (f'"{DEMO}\\news.scvpr" -rt -rs', {"StartTime": now - 3600, "LastRunTime": now - 120, "EnableEvery": 1,
                                           "EveryValue": 1}))
    return scheduler


def window(keep):
    scheduler = make_scheduler()
    print("The window is open; the extraction program is a stand-in that writes down what it was started with.",
          flush=True)
    process = scheduler.start()
    if keep:
        print('It keeps running; "Exit" in the window or in its icon\'s menu ends it.')
        scheduler.wine.keep()
    else:
        process.wait()
        show_runs(scheduler)
    return 0


def console():
    scheduler = make_scheduler()
    program = [scheduler.demo / "scvsched.exe", "--list", scheduler.windows_path(scheduler.list_file)]
    print("\nThe list before (one task is due, one in a few seconds, one every minute):", flush=True)
    print(scheduler.wine.run(*program, "list")[1])
    print(f"Watching until {LAUNCHES} projects were launched:", flush=True)
    log = ROOT / "build/watch.log"
    with open(log, "w") as output:
        watch = scheduler.wine.start(*program, "watch", stdout=output, stderr=output)
        for number in range(LAUNCHES):
            print(until("a project is launched", lambda: log.read_text().splitlines()[number:])[0], flush=True)
        watch.send_signal(signal.SIGINT)  # what Ctrl+C does
        status = watch.wait()
    print("\nThe list after:", flush=True)
    print(scheduler.wine.run(*program, "list")[1])
    show_runs(scheduler)
    return status


def main():
    mode = sys.argv[1] if len(sys.argv) > 1 else ""
    if mode == "--console":
        return console()
    if os.environ.get("DISPLAY"):
        return window(mode == "--keep")
    return first_session(mode == "--keep")


if __name__ == "__main__":
    sys.exit(main())
