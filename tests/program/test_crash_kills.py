"""Killed again and again at random moments: every start comes up, asks what it must, and loses nothing that was learnt."""

import os
import random
import time

from harness import visit
from panel_case import DesktopCase, check_whole

# In the normal run there are fewer kills than where this is set.
KILLS = 200 if os.environ.get("POINTALK_LONG_TESTS") else 8

CLASSES = ("alpha", "beta", "gamma", "delta", "Button", "ListBox", "Static", "SysListView32")


class Kills(DesktopCase):
    def setUp(self):
        self.chance = random.Random(3)
        self.target = self.enterContext(self.desktop.target())
        for number, name in enumerate(CLASSES):
            left, top = 60 + number % 4 * 240, 160 + number // 4 * 260
            self.target.create(name, class_=name, title=f"Thing {number}", rect=(left, top, left + 200, top + 200), thread=name)
        for name in ("beta", "delta"):
            self.target.rule(name, "WM_GETOBJECT", "delay", 120)
        self.pointalk = self.enterContext(self.desktop.pointalk())
        self.learnt = []
        self.asked = {"nothing": 0, "crashed": 0, "thanks": 0}

    def wander(self, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            x, y = self.target.centre(self.chance.choice(CLASSES))
            for step in range(4):
                self.hand.move(x + step, y)
                time.sleep(0.02)

    def comes_up(self):
        """Starts it and answers what it must ask by what the run before left, more often yes than no."""
        status = self.pointalk.file("status.txt")
        expected = list(self.learnt)
        self.begin(self.pointalk)
        if status is None:
            self.asked["nothing"] += 1
        elif status == "running\r\n":
            self.asked["crashed"] += 1
            self.assertIn("You did not exit from Pointalk", self.panel.box("Pointalk")["texts"][-1])
            self.panel.answer("Pointalk", self.chance.choice("yyyn"))
            self.panel.answer("Pointalk", "Return")
        else:
            self.assertEqual(status, "logging\r\n")
            self.asked["thanks"] += 1
            expected.append((self.pointalk.file("ClassName.txt") or "\r\n").strip())
            self.assertIn("I have hopefully taught", self.panel.box("Pointalk")["texts"][-1])
            self.panel.answer("Pointalk", "Return")
        self.pointalk.wait_ready()
        self.assertEqual(self.lines_learnt(), expected)
        self.learnt = expected

    def lines_learnt(self):
        text = self.pointalk.file("BadClasses.txt")
        if text is None:
            return []
        self.assertTrue(text.endswith("\r\n"), text)
        return text.split("\r\n")[:-1]

    def files_are_whole(self):
        self.assertIn(self.pointalk.file("status.txt"), (None, "running\r\n", "logging\r\n"))
        logged = self.pointalk.file("ClassName.txt")
        if logged is not None:
            self.assertTrue(logged.endswith("\r\n") and logged.count("\r\n") == 1, logged)
        if (settings := self.pointalk.file("PTK.ini")) is not None:
            check_whole(self, settings)
        lines = self.lines_learnt()
        self.assertEqual(lines[:len(self.learnt)], self.learnt)
        self.learnt = lines
        left = {path.name for path in self.pointalk.folder.iterdir()}
        self.assertLessEqual(len([name for name in left if name.endswith(".new")]), 4, left)

    def test_every_start_comes_up_and_loses_nothing(self):
        for kill in range(KILLS):
            if self.chance.random() < 0.3:
                self.begin(self.pointalk)
                time.sleep(self.chance.uniform(0, 1.5))  # at any moment of the start
            else:
                self.comes_up()
                self.wander(self.chance.uniform(0, 0.8))
            self.pointalk.kill()
            with self.subTest(kill):
                self.files_are_whole()
        self.comes_up()
        self.avoids_what_was_learnt()
        print(f"{KILLS} kills; asked {self.asked}; {len(self.learnt)} learnt", end=" ", flush=True)

    def avoids_what_was_learnt(self):
        for name in {line[1:] for line in self.learnt if line.startswith("^") and line[1:] in CLASSES}:
            self.target.ask("reset")
            is_named = lambda text: name.lower() in text.lower().replace(" ", "")
            visit(self.hand, self.pointalk.heard, self.target.centre(name), is_named, name, 100)
            self.assertNotIn("WM_GETOBJECT", self.target.counts(name))
