"""The listener's walk: moves the pointer, presses keys, and notes what must be heard at each place."""

import time

from harness import now

SPEECH_LIMIT = 4.0   # seconds in which what must be said is said
REST = 0.55          # seconds after which a still pointer is at rest


class Walk:
    def __init__(self, hand, heard):
        self.hand = hand
        self.heard = heard
        self.moves = []    # (time, x, y)
        self.stops = []    # (time, x, y, what)
        self.missed = []
        self.position = (0, 0)

    def to(self, place, what, *words, steps=14):
        """Glides to a place and waits until all the words were said there, each in some utterance."""
        since = now()
        start = self.position
        for step in range(1, steps + 1):
            x = start[0] + (place[0] - start[0]) * step // steps
            y = start[1] + (place[1] - start[1]) * step // steps
            self.hand.move(x, y)
            self.moves.append((now(), x, y))
            time.sleep(0.02)
        self.position = place
        self.stops.append((now(), *place, what))
        self.hears(what, *words, since=since)
        time.sleep(REST)

    def hears(self, what, *words, since):
        for word in words:
            try:
                self.heard.wait(lambda line: "text" in line and word.lower() in line["text"].lower(), SPEECH_LIMIT, since)
            except AssertionError:
                self.missed.append(f"{what}: \"{word}\"; instead {self.heard.words(since)}")

    def nudge(self):
        """One pixel aside, so that a resting pointer is described again."""
        x, y = self.position
        self.position = (x - 1 if x % 2 else x + 1, y)
        self.hand.move(*self.position)
        self.moves.append((now(), *self.position))
        time.sleep(0.12)

    def clicks(self, what, words, double=False, button="left"):
        since = now()
        (self.hand.double_click if double else self.hand.click)(button)
        self.stops.append((since, *self.position, what))
        self.hears(what, words, since=since)
        time.sleep(1.0 if double else REST)  # a double click is spoken to its end before anything else is done

    def asks(self, what, *words, shift=False):
        """Control over the object, or Control with Shift for the top window."""
        self.nudge()
        since = now()
        if shift:
            self.hand.press("shift")
        self.hand.press("ctrl")
        time.sleep(0.15)
        self.hand.release("ctrl")
        if shift:
            self.hand.release("shift")
        self.stops.append((since, *self.position, what))
        self.hears(what, *words, since=since)

    def spells(self, place, what, *words):
        self.hand.press("shift")
        time.sleep(0.1)
        self.to(place, what, *words)
        self.hand.release("shift")

    def rests(self, what, seconds=1.0):
        """After the rest nothing may sound."""
        time.sleep(REST)
        late = [line for line in self.heard.stays_silent(seconds) if line["what"] in ("midi", "sapi5 speak")]
        if late:
            self.missed.append(f"{what}: silence; instead {late[:3]}")
