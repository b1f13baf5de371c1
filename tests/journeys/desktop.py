"""Mouse and keyboard for the windows of a Wine desktop.

Every position on the screen is computed from a control, found by its id. Every step waits until its effect can be
seen: the mark of a check box, the text of a control, the new place of a window.
"""

import ctypes
import json
import re
import subprocess

from window import Window, middle
from wine import ROOT, until

def resource_ids():
    """Returns the ids of the program's resource headers, by name."""
    ids = {"IDOK": 1, "IDCANCEL": 2}
    for folder in ("ui", "script"):
        for header in sorted((ROOT / folder).rglob("resource.h")):
            ids |= {name: int(value) for name, value in re.findall(r"#define (\w+) (\d+)", header.read_text())}
    return ids


class Screen:
    """The X server's windows below the mouse and its focus. They change a little later than Wine's own."""

    def __init__(self):
        self._x11 = ctypes.CDLL("libX11.so.6")
        self._x11.XOpenDisplay.restype = ctypes.c_void_p
        self._x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self._display = ctypes.c_void_p(self._x11.XOpenDisplay(None))

    def windows(self):
        """Returns the ids of the X windows below the mouse, from the outermost to the innermost."""
        found, window = [], self._x11.XDefaultRootWindow(self._display)
        while window:
            root, child = ctypes.c_ulong(), ctypes.c_ulong()
            rest = [ctypes.c_int() for _ in range(4)] + [ctypes.c_uint()]
            self._x11.XQueryPointer(self._display, ctypes.c_ulong(window), ctypes.byref(root), ctypes.byref(child),
                                    *map(ctypes.byref, rest))
            window = child.value
            found.append(window)
        return found

    def focus(self):
        """Returns the id of the X window that gets the keys."""
        window, revert = ctypes.c_ulong(), ctypes.c_int()
        self._x11.XGetInputFocus(self._display, ctypes.byref(window), ctypes.byref(revert))
        return window.value

    def close(self):
        self._x11.XCloseDisplay(self._display)


class Desktop:
    """The screen, the mouse and the keyboard of a Wine prefix, and its windows."""

    def __init__(self, wine, pictures):
        self.wine = wine
        self.pictures = pictures
        pictures.mkdir(parents=True, exist_ok=True)
        # The format (see struct) of a pointer in a structure of these programs, with the padding before it.
        self.pointer = {"x64": "4xQ", "x86": "I"}[wine.arch]
        self._screen = Screen()
        self._start_helper()

    def _start_helper(self):
        self._helper = self.wine.start(ROOT / f"build/windows-{self.wine.arch}/tests/window.exe", text=True,
                                       stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def ask(self, *request):
        """Returns the reply of tests/journeys/Window.cpp to a request."""
        self._helper.stdin.write(json.dumps(request) + "\n")
        self._helper.stdin.flush()
        return json.loads(self._helper.stdout.readline())

    def stop(self):
        self._helper.stdin.close()
        self._helper.wait()
        self._helper.stdout.close()
        self._screen.close()

    # --- Mouse and keyboard -----------------------------------------------------------------------------------------

    def xdotool(self, *words):
        subprocess.run(["xdotool", *map(str, words)], check=True)

    def move_to(self, window, point):
        """Moves the mouse to a point of a top-level window, and waits until that window is below it."""
        self.xdotool("mousemove", *point)
        until(f'"{window["title"] or window["class"]}" is at {point}', lambda: window["x11"] in self._screen.windows())

    def x11_focus(self):
        """Returns the id of the X window that gets the keys."""
        return self._screen.focus()

    def click_at(self, window, point, button=1, times=1):
        self.move_to(window, point)
        self.xdotool("click", "--repeat", times, "--delay", 60, button)

    def keys(self, *names):
        self.xdotool("key", *names)

    def picture(self, name):
        """Keeps the screen as NAME.png."""
        self.paint()
        subprocess.run(["import", "-window", "root", self.pictures / f"{name}.png"], check=True)

    def paint(self):
        """Makes all shown windows paint what they have not painted yet."""
        for window in self.ask("windows"):
            if window["shown"]:
                self.ask("paint", window["handle"])

    # --- Windows ----------------------------------------------------------------------------------------------------

    def windows(self, title):
        """Returns the windows with a title, the topmost first. A title that ends in * is a prefix."""
        def fits(found):
            return found.startswith(title[:-1]) if title.endswith("*") else found == title
        return [Window(self, facts) for facts in self.ask("windows") if fits(facts["title"])]

    def shown(self, title):
        """Waits until a window with this title is shown, and returns it."""
        return until(f'window "{title}" is shown',
                     lambda: next((window for window in self.windows(title) if window.facts["shown"]), None))

    def hidden(self, title):
        """Waits until a window with this title exists and none is shown, and returns it."""
        def one():
            windows = self.windows(title)
            return windows[0] if windows and not any(window.facts["shown"] for window in windows) else None
        return until(f'window "{title}" is hidden', one)

    def gone(self, title):
        until(f'window "{title}" is gone', lambda: not self.windows(title))

    def choose_file(self, title, path):
        """Waits for the file dialog with this title and types a path into it."""
        dialog = self.shown(title)
        dialog.type_into_focus(path)
        self.keys("Return")
        dialog.is_gone()

    # --- The notification area --------------------------------------------------------------------------------------

    def click_tray(self, button=1, times=1):
        """Clicks the last icon in the notification area, which is the square at the right end of the task bar."""
        bar = until("there is a task bar", lambda: self.of_class("Shell_TrayWnd"))
        left, top, right, bottom = bar["place"]
        self.click_at(bar, middle((right - (bottom - top), top, right, bottom)), button, times)

    def choose_in_task_bar(self, window):
        """Brings a window and its message box in front of the others."""
        bar = self.of_class("Shell_TrayWnd")
        button = until(f'"{window.facts["title"]}" is in the task bar', lambda: next(
            (facts for facts in self.ask("children", bar["handle"]) if facts["id"] == window.handle and facts["shown"]),
            None))
        self.click_at(bar, middle(button["place"]))

    def of_class(self, name):
        """Returns the shown top-level window of a class, or None."""
        return next((window for window in self.ask("windows") if window["class"] == name and window["shown"]), None)

    def tray_menu(self):
        """Opens the icon's menu and returns its window."""
        self.click_tray(button=3)

        def menu():
            found = self.of_class("#32768")
            return found if found and found["place"] != [0, 0, 0, 0] else None  # it is shown before it has a place
        return until("the icon's menu is shown", menu)

    def choose_exit_in_tray_menu(self):
        # Not by a key: on this display the menu of a hidden window gets none. "Exit" is the lower one of two entries.
        menu = self.tray_menu()
        left, top, right, bottom = menu["place"]
        self.click_at(menu, middle((left, (top + bottom) // 2, right, bottom)))
        self.menu_is_gone()

    def close_tray_menu(self):
        """Clicks beside the menu, which closes it."""
        bar = self.of_class("Shell_TrayWnd")
        self.click_at(bar, middle(bar["place"]))
        self.menu_is_gone()

    def menu_is_gone(self):
        until("the menu is gone", lambda: not self.of_class("#32768"))
