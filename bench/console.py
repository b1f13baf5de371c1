#!/usr/bin/python3
"""Measures scvsched on a list of 10,000 tasks under Wine, compared with `list` of an empty list in the same run.

    SCV_BUILD=build/windows-x64-release bench/console.py

Processor time without the Wine server, the best of some rounds. Exit code 1 when a bound is missed.
"""

import os
import resource
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests/journeys"))

from wine import Wine  # noqa: E402

BUILD = Path(os.environ.get("SCV_BUILD", ROOT / "build/windows-x64-release")).resolve()
TASKS = 10_000
ROUNDS = 5
BOUND = 0.5  # seconds
MONDAY = 1898838000  # 4 March 2030, so that every task has a next run
RULES = ["", "RepeatOnMon=1\nRepeatOnThu=1\n", "RepeatOnMonthly=1\n", "EnableEvery=1\nEveryValue=90\nEveryUnit=0\n",
         "EnableEvery=1\nEveryValue=2\nEveryUnit=1\nRepeatOnMon=1\nRepeatOnTue=1\n"]


def write_list(file, count):
    """Writes a list with each kind of rule in turn."""
    sections = [f"[SCVShchedulerTaskList]\nTaskCount={count}\n"]
    for number in range(count):
        sections.append(f"[SCVShchedulerTask{number + 1}]\nEnable=1\n"
                        f"CommandLine='\"C:\\projects\\project {number}.scvpr\" -dt -dr -s -qe -ex'\n"
                        f"StartTime={MONDAY + 60 * number}\nUntilTime={MONDAY + 10 * 3600}\n{RULES[number % len(RULES)]}")
    file.write_text("".join(sections))


def seconds(wine, name, command):
    """Returns the processor time of one call."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    status, output = wine.run(BUILD / "cli/scvsched.exe", "--list", f"C:\\{name}.ini", *command,
                              env={"TZ": "Europe/Berlin"})
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    assert status in (0, 1), output  # 1: check has findings
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def main():
    wine = Wine("x64", "console-bench")
    write_list(wine.drive_c / "empty.ini", 0)
    write_list(wine.drive_c / "full.ini", TASKS)
    empty = min(seconds(wine, "empty", ["list"]) for _ in range(ROUNDS))
    print(f"list of an empty file: {1000 * empty:.0f} ms")
    missed = False
    for command in (["list"], ["next"], ["check"], ["list", "--json"], ["next", "--week"]):
        time = min(seconds(wine, "full", command) for _ in range(ROUNDS))
        is_promised = len(command) == 1
        missed |= is_promised and time > BOUND
        verdict = "       " if not is_promised else "passed " if time <= BOUND else "MISSED "
        print(f"{verdict}{' '.join(command)} of {TASKS:,} tasks: {1000 * time:.0f} ms, {time / empty:.1f} times as long")
    wine.stop()
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
