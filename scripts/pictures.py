#!/usr/bin/python3
"""Takes the documentation's pictures of the running program again, or others of a scaled screen.

    scripts/pictures.py                      into docs, at 100 %, and one of them at 150 %
    scripts/pictures.py --scale 150 FOLDER   into that folder, on a screen of 150 %

Needs the build windows-x64.
"""

import argparse
import shutil
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests/journeys"))

from scheduler import DEMO, Steps, ids, installed  # noqa: E402
from window import HTCAPTION, HTRIGHT  # noqa: E402
from wine import ROOT, Display, until  # noqa: E402

DOCS = ROOT / "docs"


def sample_list():
    """Returns the tasks of the README's picture: one repeats, one waits, one runs on two days, one has failed."""
    now, day = int(time.time()), 24 * 60 * 60
    return [
        (f'"{DEMO}\\prices.scvpr" -dt -dr -at"{DEMO}\\urls.csv" -s -qe"{DEMO}\\prices.csv" -ex',
         {"StartTime": now - day, "LastRunTime": now - 1500, "EnableEvery": 1, "EveryValue": 60,
          "LastRunResult": "Success"}),
        (f'"{DEMO}\\new books.scvpr" -rt -rs -qe -ex', {"StartTime": now + 7200}),
        (f'"{DEMO}\\news.scvpr" -dr -gt"{DEMO}\\news.vbs" -s -qe -ex',
         {"StartTime": now - 2 * day, "LastRunTime": now - day - 300, "RepeatOnMon": 1, "RepeatOnThu": 1,
          "LastRunResult": "Success"}),
        (f'"{DEMO}\\old shop.scvpr" -s -qe -ex',
         {"StartTime": now - 7200, "LastRunTime": now - 7100, "LastRunResult": "Failure: File does not exist"}),
    ]


class Photographer(Steps):

    def __init__(self, folder, scale):
        self.folder = folder
        self.scale = scale
        self.display = Display(1280 * scale // 100, 900 * scale // 100)
        self.wine, self.desktop, self.scheduler = installed("pictures", self.display, folder, dpi=96 * scale // 100)

    def take(self, place, name, hides_mouse=True):
        """Saves a part of the screen as NAME.png."""
        left, top, right, bottom = place
        if hides_mouse:
            self.desktop.xdotool("mousemove", 2, 2)
        self.desktop.paint()
        subprocess.run(["import", "-window", "root", "-crop", f"{right - left}x{bottom - top}+{left}+{top}", "+repage",
                        self.folder / f"{name}.png"], check=True)
        print(self.folder / f"{name}.png")

    def first_window(self, name):
        process, window = self.start()
        self.add_project(window, "prices")
        self.take(window.place, name)
        return process, window

    def first_project(self):
        process, window = self.first_window("guide-first")
        self.hide(window)
        menu = self.desktop.tray_menu()
        left, top, right, bottom = menu["place"]
        self.take((self.display.width - 240 * self.scale // 100, top - 10, self.display.width, self.display.height),
                  "guide-tray")
        self.desktop.close_tray_menu()
        self.desktop.choose_exit_in_tray_menu()
        self.ends(process)

    def full_list(self):
        self.scheduler.write_list(*sample_list())
        _, window = self.start()
        self.select(window, 0)
        window.tick(ids.IDC_GENERATE_URLS)
        window.click(ids.IDC_SCRIPT_FILE_BROWSE)
        editor = self.make_left_script()
        self.take(editor.place, "script-editor")
        # Wine paints the caption of the program's first window as inactive until another window was in front.
        editor.click(ids.IDCANCEL)
        editor.is_gone()
        self.select(window, 3)
        self.take(window.place, "window")
        self.select(window, 1)
        self.desktop.xdotool("mousemove_relative", 3, 0)
        tip = until("what is known of the row is shown", lambda: self.desktop.of_class("tooltips_class32"))
        self.take([*window.place[:2], max(tip["place"][2], window.place[0] + 540 * self.scale // 100),
                   tip["place"][3] + 60], "guide-hover", hides_mouse=False)
        self.scheduler.end_all()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--scale", type=int, default=100, help="of the screen, in per cent")
    parser.add_argument("folder", nargs="?", default=DOCS, type=Path)
    arguments = parser.parse_args()
    photographer = Photographer(arguments.folder, arguments.scale)
    photographer.first_project()
    photographer.full_list()
    if arguments.folder == DOCS:
        Photographer(DOCS, 150).first_window("guide-scaled")


if __name__ == "__main__":
    main()
