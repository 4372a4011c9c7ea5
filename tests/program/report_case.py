"""What the tests of the crash report share: arming it, and a pointer that makes it."""

import itertools

from harness import Mail, names_desktop, now, wait_until
from panel_case import SOON, DesktopCase

QUESTION = ("Corvane is serious about reliability.  In the unlikely event that viewing a certain object were to crash Pointalk, "
            "you could use this tool to send us a crash report. Do you need to send one?")
ARMED = ("We will send a crash report to Corvane, but first we need to gather information about the object that has been "
         "causing Pointalk to crash.  I have disabled all but the safest of accessibility methods. This should allow you to "
         "navigate more safely, but with limited narration. Please use this mode to find and Right Click on the object that "
         "has been giving you trouble.  As soon as you right click on it we will make the report. If Right Clicking the object "
         "doesn't start me talking again, hit the Shift key.")
DONE = ("I have asked your browser to create an email message that you can send.\r\nI have also copied some special information "
        "to your windows clipboard. \r\nPlease paste it into the email message, and then add your description \r\nof the "
        "troublesome object, and what program it is part of, including \r\nthe version number and Home Web Page U R L, if you "
        "have it.")
MOVES_UNTIL_LOST = 300  # of a pointer, after which a key or a click must have gone astray
MOST_REPORTS = 5
LINK = "mailto:support@pointalk.example?subject=CrashReport"


class ReportCase(DesktopCase):
    """A desktop with a mail program; self.target and self.pointalk are what a test makes."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.mail = Mail(cls.desktop)

    def arm(self):
        since = now()
        self.panel.choose("Send Crash Report")
        self.panel.answer("Crash Report Dialog", "y")
        self.pointalk.heard.wait_words(ARMED, SOON, since)
        # Where the pointer rests, and the click that gave the panel the keyboard.
        beside = lambda text: names_desktop(text) or text in ("Pointalk Control Center", "Click")
        self.assertEqual([text for text in self.pointalk.heard.words(since) if not beside(text)],
                         [QUESTION + " Y for yes, N for No.", "Yes.", ARMED])
        self.panel.wait_for_keyboard()

    def wiggle_until_said(self, text, since, again=lambda: None):
        """Keeps the pointer on the move, as a rest is not described, until the text is said; now and then something is done
        again that a busy machine may have lost."""
        x, y = self.hand_at
        moves = itertools.count(1)

        def said():
            move = next(moves)
            self.hand.move(x + move % 2, y)
            if move % MOVES_UNTIL_LOST == 0:
                again()
            return any(line.get("text") == text for line in self.pointalk.heard.lines(since))

        wait_until(said, SOON, lambda: f"{text}; heard {self.pointalk.heard.words(since)}; "
                   f"keys go to {self.hand.where_keys_go()}", pause=0.02)

    def go(self, name):
        self.hand_at = self.target.centre(name)
        self.hand.move(*self.hand_at)

    def hears(self, name, text):
        """Goes over a window, and hears that of it."""
        since = now()
        self.go(name)
        self.wiggle_until_said(text, since)

    def by_right_click(self, since):
        """A click that a late object has taken is told once and makes no report."""
        self.hand.click("right")
        self.wiggle_until_said(DONE, since, lambda: self.hand.click("right"))

    def by_shift(self, since):
        with self.hand.held("shift"):
            self.wiggle_until_said(DONE, since, self.hand.press_again)

    def panel_has_keyboard(self):
        """Clicks on the panel's caption. What the mail has started may take the keyboard after that."""
        left, top, right, _ = self.panel.window()["rect"]
        self.hand.move((left + right) // 2, top + 8)
        self.hand.click()
        try:
            self.panel.wait_for_keyboard(3)
        except AssertionError:
            return False
        return True

    def made(self, ask):
        """The facts of the report that is made when it is asked for so. Its mail, for which programs come and go, is over then."""
        mailed, since = len(self.mail.links()), now()
        ask(since)
        wait_until(lambda: len(self.mail.links()) > mailed, SOON, "a mail")
        self.pointalk.heard.stays_silent(0.5)
        self.assertEqual(self.mail.links()[mailed:], [LINK])
        wait_until(self.panel_has_keyboard, SOON, "the panel has the keyboard")
        return self.probe.ask("clipboard")["text"]

    def assert_made(self, name, ask, report):
        """That a report asked for so tells that. On a busy machine an object may be late in the very tick that makes it; then
        another one is made."""
        text = self.made(ask)
        for _ in range(MOST_REPORTS):
            if text == report:
                return
            self.arm()
            self.go(name)
            text = self.made(ask)
        self.assertEqual(text, report)
