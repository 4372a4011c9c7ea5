"""The listener's walk: moves the pointer, presses keys, and notes what must be heard at each place."""

import contextlib
import itertools
import time

import tones
from harness import now, wait_until

LIMIT = 60.0         # seconds in which what must be heard is heard
LONGEST_TEXT = 60    # seconds in which the longest text is spoken to its end
PACE = 0.02          # seconds between two places of a glide
SILENCE = 1.0        # seconds
TURNS = 24           # how often a key is pressed, or a place is moved to, that is not answered
TICK = 0.03          # seconds between two looks at the pointer
CLICK_TICKS = 6      # in which a click is not yet spoken
ASIDE = 20           # pixels from a row of a list to another one
SPEAK_TO_THE_END = 2  # the flags with which the program waits for the end of what it says

# The notes, on the channel of event sounds, by which some of them are known.
EARCONS = {"a row of a list box": 204, "another icon": 226, "off the icons": 223}
EARCON_CHANNEL = 12
DATA = 0x7F  # what a synthesizer keeps of a note


class Walk:
    """window_at tells which window is at a place."""

    def __init__(self, hand, heard, window_at):
        self.hand = hand
        self.heard = heard
        self._window_at = window_at
        self.stops = []    # (time, x, y, what)
        self.nudges = []   # the same, where a place had to be asked again
        self.namings = []  # (time of the move that led onto a thing, the line with the words for it)
        self.missed = []

    def to(self, place, what, *words, earcon=None, steps=14):
        """Glides to a place, waits until all the words were said there, each in some utterance, and rests. The tones must be
        those of the place, and the event sound must be heard where one is named."""
        start = self.hand.position()
        path = [tuple(a + (b - a) * step // steps for a, b in zip(start, place)) for step in range(1, steps + 1)]
        first = self._first_of_the_last_window(path)
        since = came = now()
        for number, spot in enumerate(path):
            if number:
                time.sleep(PACE)
            if number == first:
                came = now()
            self.hand.move(*spot)
        self.stops.append((now(), *place, what))
        self.hears(what, *words, since=since, came=came)
        if earcon:
            self._hears_earcon(what, earcon, since, start)
        self._hears_tones(what)
        self.settle()

    def jump(self, place, what, *words, earcon=None):
        """The same without places between, so that nothing on the way is named."""
        self.to(place, what, *words, earcon=earcon, steps=1)

    def _first_of_the_last_window(self, path):
        """From which place of a path on the pointer stays over the window at its end."""
        first = len(path) - 1
        window = self._window_at(*path[-1])
        while first and self._window_at(*path[first - 1]) == window:
            first -= 1
        return first

    def to_and_fro(self, what, first, second, times):
        """Jumps between two places, each with what is said there, without a rest. The pauses differ, so that the moves come
        early and late between two ticks. On a busy machine a place that the pointer had left was once named again just before
        it came back there, and so not then; it then comes from the other place once more."""
        self.stops.append((now(), *first[0], what))
        for turn in range(times):
            (place, words), (other, _) = (second, first) if turn % 2 else (first, second)

            def come_again(there=other, back=place):
                self._come_from(there, back)

            since = now()
            self.hand.move(*place)
            if not self.hears(what, words, since=since, came=since, ask_again=come_again):
                break
            time.sleep(turn * 7 % 30 / 1000)
        self.settle()

    def _come_from(self, other, place):
        """Jumps to another place, long enough to be seen there, and then to the place itself; when it came to it."""
        self.hand.move(*other)
        time.sleep(2 * TICK)
        came = now()
        self.hand.move(*place)
        return came

    def hears(self, what, *words, since, came=None, ask_again=None):
        """Whether all the words were said; words in quotation marks are a whole utterance. came: when the pointer came onto
        what they name; ask_again has it named anew, which a nudge does unless another way is given."""
        def line_with(word):
            def said(limit):
                return self._line_with(word, since, limit)

            return self._in_turns(said, ask_again or self.nudge) if came else said(LIMIT)

        found = [line_with(word) for word in words]
        lines = [line for line in found if line]
        if came and lines and min(line["t"] for line in lines) >= came:
            self.namings.append((came, min(lines, key=lambda line: line["t"])))
        for word, line in zip(words, found):
            if not line:
                self.missed.append(f"{what}: \"{word}\"; instead {self.heard.words(since)}")
        return len(lines) == len(words)

    def _in_turns(self, question, ask_again):
        """What question gives, which waits as long as it is told. What another program has not answered in time, as on a very
        busy machine, it is asked again only when the pointer moves."""
        answer = question(LIMIT / TURNS)
        for _ in range(1, TURNS):
            if not answer:
                ask_again()
                self.nudges.append((now(), *self.hand.position(), "once more"))
                answer = question(LIMIT / TURNS)
        return answer

    def _line_with(self, word, since, limit):
        def says(line):
            return "text" in line and word.lower() in f'"{line["text"].strip()}"'.lower()

        try:
            return self.heard.wait(says, limit, since)
        except AssertionError:
            return None

    def _hears_earcon(self, what, earcon, since, start):
        """A row or an icon sounds only when another one was the last, and that may have been one of the same number on the way
        here. So the place is come to again from a row below or above it, or from where the glide began."""
        x, y = place = self.hand.position()
        others = itertools.cycle([(x, y + ASIDE), (x, y - ASIDE), start])

        def come_again():
            nonlocal since
            since = self._come_from(next(others), place)

        def struck():
            return any(on and channel == EARCON_CHANNEL and note & DATA == EARCONS[earcon] & DATA
                       for _, on, channel, note, _ in tones.notes(self.heard.lines(since)))

        def strikes(limit):
            with contextlib.suppress(AssertionError):
                return wait_until(struck, limit, earcon)
            return False

        if not self._in_turns(strikes, come_again):
            self.missed.append(f"{what}: the sound of {earcon}; instead nothing")

    def _hears_tones(self, what):
        due = tones.notes_at(*self.hand.position())
        self._must_come(lambda: tones.sounding(self.heard.lines())[0] == due, what, f"the notes {due}",
                        lambda: tones.sounding(self.heard.lines())[0])

    def _must_come(self, question, what, expected, instead):
        try:
            wait_until(question, LIMIT, expected)
        except AssertionError:
            self.missed.append(f"{what}: {expected}; instead {instead()}")

    def settle(self):
        """Until the pointer rests, which ends its tones."""
        wait_until(lambda: not tones.sounding(self.heard.lines())[1], LIMIT, "the tones end")

    def nudge(self):
        """One pixel aside, so that a resting pointer is described again."""
        x, y = self.hand.position()
        self.hand.move(x - 1 if x % 2 else x + 1, y)

    def clicks(self, what, words, double=False):
        since = now()
        (self.hand.double_click if double else self.hand.click)()
        self.stops.append((since, *self.hand.position(), what))
        self.hears(what, words, since=since)
        self.hears_out()

    def asks(self, what, *words, shift=False):
        """Control over the object, or Control with Shift for the top window."""
        self._again_until_said(what, words, lambda: self.hand.held(*(["shift"] if shift else []), "ctrl"))

    def right_clicks(self, what, *words):
        self._again_until_said(what, words, self._clicking_on_the_move)

    def _again_until_said(self, what, words, act):
        """For what is only answered, or not answered, while the object is being described: a pointer that moves is described
        at every tick, and what came too early or too late is done again."""
        self.stops.append((now(), *self.hand.position(), what))
        for _ in range(TURNS):
            self.nudge()
            time.sleep(2 * TICK)  # seen, and not yet at rest
            since = now()
            with act():
                if self._line_with(words[0], since, LIMIT / TURNS):
                    break
        self.hears(what, *words, since=since)
        self.hears_out()

    @contextlib.contextmanager
    def _clicking_on_the_move(self):
        self.hand.click("right")
        for _ in range(CLICK_TICKS):
            self.nudge()
            time.sleep(TICK)
        yield

    def spells(self, place, what, *words):
        with self.hand.held("shift"):
            self.to(place, what, *words)

    def hears_out(self):
        """Until what the program speaks to its end, with everything else waiting, is over."""
        def over():
            speech = [line for line in self.heard.lines() if line["what"].endswith((" speak", " speak over"))]
            return not speech or speech[-1]["what"].endswith(" over") or speech[-1]["flags"] != SPEAK_TO_THE_END

        wait_until(over, LONGEST_TEXT, "the end of what is spoken")

    def rests(self, what):
        """Soon nothing sounds any more."""
        def silent():
            sounds = [line for line in self.heard.lines() if line["what"] == "midi" or line["what"].endswith(" speak")]
            last = sounds[-1] if sounds else None
            return not last or now() - last["t"] > SILENCE * 1e6

        self.hears_out()

        self._must_come(silent, what, "silence", lambda: self.heard.lines()[-5:])
