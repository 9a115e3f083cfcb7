#!/usr/bin/python3
"""Reads every window over AT-SPI as a screen reader does, and works it by keyboard alone.

Usage: read_windows.py PROGRAM ARGUMENT...     (within an X server and a session bus of its own: scripts/access)

Starting with the print window it opens, panel by panel, whatever a button with an ellipsis opens, reads it, walks
through it with the Tab key, and leaves it with Escape. One line per fault; exit code 1 with any.
"""
import os
import re
import subprocess
import sys
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

# What a person uses; each needs a name or a label, and a place in the tab order.
warnings.simplefilter("ignore", DeprecationWarning)
CONTROLS = {"push button", "toggle button", "check box", "radio button", "combo box", "text", "password text",
            "spin button", "slider", "dial", "list", "table", "tree", "tree table", "page tab list"}
# Reached through something else: the item of a group by arrows, what a list holds by the list.
BY_ARROWS = {"radio button", "page tab list", "page tab"}
# Buttons whose names end without an ellipsis although they open a dialog; known in English.
OPENERS = {"Add covers", "Add inserts", "Add exceptions"}
LETTERS = {}
SETTLE = 0.15
LAST_PANEL = 6
MOST_TABS = 90


def states(node):
    return node.get_state_set()


def has(node, state):
    return states(node).contains(state)


def is_showing(node):
    return has(node, Atspi.StateType.SHOWING) and has(node, Atspi.StateType.VISIBLE)


def descendants(node):
    """Showing ones, without what a combo box or a list holds."""
    for i in range(node.get_child_count()):
        child = node.get_child_at_index(i)
        if not child or not is_showing(child):
            continue
        yield child
        if child.get_role_name() not in ("combo box", "spin button", "list", "table", "tree", "tree table", "dial"):
            yield from descendants(child)


def label(node):
    for relation in node.get_relation_set():
        if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY:
            return " ".join(relation.get_target(i).get_name() for i in range(relation.get_n_targets()))
    return ""


def actions(node):
    return [Atspi.Action.get_action_name(node, i) for i in range(node.get_n_actions())]


def spoken(node):
    return label(node) or node.get_name() or node.get_description()


def without_letter(name):
    """Languages without an alphabet write the letter to press behind the name."""
    return re.sub(r"\([A-Z0-9]\)", "", name)


def letters(language):
    """The letters to press with Alt, by the keys of the texts they stand in."""
    found = {}
    for table in ("resources/KalmoFeatures.plugin/Contents/Resources/%s.lproj/Localizable.strings",
                  "resources/kalmo-print/%s.lproj/Window.strings"):
        for name in (language, "en"):
            if os.path.exists(table % name):
                text = open(table % name, encoding="utf-8").read()
                found |= {key: letter.lower() for key, letter in re.findall(r'^"(.*?)" = ".*?&(\w)', text, re.M)}
                break
    return found


