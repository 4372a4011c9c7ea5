"""Whatever moment Pointalk is killed at, its settings file is whole, and nothing is left to pile up."""

import os
import pathlib
import random
import select
import shutil
import subprocess
import tempfile
import time
import unittest

from harness import BUILD, Desktop, command_for, now, wait_until
from panel_case import SOON, DesktopCase, check_whole, values

# In the normal run there are fewer kills than where this is set.
LONG = bool(os.environ.get("POINTALK_LONG_TESTS"))
KILLS_OF_SAVER = 1000 if LONG else 60
SECONDS_OF_KILLS = 60 if LONG else 15


class Saver(unittest.TestCase):
    """The saving alone, over and over."""

    def setUp(self):
        self.desktop = self.enterContext(Desktop(private=True))
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.fresh = self.folder / "PTK.ini.new"
        shutil.copy(BUILD / "tests" / "program" / "saver.exe", self.folder)

    def kill_one(self, moment):
        """Kills a saver once moment returns, and checks what it leaves; whether that was in the midst of a save."""
        with subprocess.Popen(command_for(self.folder / "saver.exe"), stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, env=self.desktop.environment) as saver:
            try:
                told, _, _ = select.select([saver.stdout], [], [], SOON)
                self.assertEqual(saver.stdout.readline().strip() if told else "no word", b"ready")
                moment()
            finally:
                saver.kill()
                saver.wait(100)
        check_whole(self, (self.folder / "PTK.ini").read_bytes().decode())
        self.assertLessEqual({path.name for path in self.folder.iterdir()}, {"saver.exe", "PTK.ini", "PTK.ini.new"})
        return self.fresh.exists()

    def test_the_file_is_whole_after_every_kill(self):
        chance = random.Random(1)
        at_random = lambda: time.sleep(chance.uniform(0, 0.02))
        while_saving = lambda: wait_until(self.fresh.exists, SOON, "a save", pause=0)
        in_a_save = sum(self.kill_one(moment) for moment in (at_random, while_saving) * (KILLS_OF_SAVER // 2))
        # One that certainly was: a save may be over between the look and the kill.
        wait_until(lambda: self.kill_one(while_saving), SOON, "a kill in the midst of a save")
        print(f"{in_a_save} of {KILLS_OF_SAVER} kills in the midst of a save", end=" ", flush=True)


class Commands(DesktopCase):
    """Commands that save, in the whole program."""

    def test_the_file_is_whole_whenever_commands_are_cut_short(self):
        chance = random.Random(2)
        end = time.monotonic() + SECONDS_OF_KILLS
        kills = 0
        with self.desktop.pointalk() as pointalk:
            while time.monotonic() < end or not kills:
                since = now()
                self.start(pointalk)
                self.assertEqual(list(pointalk.folder.glob("*.new")), [], "left by the run before")
                key = chance.choice(("F11", "F12"))
                with subprocess.Popen(["xdotool", "key", "--repeat", "2000", "--delay", "1", key],
                                      env=self.desktop.environment) as typing:
                    pointalk.heard.wait(lambda line: line.get("text", "").endswith(" voice"), SOON, since, "a change")
                    time.sleep(chance.uniform(0, 0.3))
                    pointalk.kill()
                    typing.kill()
                self.hand.release(key)
                kills += 1
                check_whole(self, pointalk.file("PTK.ini"))
                self.assertIn(int(values(pointalk)["VoiceSpeed"]), range(0, 101, 5))
                self.assertLessEqual({path.name for path in pointalk.folder.glob("*.new")}, {"PTK.ini.new"})
                (pointalk.folder / "status.txt").unlink()
        print(f"{kills} kills", end=" ", flush=True)
