"""A program whose windows and accessible objects are what a test says; see accessible_target/."""

import json
import subprocess

from desktop import next_line
from session import BUILD

PUSH_BUTTON, FRAME, PANEL, TEXT, LABEL, SLIDER, PASSWORD, STATIC = 43, 23, 39, 61, 29, 51, 40, 116
PAGE_TAB, PAGE_TAB_LIST, COMBO_BOX, MENU, MENU_ITEM, TABLE_CELL = 37, 38, 11, 33, 35, 56
LIST, LIST_ITEM, POPUP_MENU, WINDOW = 31, 32, 41, 69
MULTI_LINE = 17


class AccessibleTarget:
    def __init__(self, desktop, *toolkits):
        self.program = desktop.start(BUILD / "pointalk_accessible_target", *toolkits, stdin=subprocess.PIPE,
                                     stdout=subprocess.PIPE)
        assert next_line(self.program.stdout) == b"ready"

    def tell(self, **words):
        self.program.stdin.write(json.dumps(words).encode("ascii") + b"\n")
        self.program.stdin.flush()
        assert next_line(self.program.stdout) == b"ok"

    def show_window(self, name, rectangle, title="", program=0, **more):
        """A window with a frame that other objects are put into."""
        self.tell(id=name, rectangle=rectangle, role=FRAME, name=title, program=program)
        self.tell(window=name, rectangle=rectangle, title=title, **more)

    def show_other(self, kind, rectangle):
        """A window above the others that is none like them."""
        self.tell(window=kind, kind=kind, rectangle=rectangle)

    def show_pop_up(self, rectangle):
        """As menus and lists have it while they are open."""
        self.show_other("pop-up", rectangle)

    def put(self, known_as, rectangle, role=PUSH_BUTTON, parent="frame", **more):
        """An object; what it may have is told in accessible_target/objects.h."""
        self.tell(id=known_as, rectangle=rectangle, role=role, parent=parent, **more)