class Program:
    def __init__(self, command):
        self.process = subprocess.Popen(command)
        self.focused = None
        listener = Atspi.EventListener.new(self.note_focus)
        listener.register("object:state-changed:focused")
        self.listener = listener
        self.application = self.wait_for(self.find_application, 20)
        if not self.application:
            sys.exit("The program does not show up on the accessibility bus.")
        self.main = self.wait_for(lambda: self.windows() and self.windows()[0], 20)
        self.settle(2)

    def note_focus(self, event):
        if event.detail1:
            self.focused = event.source

    def settle(self, seconds=SETTLE):
        context = GLib.MainContext.default()
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            while context.iteration(False):
                pass
            time.sleep(0.005)

    def wait_for(self, condition, seconds=3):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            found = condition()
            if found:
                return found
            self.settle(0.05)
        return None

    def find_application(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child and child.get_name() == "kalmo-print" and child.get_child_count():
                return child
        return None

    def windows(self):
        self.application.clear_cache()
        found = [self.application.get_child_at_index(i) for i in range(self.application.get_child_count())]
        return [w for w in found if w and is_showing(w)]

    def front(self):
        """The window that came last."""
        return self.windows()[-1]

    def press(self, *keys, settle=SETTLE):
        """Keys as xdotool names them; "@KEY" is Alt with the letter of the text under KEY."""
        for key in keys:
            if key.startswith("@"):
                key = "alt+" + LETTERS[key[1:]]
            subprocess.run(["xdotool", "key", "--clearmodifiers", key], check=True)
            self.settle(settle)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--delay", "30", text], check=True)
        self.settle()


class Reader:
    def __init__(self, program):
        self.program = program
        self.faults = []
        self.read = {}  # windows by the way to them: how many controls
        self.seen = {}
        self.chosen = set()

    def fault(self, where, what):
        line = f"{where}: {what}"
        if line not in self.faults:
            self.faults.append(line)
            print(line, flush=True)

    def read_window(self, where, window):
        """Names of all controls, and that the Tab key comes to each and back to the first."""
        if not window.get_name():
            self.fault(where, "the window has no title")
        wanted = {}
        for node in descendants(window):
            role = node.get_role_name()
            if role not in CONTROLS:
                continue
            if not spoken(node):
                self.fault(where, f"a {role} without a name")
            usable = has(node, Atspi.StateType.ENABLED) and has(node, Atspi.StateType.FOCUSABLE)
            if usable and role not in BY_ARROWS:
                wanted[self.key(node)] = f"{role} “{spoken(node)}”"
        # Arrows beside a field are the field's: its own arrow keys do what they do.
        fields = {f"spin button “{without_letter(spoken(n))}”" for n in descendants(window)
                  if n.get_role_name() == "text"}
        wanted = {k: w for k, w in wanted.items() if without_letter(w) not in fields}
        self.read[where] = max(self.read.get(where, 0), len(wanted))
        for missed in set(wanted) - self.walk(wanted):
            self.fault(where, f"the Tab key does not come to {wanted[missed]}")

    @staticmethod
    def key(node):
        return node.path if hasattr(node, "path") else hash(node)

    def walk(self, wanted):
        seen = set()
        for _ in range(MOST_TABS):
            self.program.press("Tab", settle=0.05)
            node = self.program.focused
            while node:  # an editor within a combo box stands for it
                if self.key(node) in wanted:
                    seen.add(self.key(node))
                    break
                node = node.get_parent()
            if seen >= set(wanted):
                break
        return seen

    def focus(self, wanted):
        """With the Tab key, as for somebody who only hears."""
        for _ in range(MOST_TABS):
            node = self.program.focused
            if node and has(node, Atspi.StateType.FOCUSED) and wanted(node):
                return True
            self.program.press("Tab", settle=0.05)
        return False

    def openers(self, window):
        """What opens further windows: (how, name, item). Buttons, and items of lists and menus, with an ellipsis."""
        found = []
        for node in descendants(window):
            if not has(node, Atspi.StateType.ENABLED):
                continue
            role, name = node.get_role_name(), node.get_name()
            if role == "push button" and "ShowMenu" in actions(node):
                found.append((self.open_from_menu, name, None))
            elif role == "push button" and (name.endswith("…") or name in OPENERS):
                found.append((self.open_by_button, name, None))
            elif role == "combo box":
                found += [(self.open_from_list, spoken(node), item) for item in self.items(node) if item.endswith("…")]
        return found

    @staticmethod
    def items(combo):
        lists = [combo.get_child_at_index(i) for i in range(combo.get_child_count())]
        return [l.get_child_at_index(i).get_name() for l in lists if l and l.get_role_name() == "list"
                for i in range(l.get_child_count())]

    def open_by_button(self, name, _):
        return self.focus(lambda n: n.get_name() == name) and not self.program.press("space")

    def open_from_list(self, name, item):
        if not self.focus(lambda n: n.get_role_name() == "combo box" and spoken(n) == name):
            return False
        place = self.items(self.program.focused).index(item)
        self.program.press("F4", "Home", *["Down"] * place, "Return", settle=0.2)
        return True

    def open_from_menu(self, name, _):
        """Reads the menu; its first item with an ellipsis that was not read before is chosen."""
        if not self.focus(lambda n: n.get_name() == name):
            return False
        self.program.press("space", settle=0.3)
        for _ in range(30):
            self.program.press("Down", settle=0.08)
            item = self.program.focused
            text = item.get_name() if item and "menu" in item.get_role_name() else ""
            if text.endswith("…") and text not in self.chosen:
                self.chosen.add(text)
                self.program.press("Return")
                return True
        self.program.press("Escape")
        return None  # nothing more in it

    def explore(self, where, window, depth=0):
        """The window, each page of it that stands behind a tab, and what they open."""
        self.explore_page(where, window, depth)
        tabs = next((n for n in descendants(window) if n.get_role_name() == "page tab list"), None)
        children = [tabs.get_child_at_index(i) for i in range(tabs.get_child_count())] if tabs else []
        for page in range(1, sum(child.get_role_name() == "page tab" for child in children)):
            if not self.focus(lambda n: n.get_role_name() in ("page tab", "page tab list")):
                self.fault(where, "the Tab key does not come to the tabs")
                return
            self.program.press("Right", settle=0.3)
            self.explore_page(f"{where}, page {page + 1}", window, depth)

    def explore_page(self, where, window, depth):
        self.read_window(where, window)
        if depth == 3:
            return
        waiting = self.openers(window)
        while waiting:
            opener, name, item = waiting.pop(0)
            path = f"{where} > {item or name}"
            if (path in self.read and opener != self.open_from_menu) or (depth == 0 and self.is_main(name, item, where)):
                continue
            before = len(self.program.windows())
            done = opener(name, item)
            if done is None:
                continue
            if not done:
                self.fault(where, f"“{name}” cannot be focused")
                continue
            if not self.program.wait_for(lambda: len(self.program.windows()) > before):
                self.fault(where, f"“{item or name}” opens nothing")
                continue
            self.program.settle(0.4)
            front = self.program.front()
            if opener == self.open_from_menu:
                waiting.insert(0, (opener, name, item))
                path = f"{where} > {name} > {front.get_name()}"
            if self.is_chooser(front):
                self.read[path] = 0  # the toolkit's own
            else:
                self.explore(path, front, depth + 1)
            self.leave(path, before)

    def is_main(self, name, item, where):
        """What stands beside every panel is opened from the first alone."""
        key = (name, item)
        return self.seen.setdefault(key, where) != where

    @staticmethod
    def is_chooser(window):
        return any(n.get_role_name() == "table" and n.get_name() == "Files" for n in descendants(window)) or \
            any("lookIn" in (n.get_name() or "") for n in descendants(window))

    def leave(self, path, before):
        for _ in range(3):
            if len(self.program.windows()) <= before:
                return
            self.program.press("Escape", settle=0.4)
        self.fault(path, "Escape does not close it")
        sys.exit(1)


def choose_panel(program, number):
    program.press("@Panel Selector Label", "Home", *["Down"] * number, "Return", settle=0.25)
    program.settle(0.4)


def job_types(reader, program):
    """Each type of job has a dialog of its own behind one button."""
    for number in range(1, 6):
        choose_panel(program, 0)
        program.press("@Job Type Label", "Home", *["Down"] * number, "Return", settle=0.25)
        program.settle(0.4)
        if len(program.windows()) == 1:  # else choosing it has opened its dialog
            program.press("Tab", "space", settle=0.4)
        if len(program.windows()) > 1:
            front = program.front()
            reader.explore(f"job type {number} > {front.get_name()}", front, 1)
            reader.leave(front.get_name(), 1)


def faulty_fields(reader, program):
    """After an error the focus is on the field, and the message is what is read out with it."""
    choose_panel(program, 0)
    program.press("@Range", settle=0.3)
    said_before = program.focused.get_description()
    program.type("99")
    program.press("Return", settle=0.4)
    expect_fault(reader, program, "page range", said_before)
    program.press("ctrl+a", "BackSpace", "1", settle=0.2)

    program.press("@Job Type Label", "Home", "Down", "Return", settle=0.4)  # secure print
    program.type("1234")
    program.press("Tab")
    program.type("9999")
    program.press("Return", settle=0.5)
    program.press("Return", settle=0.5)  # the notice
    expect_fault(reader, program, "passcode", "")
    reader.leave("secure print", 1)


def printer_list(reader, program):
    """It opens by the key for lists; what has the focus then has a name, and Escape leaves it."""
    program.press("@Printer:", settle=0.3)
    closed = program.focused
    program.press("F4", settle=0.6)
    node = program.focused
    if Reader.key(node) == Reader.key(closed) or not spoken(node):
        reader.fault("list of printers", f"it does not open: {node.get_role_name()} “{spoken(node)}”")
    else:
        print(f"list of printers: {node.get_role_name()} “{spoken(node)}”")
    program.press("Escape", settle=0.3)


def conflict(reader, program):
    """What does not go together is said, and the first way out has the focus."""
    choose_panel(program, 0)
    program.press("@Job Type Label", "Home", "Return", settle=0.4)
    program.press("@Print", settle=1.5)
    node = program.focused
    if not node or node.get_role_name() != "push button" or not node.get_description():
        reader.fault("conflict", "the focus is not on a button that says what does not go together")
    else:
        print(f"conflict: “{node.get_name()}”, “{node.get_description()}”")
    reader.read_window("conflict", program.front())


def expect_fault(reader, program, where, said_before):
    node = program.focused
    if not node or node.get_role_name() not in ("text", "password text"):
        reader.fault(where, "the focus is not on the field that is wrong")
    elif node.get_description() in ("", said_before):
        reader.fault(where, "the field does not say what is wrong")
    else:
        print(f"{where}: “{node.get_description()}”")


def main():
    LETTERS.update(letters(os.environ.get("LANGUAGE", "en")))
    program = Program(sys.argv[1:])
    reader = Reader(program)
    try:
        for number in range(LAST_PANEL):
            choose_panel(program, number)
            reader.explore(f"panel {number + 1}", program.front())
        job_types(reader, program)
        faulty_fields(reader, program)
        printer_list(reader, program)
        conflict(reader, program)
    finally:
        program.process.terminate()
    for path, controls in reader.read.items():
        print(f"{controls:4} {path}")
    print(f"{len(reader.read)} windows and panels read, {sum(reader.read.values())} controls, "
          f"{len(reader.faults)} faults")
    sys.exit(1 if reader.faults else 0)


if __name__ == "__main__":
    main()
