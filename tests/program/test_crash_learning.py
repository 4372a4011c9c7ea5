"""A class that brings Pointalk down is asked about, learnt and avoided; its neighbours are read as before."""

import itertools
import time

from harness import names_desktop, now, visit, wait_until
from panel_case import SOON, DesktopCase

ASKED = ("You did not exit from Pointalk last time, before quitting Windows.\r\nIs that because Pointalk crashed?  Just say no, "
         "if you forgot to quit from Pointalk first.")
TAKING_NOTES = ("I can see that Pointalk had crashed. I am entering a special mode where I will be taking careful notes. Please "
                "try to reproduce the same conditions and make it crash just like last time.")
NO_PROBLEM = ("No Problem.  I'll continue without saving non existant crash data.\r\nNext time let us quit from Pointalk before "
              "quitting Windows.")

AFTER_OLD_MOVES = 0.5  # seconds
BAD, GOOD = (100, 300, 300, 400), (400, 300, 600, 400)


def spoken(text, keys):
    return text.replace("\r\n", " ") + keys


class Learning(DesktopCase):
    def setUp(self):
        self.target = self.enterContext(self.desktop.target())
        self.target.create("good", class_="Button", title="Neighbour", rect=GOOD, thread="good")
        self.pointalk = self.enterContext(self.desktop.pointalk())

    def crashed_before(self):
        """A first run that ended without a quit."""
        self.begin(self.pointalk)
        self.pointalk.wait_ready()
        self.pointalk.kill()
        self.assertEqual(self.pointalk.file("status.txt"), "running\r\n")

    def asked(self, answer, reply, then):
        """Starts it once more and answers its question by key; returns the time of the start."""
        since = now()
        self.begin(self.pointalk)
        self.assertIn(ASKED, self.panel.answer("Pointalk", answer)["texts"])
        self.assertIn(then, self.panel.answer("Pointalk", "Return")["texts"])
        self.pointalk.wait_ready()
        words = [text for text in self.pointalk.heard.words(since) if not names_desktop(text)]
        self.assertEqual(words, [spoken(ASKED, " Y for yes, N for No."), reply, spoken(then, " Hit Enter."), "Thank you.",
                                 "Pointalk is running.  Hit F1 any time for help."])
        return since

    def logged(self, line):
        wait_until(lambda: self.pointalk.file("ClassName.txt") == line + "\r\n", SOON,
                   lambda: f"{line} in the log: {self.pointalk.file('ClassName.txt')}")

    def thanked(self, learnt):
        """Starts it after a crash while it took notes: it has learnt."""
        self.assertEqual(self.pointalk.file("status.txt"), "logging\r\n")
        since = now()
        self.begin(self.pointalk)
        folder = "Z:" + str(self.pointalk.folder).replace("/", "\\")
        thanks = ("I have hopefully taught Pointalk to avoid the crash. Once there are no more crashes to be found, you could "
                  "help me to make Pointalk better. Please send as an email attachment,  the file called "
                  f"{folder}\\BadClasses.txt. Please send it to support@pointalk.example")
        self.assertIn(thanks, self.panel.answer("Pointalk", "Return")["texts"])
        self.pointalk.wait_ready()
        self.pointalk.heard.wait_words(thanks + " Hit Enter.", SOON, since)
        self.assertEqual(self.pointalk.file("status.txt"), "running\r\n")
        self.assertEqual(self.pointalk.file("BadClasses.txt"), learnt + "\r\n")

    def hears(self, name, text):
        """Moves to a window, once it answers, and waits for what must be said there; returns what the window was asked."""
        wait_until(lambda: self.probe.ask("send", self.target.handle(name), "WM_NULL", 0, 0, 100)["answered"], SOON, "an answer")
        # Only now does Wine hear of the moves that came while the window hung: for a moment the pointer is back there.
        time.sleep(AFTER_OLD_MOVES)
        self.target.ask("reset")
        since = now()
        self.hand.move(*self.target.centre(name))
        self.pointalk.heard.wait_words(text, SOON, since)
        visit(self.hand, self.pointalk.heard, (900, 740), names_desktop, "the desktop", SOON, since)
        return self.target.counts(name)

    def test_a_class_whose_query_was_out(self):
        self.crashed_before()
        self.asked("y", "Yes.", TAKING_NOTES)
        self.assertEqual(self.pointalk.file("status.txt"), "logging\r\n")
        self.target.create("bad", class_="deadlything", title="Open me", rect=BAD, thread="bad")
        self.target.ask("hang", "bad")
        self.hand.move(*self.target.centre("bad"))
        self.logged("^deadlything")
        self.pointalk.kill()
        self.target.ask("wake", "bad")
        self.assertEqual(self.pointalk.file("ClassName.txt"), "^deadlything\r\n")
        self.thanked("^deadlything")
        self.assertEqual(self.hears("bad", "deadlything"), {})
        self.assertIn("WM_GETOBJECT", self.hears("good", "Neighbour button"))
        self.assertEqual(self.hears("bad", "deadlything"), {})
        self.open_panel(self.pointalk)
        self.panel.quit(self.pointalk)
        self.begin(self.pointalk)
        self.pointalk.wait_ready()
        self.assertEqual(self.hears("bad", "deadlything"), {})

    def reads(self, class_name):
        """Has the reader of the list box ask its slow message, and tells whether the log has the class without a mark: on a busy
        machine the query before it can be late, and leaves its mark."""
        places, looks = [self.target.centre("bad"), (BAD[0] + 1, BAD[1] + 1)], itertools.count()

        def asked():
            look = next(looks)
            if look % 100 == 0:  # what is still out is not asked again, and another move is needed then
                self.hand.move(*places[look // 100 % 2])
            return "LB_ITEMFROMPOINT" in self.target.counts("bad")

        self.target.ask("reset")
        wait_until(asked, SOON, "the reader's message", pause=0.001)
        return self.pointalk.file("ClassName.txt") == class_name + "\r\n"

    def test_a_class_whose_reader_was_at_work(self):
        self.crashed_before()
        self.asked("y", "Yes.", TAKING_NOTES)
        self.target.create("bad", class_="deadlylistbox", base="ListBox", rect=BAD, thread="bad")
        self.target.element("bad", 0, name="Boom", role=33)
        self.target.ask("items", "bad", "One", "Two")
        self.target.rule("bad", "LB_ITEMFROMPOINT", "delay", 3000)
        wait_until(lambda: self.reads("deadlylistbox"), SOON, "the reader at work", pause=0)
        self.pointalk.kill()
        self.thanked("deadlylistbox")
        asked = self.hears("bad", "Boom")
        self.assertIn("WM_GETOBJECT", asked)
        self.assertEqual([message for message in asked if message.startswith("LB_")], [])
        self.hears("good", "Neighbour button")

    def test_a_hang_that_is_survived_leaves_its_mark_and_is_not_learnt(self):
        self.crashed_before()
        self.asked("y", "Yes.", TAKING_NOTES)
        self.target.create("bad", class_="slowthing", title="Slow", rect=BAD, thread="bad")
        self.target.ask("hang", "bad")
        x, y = self.target.centre("bad")
        self.hand.move(x, y)
        self.logged("^slowthing")
        for step in range(1, 20):  # later descriptions, while the query is still out
            self.hand.move(x + step, y)
            wait_until(lambda: self.pointalk.file("ClassName.txt") in ("^slowthing\r\n", "slowthing\r\n"), SOON, "the log")
        self.logged("^slowthing")
        self.target.ask("wake", "bad")
        self.hears("good", "Neighbour button")
        self.open_panel(self.pointalk)
        self.panel.quit(self.pointalk)
        self.assertEqual(self.pointalk.file("status.txt"), "stopped\r\n")
        since = now()
        self.begin(self.pointalk)
        self.pointalk.wait_ready()
        self.assertEqual([text for text in self.pointalk.heard.words(since) if not names_desktop(text)],
                         ["Pointalk is running.  Hit F1 any time for help."])
        self.assertIsNone(self.pointalk.file("BadClasses.txt"))

    def test_no_to_the_question_takes_notes_and_learns_nothing(self):
        self.crashed_before()
        self.asked("n", "No.", NO_PROBLEM)
        self.assertEqual(self.pointalk.file("status.txt"), "running\r\n")
        self.hears("good", "Neighbour button")
        self.hand.move(*self.target.centre("good"))
        self.logged("Button")
        self.pointalk.kill()
        self.asked("n", "No.", NO_PROBLEM)
        self.assertIsNone(self.pointalk.file("BadClasses.txt"))
