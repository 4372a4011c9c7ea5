"""Programs that come with Wine, which nobody here wrote: their texts, lists, trees and controls."""

import itertools
import re
import subprocess

from harness import now, wait_until
from listening import QUICK, SOON, Listening, again_where_late

LINES = ("Woven quick fox", "Must walk over", "", "When lazy dogs", "Do sleep")
# With what is said of them.
FILES = {"Alpha notes.txt": "Alpha notes dot txt", "Beta plan.txt": "Beta plan dot txt", "Gamma list.txt": "Gamma list dot txt"}
VALUES = ("Apple", "Banana", "Cherry")
KEYS = r"""[HKEY_CURRENT_USER\Software\AReading]
"Apple"="red"
"Banana"="yellow"
"Cherry"="dark"

[HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Applets\Regedit]
"LastKey"="HKEY_CURRENT_USER\\Software\\AReading"

"""
WORDPAD = r"C:\Program Files\Windows NT\Accessories\wordpad.exe"

# Each program's command, its window's class and title, and where it is put.
PROGRAMS = {
    "notepad": (("notepad", r"C:\reading.txt"), "Notepad", "", (10, 10, 400, 200)),
    "wordpad": ((WORDPAD, r"C:\reading.txt"), "WORDPADTOP", "", (410, 10, 1010, 260)),
    "regedit": (("regedit",), "RegEdit_RegEdit", "", (10, 210, 500, 450)),
    "explorer": (("explorer", r"C:\reading"), "ExplorerWClass", "", (510, 270, 1010, 500)),
    "winefile": (("winefile", r"C:\reading"), "WFS_Frame", "", (10, 460, 400, 730)),
    "taskmgr": (("taskmgr",), "#32770", "Task Manager", (410, 510, 700, 760)),
    "winecfg": (("winecfg",), "#32770", "Wine configuration", (560, 280, 1000, 740)),
}
STARTS = 4  # of a program that does not do its work
POSITION = 0xD6  # EM_POSFROMCHAR with the character's number: x and y in one


