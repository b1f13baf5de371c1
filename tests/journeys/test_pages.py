#!/usr/bin/python3
r"""Runs every command line of scvsched on the pages, and compares its output with the output shown there.

    SCV_ARCH=x86 tests/journeys/test_pages.py [-v] [Pages.test_blocks ...]

What the pages contain:
- A command within the text, such as `scvsched list`, has to succeed. A name alone, such as `scvsched add`, must have a help
  text; `scvsched COMMAND --help` means the help of every command.
- In a block, a line that begins with `scvsched`, with or without a prompt before it, is run. The lines up to the next such line
  are its expected output; without any the output is not compared. "..." stands for any text, on a line of its own for any lines.
- The guide's table of repeat rules has options of `scvsched add` and the runs that `next` then shows.

The commands run in C:\projects in the zone Europe/Berlin, on the list below. A block, or a command within the text, that begins
with `add` or `import` starts with an empty list.
"""

import re
import signal
import sys
import unittest
from datetime import datetime

from scheduler import ARCH, Scheduler
from wine import ROOT, Wine, until

PAGES = ["README.md", "docs/guide.md", "docs/scvsched.md"]
ZONE = {"TZ": "Europe/Berlin"}
SEEN = "2026-03-02T10:00"  # the present time of the guide's table
MONDAY = 1898838000  # Monday, 4 March 2030, 8:00 in that zone: so far ahead that next runs do not change
TASKS = [
    ('"C:\\projects\\prices.scvpr" -dr -s -qe -ex', {"StartTime": MONDAY, "RepeatOnMon": 1, "RepeatOnThu": 1}),
    ('"C:\\projects\\news.scvpr" -s -ex', {"StartTime": MONDAY + 1800}),
]
# Commands that need no argument; the others need a project or a file.
ALONE = {"list", "next", "check", "pass"}


def words(line):
    """Splits a command line into its arguments, which may be quoted."""
    return [word.strip('"') for word in re.findall(r'(?:"[^"]*"|\S)+', line)]


def spans(page):
    """Returns the command lines within a page's text as pairs of line number and command."""
    return [(number, span) for number, line in enumerate(page.splitlines(), 1)
            for span in re.findall(r"`(scvsched [^`]*)`", line)]


def blocks(page):
    """Returns a page's blocks with command lines, each as (line number, list of [command line, output lines])."""
    found, block, fenced = [], None, False
    for number, line in enumerate(page.splitlines(), 1):
        if line.startswith("```"):
            fenced, block = not fenced, None
            continue
        is_inside = fenced or line.startswith("    ")
        command = re.fullmatch(r"(?:C:[^>]*> ?)?(scvsched .*)", line.strip()) if is_inside else None
        if command and block is None:
            block = []
            found.append((number, block))
        if command:
            block.append((command[1], []))
        elif block is not None and (is_inside or not line):
            block[-1][1].append(line if fenced else line.removeprefix("    "))
        else:
            block = None
    return found


def pattern(lines):
    """Returns the regular expression for an expected output, in which "..." stands for any text."""
    text = "\n".join(line.rstrip() for line in lines).strip("\n")
    return re.sub(r"(?:\\\.){3}", lambda _: "(?:.|\n)*", re.escape(text))


