"""The class log is written before whatever may bring Pointalk down, several times at each place of the pointer: it outlives
the program, and nobody waits for the disk."""

import re

from harness import wait_until
from panel_case import SOON, DesktopCase

# What the program calls of the system's file functions, as Wine lists them.
WATCHED = "kernel32.MoveFileExW;kernel32.FlushFileBuffers"
REPLACE, WRITE_THROUGH = 1, 8
PLACES = {"Grid": (100, 300, 300, 400), "Pane": (400, 300, 600, 400)}


class ClassLog(DesktopCase):
    def setUp(self):
        self.desktop.import_keys(f'[HKEY_CURRENT_USER\\Software\\Wine\\Debug]\n"RelayInclude"="{WATCHED}"\n')
        self.target = self.enterContext(self.desktop.target())
        for name, rect in PLACES.items():
            self.target.create(name, class_=name, title=f"Thing {name}", rect=rect)
        self.pointalk = self.enterContext(self.desktop.pointalk())
        self.calls = self.pointalk.folder / "calls.txt"

    def take_notes(self):
        """A run that keeps the log, as after a run that did not end in order."""
        (self.pointalk.folder / "status.txt").write_bytes(b"running\r\n")
        self.begin(self.pointalk, WINEDEBUG="+relay",
                   command=["sh", "-c", f"exec wine {self.pointalk.folder / 'Pointalk.exe'} 2>{self.calls}"])
        self.panel.answer("Pointalk", "y")
        self.panel.answer("Pointalk", "Return")
        self.pointalk.wait_ready()

    def told(self):
        """The calls so far: the flags of each renaming to a file by the file's name, and how often the disk was waited for."""
        text = self.calls.read_text("utf-8", "replace")
        moves = re.findall(r'Call \w+\.MoveFileExW\([^"]*L"[^"]*",[^"]*L"[^"]*?([^\\"]+)",([0-9a-f]+)\)', text, re.I)
        flags = {}
        for name, number in moves:
            flags.setdefault(name, []).append(int(number, 16))
        return flags, len(re.findall(r"Call \w+\.FlushFileBuffers", text, re.I))

    def go_over(self, name):
        self.hand.move(*self.target.centre(name))
        wait_until(lambda: self.pointalk.file("ClassName.txt") == name + "\r\n", SOON, lambda: f"{name} in the log")

    def test_the_log_is_not_waited_for_and_the_other_files_are(self):
        self.take_notes()
        for name in PLACES:
            self.go_over(name)
        flags, flushed = self.told()
        self.assertEqual(set(flags["ClassName.txt"]), {REPLACE})
        others = [flag for name, given in flags.items() if name != "ClassName.txt" for flag in given]
        self.assertEqual(set(others), {REPLACE | WRITE_THROUGH})
        self.assertIn(flushed, range(1, len(others) + 1))
        self.assertIn("PTK.ini", flags)
        self.assertIn("status.txt", flags)
