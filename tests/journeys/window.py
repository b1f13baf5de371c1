"""A window on a Wine desktop, and a user's steps with its controls, lists and frame."""

import struct

from wine import until

# Messages and their constants from the system's headers.
WM_SETTEXT = 0xC
WM_NCHITTEST, HTCAPTION, HTRIGHT = 0x84, 2, 11
BM_GETCHECK = 0xF0
LB_GETITEMRECT, LB_FINDSTRINGEXACT = 0x198, 0x1A2
CB_GETCURSEL, CB_FINDSTRINGEXACT = 0x147, 0x158
LVM_GETITEMCOUNT, LVM_GETNEXTITEM, LVM_GETITEMRECT, LVM_GETHEADER = 0x1004, 0x100C, 0x100E, 0x101F
LVM_GETSELECTEDCOUNT, LVM_GETITEMTEXTW, LVNI_SELECTED, LVIR_LABEL = 0x1032, 0x1073, 2, 2
HDM_GETITEMRECT = 0x1207
TVM_GETITEMRECT, TVM_GETNEXTITEM, TVM_HITTEST, TVM_GETITEMSTATE = 0x1104, 0x110A, 0x1111, 0x1127
TVGN_ROOT, TVGN_NEXT, TVHT_ONITEMSTATEICON, TVIS_STATEIMAGEMASK = 0, 1, 0x40, 0xF000
EDIT_CLASSES = ("Edit", "RICHEDIT50W", "RichEdit20W")


def middle(place):
    left, top, right, bottom = place
    return (left + right) // 2, (top + bottom) // 2


