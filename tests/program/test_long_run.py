"""A listener who works for long: what the program holds of the system does not grow. By command only: POINTALK_LONG_TESTS
is the number of minutes (POINTALK_LONG_TESTS=10 python3 -m pytest -s, with the path of this file)."""

import os
import pathlib
import random
import re
import time
import unittest

from listening import QUICK, Listening

MINUTES = float(os.environ.get("POINTALK_LONG_TESTS") or 0)
SETTLED = 60     # seconds until everything was used once
APART = 15       # seconds between the samples
ROUGHLY = 3      # handles that a query which is just going on may have open
MEMORY = 256     # KB that the heap may move by
PLACES = ("ok", "field", "list", "details", "tree", "combo")


@unittest.skipUnless(MINUTES, "POINTALK_LONG_TESTS is not set")
class LongRun(Listening):
    layouts = ("elements", "controls")
    environment = QUICK

    def sample(self, probe):
        """What the program holds while the pointer rests; sizes in KB."""
        self.leave()
        window = probe.ask("find", "PointalkPanel", "Pointalk Control Center")["hwnd"]
        held = probe.ask("resources", window)
        process = pathlib.Path("/proc") / str(self.pointalk.process.pid)
        rollup = (process / "smaps_rollup").read_text()
        held["private"] = sum(int(size) for size in re.findall(r"^Private_\w+: +(\d+) kB", rollup, re.M))
        held["threads"] = len(list((process / "task").iterdir()))
        held["files"] = len(list((process / "fd").iterdir()))
        return held

    def work(self, seconds):
        """Moves over everything there is, with clicks and keys on the way."""
        end = time.monotonic() + seconds
        places = [self.target.centre(name) for name in PLACES if name in self.target.windows]
        while time.monotonic() < end:
            start = random.choice(places)
            self.hand.glide(start, random.choice(places), steps=15, pause=0.03)
            self.hand.click()
            self.hand.tap("shift", "ctrl")

    def test_nothing_grows(self):
        random.seed(1)
        self.assertGreaterEqual(MINUTES * 60, 2 * SETTLED)
        with self.desktop.probe() as probe:
            self.work(SETTLED)
            samples = [self.sample(probe)]
            end = time.monotonic() + MINUTES * 60 - SETTLED
            while time.monotonic() < end:
                self.work(APART)
                samples.append(self.sample(probe))
        for sample in samples[::4] + samples[-1:]:
            print(sample)
        first, last = samples[0], samples[-1]
        half = [sample["private"] for sample in samples[len(samples) // 2:]]
        for name in ("windows", "gdi", "user"):
            self.assertEqual(last[name], first[name], name)
        for name in ("handles", "threads", "files"):
            self.assertLessEqual(last[name] - first[name], ROUGHLY, name)
        self.assertLessEqual(half[-1] - half[0], MEMORY)
        self.assertGreater(len(self.pointalk.heard.words(0)), 10 * MINUTES, "it did speak")
