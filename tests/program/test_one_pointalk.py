"""One Pointalk in a session: a second start brings the panel of the first one to the front and ends, and touches nothing.
Where the stand-ins for other programs are of another width, the second start is that of the other program."""

import os
import signal
import unittest

from harness import KILLED_AT_ITS_END, TARGET_BUILD, Desktop, Panel, names_desktop, now, wait_until
from listening import GREETING, QUICK, SETTINGS, SOON, start, voice_that_takes

LEAVES = (0, KILLED_AT_ITS_END)
GOODBYE = "Pointalk is ending. Goodbye."


def contents(folder):
    """Every file with what is in it and when it was written."""
    return {path.name: (path.read_bytes(), path.stat().st_mtime_ns) for path in folder.iterdir()}


class OnePointalk(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True))
        cls.probe = cls.enterClassContext(cls.desktop.probe())
        cls.hand = cls.enterClassContext(cls.desktop.hand())
        cls.panel = Panel(cls.probe, cls.hand)

    def setUp(self):
        self.first = self.enterContext(self.desktop.pointalk(SETTINGS))
        self.heard = self.first.heard

    def another(self):
        """One that lies in another folder."""
        return self.enterContext(self.desktop.pointalk(SETTINGS, build=TARGET_BUILD))

    def start_in_vain(self):
        """It ends by itself, has asked nothing and has neither said nor written anything."""
        second = self.another()
        before = contents(second.folder)
        second.start(**QUICK)
        second.wait_for_end()
        self.assertIn(second.process.returncode, LEAVES)
        self.assertEqual(contents(second.folder), before)

    def panel_comes_to_the_front(self):
        self.panel.wait_for_keyboard()
        self.assertFalse(self.panel.is_minimised())

    def words(self, since):
        """What the first one said, without the name of the desktop under the pointer."""
        return [text for text in self.heard.words(since) if not names_desktop(text)]

    def bring_another_program_to_the_front(self):
        target = self.enterContext(self.desktop.target())
        target.create("other", class_="OtherProgram", title="Other", rect=(500, 100, 900, 400))

        def is_in_front():
            """A question of Pointalk's that has only just come may take the keyboard back."""
            target.ask("foreground", "other")
            return self.panel.focus()["window"]["class"] == "OtherProgram"

        wait_until(is_in_front, SOON, "another program is in front", pause=0.3)

    def test_the_minimised_panel_of_the_first_comes_to_the_front(self):
        start(self.hand, self.first, **QUICK)
        self.assertTrue(self.panel.is_minimised())
        since = now()
        self.start_in_vain()
        self.panel_comes_to_the_front()
        self.assertEqual(self.words(since), [])
        self.assertEqual(self.first.file("status.txt"), "running\r\n")

    def test_an_open_panel_behind_another_program_comes_to_the_front(self):
        start(self.hand, self.first, **QUICK)
        self.panel.open()
        self.bring_another_program_to_the_front()
        self.start_in_vain()
        self.panel_comes_to_the_front()

    def test_the_same_program_again_leaves_its_files_as_they_are(self):
        start(self.hand, self.first, **QUICK)
        files = lambda: {name: file for name, file in contents(self.first.folder).items() if name != "heard.jsonl"}
        before, since = files(), now()
        second = self.first.launch(**QUICK)
        self.assertIn(second.wait(SOON), LEAVES)
        self.panel_comes_to_the_front()
        self.assertEqual(files(), before)
        self.assertEqual([line for line in self.heard.lines(since) if line["what"] == "created"], [])
        self.assertTrue(self.first.running())

    def test_of_three_that_start_at_once_one_stays(self):
        self.hand.move(1000, 600)
        runs = [self.first, self.another(), self.another()]
        before = {run: contents(run.folder) for run in runs}
        for run in runs:
            run.start(**QUICK)
        running = lambda: [run for run in runs if run.running()]
        wait_until(lambda: len(running()) == 1, SOON, lambda: f"one of three runs: {len(running())}")
        one, = running()
        for run in runs:
            if run is not one:
                self.assertIn(run.process.returncode, LEAVES)
                self.assertEqual(contents(run.folder), before[run])
        one.wait_running()
        self.panel_comes_to_the_front()
        self.assertTrue(one.running())

    def test_one_that_is_just_starting_comes_to_the_front_when_it_has_started(self):
        self.hand.move(1000, 600)
        self.first.start(**voice_that_takes(3, self.desktop, GREETING[:8]))
        self.heard.wait(lambda line: line["what"] == "created", SOON)
        self.start_in_vain()
        self.first.wait_running()
        self.panel_comes_to_the_front()
        self.assertEqual(self.heard.words().count(GREETING), 1)

    def test_a_question_of_the_open_panel_comes_to_the_front(self):
        start(self.hand, self.first, **QUICK)
        self.panel.open()
        self.panel.choose("Exit")
        self.panel.box("Pointalk")
        self.bring_another_program_to_the_front()
        self.start_in_vain()
        self.panel.answer("Pointalk", "n")
        self.panel_comes_to_the_front()

    def test_a_question_of_a_first_run_comes_to_the_front_and_the_panel_later(self):
        first = self.enterContext(self.desktop.pointalk(SETTINGS, first_run=True))
        self.hand.move(1000, 600)
        first.start(**QUICK)
        self.panel.box("Pointalk")
        self.bring_another_program_to_the_front()
        self.start_in_vain()
        self.panel.answer("Pointalk", "y")
        self.panel.answer("Pointalk Instructions", "Return")
        first.wait_running()
        self.panel_comes_to_the_front()

    def test_one_that_is_ending_is_followed_by_the_next(self):
        start(self.hand, self.first, **voice_that_takes(3, self.desktop, "Goodbye"))
        self.panel.open()
        self.panel.choose("Exit")
        self.panel.answer("Pointalk", "y")
        self.heard.wait_words(GOODBYE, SOON)
        second = self.another().start(**QUICK)
        second.wait_ready()
        self.first.wait_for_end()
        self.assertTrue(second.running())
        over = [line["t"] for line in self.heard.lines() if line["what"] == "sapi5 speak over"][-1]
        self.assertLess(over, second.heard.lines()[0]["t"])

    def test_one_that_says_its_last_words_is_followed_by_the_next(self):
        first = self.enterContext(self.desktop.pointalk(SETTINGS, first_run=True))
        self.hand.move(1000, 600)
        first.start(**voice_that_takes(3600, self.desktop, "nevermind"))
        self.panel.answer("Pointalk", "n")
        first.heard.wait_words("O K nevermind.", SOON)
        second = self.another().start(**QUICK)
        second.wait_ready()
        self.assertFalse(first.running())
        self.assertTrue(second.running())

    def test_beside_one_that_hangs_a_second_start_ends_too(self):
        start(self.hand, self.first, **QUICK)
        os.kill(self.first.process.pid, signal.SIGSTOP)
        self.addCleanup(os.kill, self.first.process.pid, signal.SIGCONT)
        self.start_in_vain()
        self.assertTrue(self.first.running())

    def test_after_one_that_was_killed_the_next_starts_as_usual(self):
        start(self.hand, self.first, **QUICK)
        self.first.kill()
        second = self.another().start(**QUICK)
        second.wait_ready()
        second.wait_running()