class WinePrograms(Listening):
    environment = QUICK
    away = (1015, 5)

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        (cls.desktop.drive() / "reading.txt").write_bytes("\r\n".join(LINES).encode("ascii"))
        (cls.desktop.drive() / "reading").mkdir()
        for name in FILES:
            (cls.desktop.drive() / "reading" / name).write_bytes(b"")
        cls.desktop.import_keys(KEYS)
        cls.probe = cls.enterClassContext(cls.desktop.probe())
        cls.processes = {name: cls.started(name) for name in PROGRAMS}
        cls.windows = {name: cls.put(name) for name in PROGRAMS}

    @classmethod
    def started(cls, name):
        command, *_ = PROGRAMS[name]
        process = subprocess.Popen(["wine", *command], env=cls.desktop.environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        cls.addClassCleanup(process.wait, 10)
        cls.addClassCleanup(process.kill)
        return process

    @classmethod
    def find(cls, name):
        _, class_name, title, _ = PROGRAMS[name]
        return next((window for window in cls.probe.ask("windows")["windows"]
                     if window["class"] == class_name and title in window["title"]), None)

    @classmethod
    def put(cls, name):
        """Waits for a program's top-level window and puts it in its place."""
        *_, rect = PROGRAMS[name]
        window = wait_until(lambda: cls.find(name), 200, f"a window of {name}")
        cls.probe.ask("place", window["hwnd"], rect)
        wait_until(lambda: cls.find(name)["rect"][:2] == list(rect[:2]), 100, f"{name} is where it was put")
        return window

    def start_anew(self, name):
        self.processes[name].kill()
        self.processes[name].wait(10)
        wait_until(lambda: not self.find(name), SOON, f"the window of {name} is gone")
        self.processes[name] = self.started(name)
        self.windows[name] = self.put(name)

    def setUp(self):
        self.leave()

    def child(self, program, class_name, title="", number=0):
        """A visible window in the program's window; the number-th of several."""
        def find():
            found = [window for window in self.probe.ask("windows", self.windows[program]["hwnd"])["windows"]
                     if window["class"] == class_name and title in window["title"]]
            return found[number] if len(found) > number else None

        self.probe.ask("place", self.windows[program]["hwnd"], PROGRAMS[program][3])  # above the others
        return wait_until(find, 100, f"a {class_name} {title}")

    def visit_in_turn(self, *stops):
        """Places and what is said there; nothing else may be said from the first on until the pointer rests."""
        since = now()
        for place, said in stops:
            self.visit(place, said)
        self.rest()
        said = [said for _, said in stops]
        heard = self.heard.words(since)
        self.assertEqual(heard[heard.index(said[0]):], said)

    def character(self, window, word):
        """On a word's second character; both kinds of texts here count a line's end as one or as two."""
        ends = "\r" if window["class"].startswith("Rich") else "\r\n"
        packed = self.probe.ask("send", window["hwnd"], POSITION, ends.join(LINES).index(word) + 1, 0)["result"]
        return window["rect"][0] + (packed & 0xFFFF) + 3, window["rect"][1] + (packed >> 16) + 6

    def item(self, view, index):
        """On the label of an item of a list view in report view, by the program's own hit test."""
        left, top, _, bottom = view["rect"]
        return next((left + 20, y) for y in range(top + 22, bottom, 4)  # below the column titles
                    if self.probe.ask("hit", view["hwnd"], left + 20, y)["item"] == index)

    @again_where_late
    def test_notepad_tells_the_beginning_of_its_text(self):
        edit = self.child("notepad", "Edit")
        self.visit_in_turn((self.character(edit, "Woven"), LINES[0] + "\r"))
        since = now()
        self.hand.move(*self.character(edit, "lazy"))  # a field of the plain class is not read by position
        self.rest()
        self.assertEqual(self.heard.words(since), [])

    @again_where_late
    def test_wordpad_is_read_by_line_and_by_word(self):
        text = self.child("wordpad", "RichEdit20W")
        self.visit_in_turn((self.character(text, "Woven"), LINES[0]), (self.character(text, "quick"), "quick"),
                           (self.character(text, "fox"), "fox"), (self.character(text, "walk"), LINES[1]),
                           (self.character(text, "over"), "over"), (self.character(text, "lazy"), LINES[3]),
                           (self.character(text, "dogs"), "dogs"), (self.character(text, "sleep"), LINES[4]),
                           (self.character(text, "Do "), "Do"))

    @again_where_late
    def test_regedit_names_values_and_its_tree(self):
        view = self.child("regedit", "SysListView32")
        stops = [(self.item(view, index), said) for index, said in enumerate(("( Default)", *VALUES))]
        self.visit_in_turn((stops[0][0], "regedit child window, ( Default)"), *stops[1:], stops[0])
        left, top, _, _ = self.child("regedit", "SysTreeView32")["rect"]
        self.visit_in_turn(((left + 60, top + 20), "Tree View, client area"))

    @again_where_late
    def test_the_explorer_names_files_after_its_folder(self):
        view = self.child("explorer", "SysListView32")
        stops = [(self.item(view, index), said) for index, said in enumerate(FILES.values())]
        self.visit_in_turn((stops[0][0], "reading, " + stops[0][1]), *stops[1:], stops[0])

    @again_where_late
    def test_winefile_only_sounds_for_it_draws_its_items_itself(self):
        for number in range(2):
            left, top, _, _ = self.child("winefile", "ListBox", number=number)["rect"]
            self.hand.move(left + 30, top + 40)
            self.rest()
            since = now()
            self.hand.move(left + 30, top + 24)
            self.rest()
            self.assertEqual((self.heard.words(since), self.earcons(since)), ([], ["ListBoxHit"]))

    def filled_list(self):
        """The Task Manager's list and its first label. Wine's has been seen, twice, to leave its list empty for as long as it
        ran; it is started anew then."""
        for turn in itertools.count(1):
            view = self.child("taskmgr", "SysListView32")
            first = lambda view=view: self.probe.ask("label", view["hwnd"], 0)["text"]
            try:
                return view, wait_until(first, SOON / STARTS, "the list is filled")
            except AssertionError:
                if turn == STARTS:
                    raise
                self.start_anew("taskmgr")

    def test_the_task_manager_lists_windows(self):
        view, label = self.filled_list()
        begins = "Task Manager, " + re.match(r"\w+", label)[0]  # points and brackets are said otherwise than written
        self.visit_until(self.item(view, 0), lambda text: text.startswith(begins), begins)

    @again_where_late
    def test_the_configuration_tells_its_controls(self):
        centre = lambda window: ((window["rect"][0] + window["rect"][2]) // 2, (window["rect"][1] + window["rect"][3]) // 2)
        self.visit_in_turn((centre(self.child("winecfg", "Button", "Cancel")), "Cancel button"),
                           (centre(self.child("winecfg", "Button", "OK")), "O K button"))
