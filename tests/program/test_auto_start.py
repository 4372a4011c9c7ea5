"""Starting with Windows: the system's list of programs, and a start as the system makes it."""

import re
import subprocess

from harness import names_desktop, now, wait_until
from panel_case import SOON, DesktopCase

RUN_KEY = r"HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows\CurrentVersion\Run"
ADDED = ("Now Pointalk will start automatically every time Windows is loaded.\r\nTo make it NOT start automatically, see the "
         "Program menu above.")
TAKEN = ("Now Pointalk will NOT start automatically every time Windows is loaded.\r\nTo make it start automatically, see the "
         "Program menu above.")


class AutoStart(DesktopCase):
    def listed(self, bits):
        """The values that have the program's name, with their types, in the list that programs of that width see."""
        try:
            printed = self.desktop.run("wine", "reg", "query", RUN_KEY, f"/reg:{bits}", seconds=100).decode()
        except subprocess.CalledProcessError:  # there is no such key
            return []
        return re.findall(r"^\s+(Pointalk)\s+(\w+)\s+(.*?)\s*$", printed, re.M)

    def confirms(self, entry, text):
        since = now()
        self.panel.choose(entry)
        self.assertIn(text, self.panel.answer("Pointalk", "Return")["texts"])
        self.pointalk.heard.wait_words("Thank you.", SOON, since)
        words = [said for said in self.pointalk.heard.words(since) if not names_desktop(said)]
        self.assertEqual(words, [text.replace("\r\n", " ") + " Hit Enter.", "Thank you."])
        self.panel.wait_for_keyboard()

    def test_the_value_is_there_after_one_command_and_gone_after_the_other(self):
        value = ("Pointalk", "REG_SZ", "Pointalk.exe")
        own = self.desktop.bits()
        other = 96 - own
        with self.desktop.pointalk() as self.pointalk:
            self.start(self.pointalk)
            for entry, text, listed in (("Make Not AutoStart", TAKEN, []), ("Make AutoStart", ADDED, [value]),
                                        ("Make AutoStart", ADDED, [value]), ("Make Not AutoStart", TAKEN, []),
                                        ("Make Not AutoStart", TAKEN, [])):
                self.confirms(entry, text)
                self.assertEqual(self.listed(own), listed)
                self.assertEqual(self.listed(other), [])

    def test_started_by_the_system_it_finds_its_own_folder(self):
        windows = self.desktop.drive() / "windows"
        for directory in (windows / "system32", windows):
            with self.subTest(directory.name), self.desktop.pointalk() as pointalk:
                self.begin(pointalk, directory=directory)
                pointalk.wait_ready()
                self.assertFalse((directory / "DidWarn.flg").exists())
                self.assertEqual(pointalk.file("status.txt"), "running\r\n")

    def test_started_from_another_folder_it_stays_there(self):
        elsewhere = self.desktop.folder / "elsewhere"
        elsewhere.mkdir()
        with self.desktop.pointalk() as pointalk:
            since = now()
            self.begin(pointalk, directory=elsewhere)
            self.panel.answer("Pointalk", "y")
            self.panel.answer("Pointalk Instructions", "Return")
            pointalk.heard.wait(lambda line: line.get("text", "").endswith("Do you agree? Y for yes, N for No."), SOON, since)
            pointalk.heard.wait_words("thank you", SOON, since)
            marker = elsewhere / "DidWarn.flg"
            wait_until(marker.exists, SOON, "the marker")
            self.assertEqual(marker.read_bytes(), b"Been there done that.\r\n")