class Pages(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        cls.wine = Wine(ARCH, f"pages-{ARCH}")
        cls.scheduler = Scheduler(cls.wine)
        cls.folder = cls.wine.drive_c / "projects"
        cls.folder.mkdir()
        cls.commands = set(re.findall(r"^  (\w+) ", cls.scvsched("--help")[1].split("ommands:")[1], re.M))

    @classmethod
    def tearDownClass(cls):
        cls.wine.stop()

    @classmethod
    def scvsched(cls, *arguments):
        return cls.wine.run(cls.scheduler.demo / "scvsched.exe", *arguments, env=ZONE, folder=cls.folder)

    def prepare(self, first):
        """Creates the files and the list again, for the first command line of a block."""
        for name in ("prices", "news"):
            (self.folder / f"{name}.scvpr").write_text("0\n")
        self.scheduler.write_list(*TASKS)
        if words(first)[1] == "import":
            self.scvsched("export", words(first)[2])
        if words(first)[1] in ("add", "import"):
            self.scheduler.write_list()

    def run_line(self, line):
        """Runs a command line of a page, `watch` until it has launched a project, and returns its output."""
        arguments = words(line)[1:]
        if arguments[0] == "watch":
            return self.watch(arguments)
        status, output = self.scvsched(*arguments)
        # Exit code 1 means findings, which a page may show.
        self.assertIn(status, (0, 1), output)
        self.assertTrue(output or status == 0, "It ended with exit code 1 without a word.")
        return output

    def watch(self, arguments):
        self.scheduler.write_list(('"C:\\projects\\news.scvpr" -s', {"StartTime": MONDAY - 10 * 365 * 86400}))
        process = self.wine.start(self.scheduler.demo / "scvsched.exe", *arguments, env=ZONE, folder=self.folder)
        until("it launches", lambda: self.scheduler.task(1).get("LastRunResult") == "'Success'")
        process.send_signal(signal.SIGINT)  # what Ctrl+C does
        self.assertEqual(process.wait(), 0)
        return ""

    def test_spans(self):
        """Command lines within the text succeed."""
        for page in PAGES:
            for number, span in spans((ROOT / page).read_text()):
                with self.subTest(f"{page}:{number}: {span}"):
                    self.check_span(span)

    def check_span(self, span):
        command, *arguments = words(span)[1:]
        names = self.commands if command == "COMMAND" else {command}
        self.assertLessEqual(names, self.commands, "There is no such command.")
        self.prepare(span)
        if command == "COMMAND" or not arguments and command not in ALONE | {"watch"}:
            for name in names:
                self.assertEqual(self.scvsched(name, "--help")[0], 0, name)
        elif command == "watch":
            self.watch(words(span)[1:])
        else:
            self.assertEqual(self.scvsched(command, *arguments)[0], 0, self.scvsched(command, *arguments)[1])

    def test_blocks(self):
        """Command lines in blocks print what the pages show."""
        for page in PAGES:
            for number, block in blocks((ROOT / page).read_text()):
                self.prepare(block[0][0])
                for line, shown in block:
                    with self.subTest(f"{page}:{number}: {line}"):
                        output = self.run_line(line)
                        if any(shown):
                            printed = "\n".join(text.rstrip() for text in output.splitlines())
                            self.assertRegex(printed, rf"\A{pattern(shown)}\n*\Z")

    def test_repeat_rules(self):
        """The runs in the guide's table of repeat rules are what scvsched computes."""
        rows = re.findall(r"^\| ([^|]*) \| `(--[^|`]*)` \| ([^|]*) \|$", (ROOT / "docs/guide.md").read_text(), re.M)
        self.assertGreater(len(rows), 5, "The table is not there.")
        for what, options, shown in rows:
            with self.subTest(what):
                runs = shown.split(", ")
                goes_on = runs[-1] == "..."
                runs = runs[:-1] if goes_on else runs
                found = self.next_runs(options, len(runs) + 1)
                self.assertEqual(found[:len(runs)], runs)
                self.assertEqual(len(found) > len(runs), goes_on, f"The next one: {found[len(runs):]}")

    def next_runs(self, options, count):
        """Returns the next runs of a task with these options, formatted as in the guide."""
        self.scheduler.write_list()
        status, output = self.scvsched("add", "C:\\example.scvpr", *words(options))
        self.assertEqual(status, 0, output)
        _, output = self.scvsched("next", "--at", SEEN, "--count", str(count))
        times = [datetime.fromisoformat(time) for time in re.findall(r"\d{4}-\d\d-\d\d \d\d:\d\d", output)]
        return [f"{time:%a} {time.day} {time:%b %H:%M}" for time in times]


if __name__ == "__main__":
    print(f"The {ARCH} programs", file=sys.stderr)
    unittest.main(verbosity=2)