class Window:
    """A top-level window, identified by its handle, so that its title may change."""

    def __init__(self, desktop, facts):
        self.desktop = desktop
        self.facts = facts
        self.handle = facts["handle"]

    def now(self):
        """Returns the window's present facts, None when it is gone."""
        return next((facts for facts in self.desktop.ask("windows") if facts["handle"] == self.handle), None)

    @property
    def place(self):
        return self.now()["place"]

    def is_shown(self):
        until("the window is shown", lambda: self.now()["shown"])

    def is_hidden(self):
        until("the window is hidden", lambda: not self.now()["shown"])

    def is_gone(self):
        until("the window is gone", lambda: not self.now())

    def rename(self, title):
        self.desktop.ask("fill", self.handle, WM_SETTEXT, 0, list((title + "\0").encode("utf-16-le")), None, 0)

    def has_keyboard(self):
        """Waits until this window has the keyboard focus, and returns the handle of the control that has it.

        Under load Wine sometimes changes its foreground window while the X server's focus stays on the previous one. A
        window manager would then set that focus. Here there is none, so this function does it after a while.
        """
        state = {"behind": 0}

        def focus():
            state.update(foreground=self.desktop.ask("foreground"), x11=self.desktop.x11_focus())
            if not state["foreground"] or state["foreground"]["window"] != self.handle:
                return None
            if state["x11"] == self.facts["x11"]:
                return state["foreground"]["focus"]
            state["behind"] += 1
            if state["behind"] % 40 == 0:
                self.desktop.xdotool("windowfocus", self.facts["x11"])
            return None
        try:
            return until(f'"{self.facts["title"]}" has the keyboard', focus)
        except AssertionError as error:
            raise AssertionError(f"{error}: {self.facts} beside {state}") from None

    def activate(self):
        """Clicks the window's caption. For a window that another program has shown without giving it the focus."""
        self.desktop.click_at(self.facts, self.find_part(HTCAPTION))
        self.has_keyboard()

    def press(self, *names):
        """Presses keys such as alt+a in this window. The caller waits for their effect."""
        self.has_keyboard()
        self.desktop.keys(*names)

    def type_into_focus(self, text):
        """Replaces the text of the field that has the focus, by typing."""
        def edit():
            focus = self.has_keyboard()
            return next((facts for facts in self.desktop.ask("children", self.handle)
                         if facts["handle"] == focus and facts["class"] in EDIT_CLASSES), None)
        control = until("a field has the keyboard", edit)
        self.desktop.keys("ctrl+a")
        self.desktop.xdotool("type", "--delay", 10, text)
        until(f"the field says {text}", lambda: self.desktop.ask("text", control["handle"]) == text)

    # --- Controls ---------------------------------------------------------------------------------------------------

    def item(self, number):
        """Waits until the control of this id is shown and enabled, and returns it."""
        def usable():
            return next((facts for facts in self.desktop.ask("children", self.handle)
                         if facts["parent"] == self.handle and facts["id"] == number and facts["shown"] and
                         facts["enabled"]), None)
        return until(f'control {number} in "{self.facts["title"]}" can be used', usable)

    def inner(self, number):
        """Waits until the control of this id is shown on a page of the window, and returns it."""
        return until(f'a page of "{self.facts["title"]}" has control {number}', lambda: next(
            (facts for facts in self.desktop.ask("children", self.handle) if facts["id"] == number and facts["shown"]),
            None))

    def says(self, text):
        """Waits until an enabled control shows this text."""
        until(f'"{self.facts["title"]}" says "{text}"', lambda: any(
            facts["title"] == text and facts["shown"] and facts["enabled"]
            for facts in self.desktop.ask("children", self.handle)))

    def send(self, control, message, first=0, second=0):
        return self.desktop.ask("send", control["handle"], message, first, second)

    def fill(self, control, message, first, layout, *values, text_at=None):
        """Sends a message with a structure (layout as in the struct module). Returns the result and the structure's values.

        text_at is the offset of a pointer: it is set to a buffer for 260 characters behind the structure, and the
        buffer's text is returned as the last value.
        """
        size = struct.calcsize("<" + layout)
        block = struct.pack("<" + layout, *values) + bytes(0 if text_at is None else 520)
        reply = self.desktop.ask("fill", control["handle"], message, first, list(block), text_at, size)
        filled = bytes(reply["bytes"])
        found = list(struct.unpack("<" + layout, filled[:size]))
        if text_at is not None:
            found.append(filled[size:].decode("utf-16-le").split("\0")[0])
        return reply["result"], found

    def text(self, number):
        return self.desktop.ask("text", self.item(number)["handle"])

    def click(self, number, button=1):
        """Clicks into the middle of a control. The caller waits for the effect."""
        self.desktop.click_at(self.facts, middle(self.item(number)["place"]), button)

    def tick(self, number):
        """Clicks a check box and waits for its mark to change."""
        control = self.item(number)
        before = self.send(control, BM_GETCHECK)
        self.desktop.click_at(self.facts, middle(control["place"]))
        until(f"box {number} changes", lambda: self.send(control, BM_GETCHECK) != before)

    def type(self, number, text):
        """Clicks a field, replaces its text by typing, and waits until it shows the new text."""
        control = self.item(number)
        # A drop-down list contains its field.
        fields = [control, *self.desktop.ask("children", control["handle"])]
        self.desktop.click_at(self.facts, middle(control["place"]))
        until(f"field {number} has the keyboard",
              lambda: self.has_keyboard() in [field["handle"] for field in fields])
        self.type_into_focus(text)

    def on_screen(self, control, place):
        """Converts a rectangle of a control's client area to screen coordinates in pixels."""
        x, y = control["origin"]
        left, top, right, bottom = place
        return left + x, top + y, right + x, bottom + y

    # --- Lists ------------------------------------------------------------------------------------------------------

    def rows(self, number):
        """Returns the texts of a list view's first column."""
        control = self.item(number)
        layout = "IiiII" + self.desktop.pointer + "i"
        text_at = struct.calcsize("<IiiII" + self.desktop.pointer) - struct.calcsize("<" + self.desktop.pointer[-1])
        return [self.fill(control, LVM_GETITEMTEXTW, row, layout, 0, 0, 0, 0, 0, 0, 260, text_at=text_at)[1][-1]
                for row in range(self.send(control, LVM_GETITEMCOUNT))]

    def select_row(self, number, row):
        """Clicks the text of a row of a list view, counted from 0, and waits until only this row is selected."""
        control = self.item(number)
        place = self.on_screen(control, self.fill(control, LVM_GETITEMRECT, row, "4i", LVIR_LABEL, 0, 0, 0)[1])
        left, top, right, bottom = place
        self.desktop.click_at(self.facts, middle((left, top, min(right, control["place"][2]), bottom)))
        until(f"row {row} is selected", lambda: self.selected(number) == 1 and
              self.send(control, LVM_GETNEXTITEM, -1 & 0xFFFFFFFF, LVNI_SELECTED) == row)

    def selected(self, number):
        return self.send(self.item(number), LVM_GETSELECTEDCOUNT)

    def click_header(self, number, column):
        """Clicks the header of a list view's column. The caller waits for the effect."""
        header = self.send(self.item(number), LVM_GETHEADER)
        control = next(facts for facts in self.desktop.ask("children", self.handle) if facts["handle"] == header)
        self.desktop.click_at(self.facts, middle(self.on_screen(control, self.fill(control, HDM_GETITEMRECT, column, "4i", 0, 0, 0,
                                                                         0)[1])))

    def choose(self, number, entry):
        """Chooses an entry of the drop-down list that has the focus, with the arrow keys."""
        control = self.item(number)
        index = self.find(control, CB_FINDSTRINGEXACT, entry)
        until(f"list {number} has the keyboard", lambda: self.has_keyboard() == control["handle"])
        while (current := self.send(control, CB_GETCURSEL)) != index:
            self.desktop.keys("Down" if current < index else "Up")
            until("the choice changes", lambda: self.send(control, CB_GETCURSEL) != current)

    def find(self, control, message, entry):
        """Returns the index of an entry of a list, by LB_FINDSTRINGEXACT or CB_FINDSTRINGEXACT."""
        text = (entry + "\0").encode("utf-16-le")
        index, _ = self.fill(control, message, -1 & 0xFFFFFFFF, f"{len(text)}s", text)
        if index < 0:
            raise AssertionError(f"There is no entry {entry} in control {control['id']}.")
        return index

    def double_click_entry(self, number, entry):
        """Double-clicks an entry of a list box that shows it."""
        control = self.item(number)
        index = until(f"list {number} has entries", lambda: self.find(control, LB_FINDSTRINGEXACT, entry))
        place = self.on_screen(control, self.fill(control, LB_GETITEMRECT, index, "4i", 0, 0, 0, 0)[1])
        self.desktop.click_at(self.facts, middle(place), times=2)

    def tick_tree(self, number, row):
        """Clicks the box before a row, counted from 0, of a tree on a page, and waits for its mark to change."""
        control = self.inner(number)
        entry = self.send(control, TVM_GETNEXTITEM, TVGN_ROOT)
        for _ in range(row):
            entry = self.send(control, TVM_GETNEXTITEM, TVGN_NEXT, entry)

        def state():
            return self.send(control, TVM_GETITEMSTATE, entry, TVIS_STATEIMAGEMASK) & TVIS_STATEIMAGEMASK

        handle = struct.pack("<Q", entry)
        _, place = self.fill(control, TVM_GETITEMRECT, 0, "4i", *struct.unpack("<2i", handle), 0, 0)
        left, top, right, bottom = place
        y = (top + bottom) // 2
        x = next(x for x in range(left, right) if
                 self.fill(control, TVM_HITTEST, 0, "2iI" + self.desktop.pointer, x, y, 0, 0)[1][2] == TVHT_ONITEMSTATEICON)
        before = state()
        self.desktop.click_at(self.facts, (x + 6 + control["origin"][0], y + control["origin"][1]))
        until(f"the box of row {row} changes", lambda: state() != before)

    # --- The frame --------------------------------------------------------------------------------------------------

    def drag(self, part, x, y):
        """Drags a part of the window's frame (HTCAPTION, HTRIGHT) by x, y pixels and waits until the window has followed."""
        left, top, right, bottom = before = self.place
        start = self.find_part(part)
        self.desktop.move_to(self.facts, start)
        self.desktop.xdotool("mousedown", 1)
        until("the window's frame is held", lambda: self.desktop.ask("foreground")["moving"])
        # In two steps: of two quick moves the system may see only the last one, while the drag is still beginning.
        for dx, dy in ((x // 2, y // 2), (x, y)):
            goal = start[0] + dx, start[1] + dy
            wanted = [left, top, right + dx, bottom] if part == HTRIGHT else [left + dx, top + dy, right + dx, bottom + dy]

            def has_followed(goal=goal, wanted=wanted):
                # Again and again, from the pixel beside the goal: under load a single move can get lost.
                self.desktop.xdotool("mousemove", goal[0] - 1, goal[1], "mousemove", *goal)
                return self.place == wanted
            until(f"the window has gone from {before} to {wanted}", has_followed)
        self.desktop.xdotool("mouseup", 1)
        until("the window's frame is let go", lambda: not self.desktop.ask("foreground")["moving"])

    def find_part(self, part):
        """Returns a point of a part of the frame, in the middle of its side."""
        left, top, right, bottom = self.place
        column = [((left + right) // 2, y) for y in range(top, bottom)]
        row = [(x, (top + bottom) // 2) for x in range(right - 1, left, -1)]
        return next(point for point in (row if part == HTRIGHT else column) if self.hit(*point) == part)

    def hit(self, x, y):
        """Returns which part of the window is at a point of the screen, as WM_NCHITTEST does."""
        return self.desktop.ask("send", self.handle, WM_NCHITTEST, 0, (y & 0xFFFF) << 16 | (x & 0xFFFF))
