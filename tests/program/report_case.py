"""What the tests of the crash report share: arming it, and a pointer that makes it."""

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
        below = lambda text: names_desktop(text) or text == "Pointalk Control Center"  # where the pointer rests
        self.assertEqual([text for text in self.pointalk.heard.words(since) if not below(text)],
                         [QUESTION + " Y for yes, N for No.", "Yes.", ARMED])
        self.panel.wait_for_keyboard()

    def wiggle_until_said(self, text, since):
        """Keeps the pointer on the move, as a rest is not described, until the text is said."""
        x, y = self.hand_at
        moves = iter(range(1_000_000))

        def said():
            self.hand.move(x + next(moves) % 2, y)
            return any(line.get("text") == text for line in self.pointalk.heard.lines(since))

        wait_until(said, SOON, lambda: f"{text}; heard {self.pointalk.heard.words(since)}", pause=0.02)

    def go(self, name):
        self.hand_at = self.target.centre(name)
        self.hand.move(*self.hand_at)
