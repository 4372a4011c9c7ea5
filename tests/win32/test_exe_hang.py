"""Programs that hang: the tones go on over them, a hang costs one limit, and the next healthy window is named soon. And what
a resting pointer asks of others: nothing."""

import os
import signal
import statistics
import time
import unittest

from harness import now, settings_text
from listening import HIGHER, LOWER, QUICK, SOON, Listening

OK, PAGE_UP = (960, 380), (840, 405)
HUNG_RECT = (100, 440, 520, 740)
LONG = 30       # seconds that a window hangs; no test waits for it
NAMED = 0.33    # seconds from the pointer's coming to a healthy window's name
STEP = 0.04     # seconds between the moves of a walk


class Hanging(Listening):
    layouts = ("elements", "controls")
    settings = settings_text(VerticalVolume=60, HorizontalVolume=60, MouseMelodyFormat=0)  # a note for every cell
    environment = QUICK

    def setUp(self):
        self.leave()

    def hang_one(self, seconds=LONG):
        self.other = self.enterContext(self.desktop.target())
        self.other.create("hung", class_="HungOne", title="Hung title", rect=HUNG_RECT)
        self.other.element("hung", 0, name="Back again", role=41)
        self.other.ask("hang", "hung", seconds)

    def walk_over_it(self):
        """From cell to cell, each of which has notes of its own; the seconds from each tone to the next."""
        since = now()
        left, top, right, bottom = HUNG_RECT
        for row in range(5):
            for column in range(7):
                self.hand.move(left + 20 + (column if row % 2 else 6 - column) * 58, top + 20 + row * 58)
                time.sleep(STEP)
        times = [since] + [line["t"] for line in self.heard.lines(since) if line["what"] == "midi"
                           and int(line["value"], 16) & 0xFF in (0x90 + LOWER, 0x90 + HIGHER)]
        self.assertGreater(len(times), 20)
        return sorted((after - before) / 1e6 for before, after in zip(times, times[1:]))

    def name_healthy_ones(self, rounds=6):
        """Comes to a healthy window from the hung one, again and again; the seconds until it was named."""
        delays = []
        for place, words in ((OK, "O K button"), (PAGE_UP, "Page up")) * (rounds // 2):
            self.hand.move(300 + len(delays), 600)
            time.sleep(0.1)
            since = now()
            self.hand.move(*place)
            delays.append((self.heard.wait_words(words, SOON, since)["t"] - since) / 1e6)
        return delays

    def assert_never_in_the_way(self):
        gaps = self.walk_over_it()
        # One gap holds the limit of the one question that was asked; no other is longer than the moves make it.
        self.assertLess(gaps[-1], 1.0)
        self.assertLess(gaps[-2], 0.25)
        self.assertLess(statistics.median(gaps), 2 * STEP)
        delays = self.name_healthy_ones()
        self.assertLess(statistics.median(delays), NAMED)
        self.assertLess(max(delays), 3 * NAMED)

    def test_a_window_that_hangs(self):
        self.hang_one()
        self.assert_never_in_the_way()

    def test_a_program_that_stands_still(self):
        self.hang_one(0)
        os.kill(self.other.process.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, self.other.process.pid, signal.SIGCONT)
        self.assert_never_in_the_way()

    def test_an_object_that_does_not_answer_although_its_window_did(self):
        self.hang_one(0)
        self.other.rule("hung", "accValue", "delay", LONG * 1000)
        self.assert_never_in_the_way()

    def test_a_window_that_answers_again_is_asked_again(self):
        self.hang_one(2)
        since = now()
        self.hand.move(300, 600)
        self.heard.wait_words("It is eigh hung one", SOON, since)
        end = time.monotonic() + SOON
        while "Back again" not in self.heard.words(since) and time.monotonic() < end:
            self.hand.move(300 + int(time.monotonic() * 10) % 50, 600)  # a resting pointer asks nothing
            time.sleep(0.1)
        self.assertIn("Back again", self.heard.words(since))

    def test_the_first_crossing_of_a_hung_window_delays_what_follows_by_one_limit(self):
        other = self.enterContext(self.desktop.target())
        delays = []
        for number in range(3):
            name = f"hung{number}"
            other.create(name, class_="HungOne", rect=(570 + 80 * number, 450, 640 + 80 * number, 500), thread=name)
            other.ask("hang", name, LONG)
            self.leave()
            self.hand.move(600 + 80 * number, 470)
            time.sleep(STEP)
            since = now()
            self.hand.move(*OK)
            delays.append((self.heard.wait_words("O K button", SOON, since)["t"] - since) / 1e6)
        self.assertLess(min(delays), NAMED)
        self.assertLess(max(delays), 3 * NAMED)

    def test_more_windows_hang_than_are_waited_for(self):
        other = self.enterContext(self.desktop.target())
        for number in range(5):
            name = f"hung{number}"
            other.create(name, class_="HungOne", rect=(100 + 80 * number, 450, 170 + 80 * number, 500), thread=name)
            other.element(name, 0, name="Never heard", role=41)
            other.ask("hang", name, LONG)
        for number in range(5):
            self.hand.move(130 + 80 * number, 470)
            time.sleep(0.4)
        since = now()
        self.hand.move(805, 350)  # a title, which needs no accessible object
        self.heard.wait_words("Elements", SOON, since)
        other.close()
        self.hand.move(*self.away)
        time.sleep(0.3)
        self.visit(OK, "O K button")


    def test_a_resting_tick_asks_nothing_of_another_program(self):
        for place, words in ((OK, "O K button"), (self.target.centre("field"), "hello"),
                             (self.target.centre("details"), "Controls, Budget dot xls")):
            with self.subTest(words):
                self.leave()
                self.visit(place, words)
                self.assertTrue(self.target.all_counts())
                self.rest()
                self.target.ask("reset")
                self.assertEqual(self.heard.stays_silent(1.5), [])
                self.assertEqual(self.target.all_counts(), {})


if __name__ == "__main__":
    unittest.main()
