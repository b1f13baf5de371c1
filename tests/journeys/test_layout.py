#!/usr/bin/python3
"""On small and on scaled screens every control of the three dialogs is within reach, and none covers another.

Reads the rectangles of the running program's windows: at the first start, in their smallest size, maximised, and with
the place stored on another screen. The task bar has 40 pixels at 100 %.

    SCV_ARCH=x86 tests/journeys/test_layout.py [-v]

Pictures are in build/layout/ARCHITECTURE.
"""

import itertools
import sys
import unittest

from desktop import Desktop
from scheduler import ARCH, SETTINGS, Scheduler, Steps, ids
from wine import ROOT, Display, Wine

WM_NULL, WM_SYSCOMMAND, SC_MAXIMIZE, SC_RESTORE = 0, 0x112, 0xF030, 0xF120
TASK_BAR = 40
PICTURED = ("first", "first, editor", "function")  # failures are pictured as well

# Width, height and scale in per cent. Each screen starts with the place stored on the one before, so sizes alternate. The 64-bit
# program does not ship and runs on the first three only.
SCREENS = [
    (1366, 768, 100), (1920, 1080, 200), (1366, 768, 150), (1920, 1080, 100), (1280, 800, 125), (1920, 1080, 175),
    (1366, 768, 125), (1920, 1080, 150), (1920, 1080, 125),
][:9 if ARCH == "x86" else 3]


def contains(around, place):
    return around[0] <= place[0] and around[1] <= place[1] and around[2] >= place[2] and around[3] >= place[3]


def overlap(one, other):
    """Whether a control covers part of another one; a group box surrounds its controls, arrows in their field."""
    a, b = one["place"], other["place"]
    return (max(a[0], b[0]) < min(a[2], b[2]) and max(a[1], b[1]) < min(a[3], b[3])
            and "msctls_updown32" not in (one["class"], other["class"])
            and not (one["class"] == "Button" and contains(a, b)) and not (other["class"] == "Button" and contains(b, a)))


class Layout(unittest.TestCase, Steps):

    @classmethod
    def setUpClass(cls):
        cls.display = Display(*SCREENS[0][:2])
        cls.wine = Wine(ARCH, f"layout-{ARCH}", cls.display, has_task_bar=False)
        cls.scheduler = Scheduler(cls.wine)

    @classmethod
    def tearDownClass(cls):
        cls.wine.stop()
        cls.display.stop()

    def test_everything_is_within_reach(self):
        for width, height, scale in SCREENS:
            with self.subTest(f"{width} x {height} at {scale} %"):
                self.move_to_screen(width, height, scale)
                try:
                    self.stored_place()
                    self.first_sight()
                finally:
                    self.scheduler.end_all()
                    self.desktop.stop()

    def move_to_screen(self, width, height, scale):
        self.name = f"{width}x{height}-{scale}"
        self.wine.stop()
        self.display.stop()
        type(self).display = Display(width, height)
        self.area = [0, 0, width, height - TASK_BAR * scale // 100]
        self.display.set_work_area(self.area)
        self.wine.restart(dpi=96 * scale // 100)
        self.desktop = Desktop(self.wine, ROOT / f"build/layout/{ARCH}")

    def stored_place(self):
        """Starts with the places that were stored on the screen before."""
        process, window = self.start()
        self.assert_within_reach(window, "stored")
        editor = self.open_editor(window)
        self.assert_within_reach(editor, "stored, editor")
        self.close(editor)
        self.exit(window, process)

    def first_sight(self):
        """Starts with nothing stored, tries every size, and leaves both windows in the lower right corner."""
        self.wine.registry("delete", SETTINGS, "/f")
        process, window = self.start()
        self.assert_within_reach(window, "first")
        self.try_sizes(window, "")
        editor = self.open_editor(window)
        self.assert_within_reach(editor, "first, editor")
        self.try_sizes(editor, ", editor")
        editor.double_click_entry(ids.IDC_SCRIPT_TEMPLATES, "Left_String")
        function = self.desktop.shown("Script Function")
        self.assert_within_reach(function, "function")
        self.close(function)
        self.close(editor)
        self.exit(window, process)

    def try_sizes(self, window, what):
        first = window.place
        left, top, right, bottom = self.area
        self.resize(window, [left, top, left + 1, top + 1])
        self.assert_within_reach(window, "smallest" + what)
        self.desktop.ask("send", window.handle, WM_SYSCOMMAND, SC_MAXIMIZE, 0)
        self.assert_within_reach(window, "maximised" + what, is_maximised=True)
        self.desktop.ask("send", window.handle, WM_SYSCOMMAND, SC_RESTORE, 0)
        self.resize(window, [right - first[2] + first[0], bottom - first[3] + first[1], right, bottom])
        self.assert_within_reach(window, "lower right" + what)

    def resize(self, window, place):
        self.desktop.ask("resize", window.handle, place)

    def open_editor(self, window):
        window.tick(ids.IDC_GENERATE_URLS)
        window.click(ids.IDC_SCRIPT_FILE_BROWSE)
        return self.desktop.shown("Script Editor")

    def close(self, dialog):
        dialog.click(ids.IDCANCEL)
        dialog.is_gone()

    def assert_within_reach(self, window, when, is_maximised=False):
        """Checks that the window is in the work area, and its controls are inside it and apart; without the frame of a maximised one."""
        self.desktop.ask("send", window.handle, WM_NULL, 0, 0)  # returns once the controls are placed
        facts = window.now()
        inner = facts["client"]
        outer = inner if is_maximised else facts["place"]
        outside = [] if contains(self.area, outer) else [f"the window {outer}, outside {self.area}"]
        controls = [control for control in self.desktop.ask("children", window.handle)
                    if control["parent"] == window.handle]
        self.assertGreater(len(controls), 10, "The window has no controls.")
        outside += [f'{control["class"]} {control["id"]} {control["place"]}, outside {inner}' for control in controls
                    if not contains(inner, control["place"])]
        shown = [control for control in controls if control["shown"]]
        covered = [f'{one["id"]} and {other["id"]}' for one, other in itertools.combinations(shown, 2) if overlap(one, other)]
        if when in PICTURED or outside or covered:
            self.desktop.picture(f"{self.name}-{when.replace(', ', '-')}")
        self.assertEqual((outside, covered), ([], []), when)


if __name__ == "__main__":
    print(f"The {ARCH} programs", file=sys.stderr)
    unittest.main(verbosity=2)
