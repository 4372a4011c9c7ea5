"""The two tones: exact messages in all four formats, and when they end."""

import contextlib
import struct
import unittest

from harness import Desktop, now, settings_text, wait_until, written_scaling
from listening import HIGHER, LOWER, QUICK, REST, SOON, TWO_TONE_SCALE, cell, note_off, note_on, program, start

VOLUME, SCALING = 110, 150        # percent; loud and soft enough for both ends of the scale
FILE_INSTRUMENTS = (12, 40)       # of the file's vertical and horizontal line; they trade places at every save
AWAY = (1000, 600)
LEFT_BUTTON = 1                   # as a key

ONE_TONE_CHROMATIC = (0, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7, 8, 8, 9, 9, 10, 11)
ONE_TONE_SCALE = (0, 0, 2, 2, 2, 4, 4, 4, 5, 5, 5, 7, 7, 7, 9, 9, 9, 11, 11, 11)
OFFSETS = (
    lambda column, row: (column, row),
    lambda column, row: (TWO_TONE_SCALE[column], TWO_TONE_SCALE[row]),
    lambda column, row: (-1, 12 * (row // 4) + ONE_TONE_CHROMATIC[column]),
    lambda column, row: (-1, 12 * (row // 4) + ONE_TONE_SCALE[column]),
)
# The corners but the one where the minimised panel lies, both sides of a cell's edge, and places between.
PLACES = ((0, 0), (1023, 0), (1023, 767), (0, 700), (500, 384), (56, 384), (57, 384), (500, 41), (500, 42), (250, 250),
          (800, 130), (300, 600), (700, 480), (460, 20), (900, 300))


def single(number):
    return struct.unpack("f", struct.pack("f", number))[0]


class Expected:
    """What the port must be sent, move by move."""

    def __init__(self, melody_format):
        self.format = melody_format
        # The settings are read, saved and read again before the tones begin.
        self.scaling = single(float(written_scaling(SCALING)) / 100)
        self.instrument = {HIGHER: FILE_INSTRUMENTS[0], LOWER: FILE_INSTRUMENTS[1]}
        self.number, self.sounding, self.velocity = {HIGHER: 0, LOWER: 0}, {HIGHER: False, LOWER: False}, {}
        self.move(*AWAY)
        self.rest()  # the port is closed over the greeting

    def move(self, x, y):
        high, low = OFFSETS[self.format](*cell(x, y))
        louder = {HIGHER: VOLUME - self.scaling * 5 * high, LOWER: VOLUME + 20 - self.scaling * 5 * low}
        self.velocity = {channel: min(max(round(velocity), 0), 127) for channel, velocity in louder.items()}
        messages = []
        for channel, note in ((LOWER, 40 + low), (HIGHER, 76 + high))[:2 if self.format < 2 else 1]:
            if note != self.number[channel]:
                messages += self.stop(channel)
                messages += [program(channel, self.instrument[channel]), note_on(channel, note, self.velocity[channel])]
                self.number[channel], self.sounding[channel] = note, True
        return messages

    def stop(self, channel):
        if not self.sounding[channel]:
            return []
        self.sounding[channel] = False
        return [0, note_off(channel, self.number[channel], self.velocity[channel])]

    def rest(self):
        return self.stop(HIGHER) + self.stop(LOWER)


class Tones(unittest.TestCase):
    """Over the empty desktop, where nothing else sounds."""

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True))
        cls.hand = cls.enterClassContext(cls.desktop.hand())
        cls.probe = cls.enterClassContext(cls.desktop.probe())

    def run_format(self, melody_format):
        settings = settings_text(VerticalVolume=VOLUME, HorizontalVolume=VOLUME, KeyboardScaling=SCALING,
                                 MouseMelodyFormat=melody_format, VerticalInstrument=FILE_INSTRUMENTS[0],
                                 HorizontalInstrument=FILE_INSTRUMENTS[1])
        pointalk = self.enterContext(self.desktop.pointalk(settings))
        start(self.hand, pointalk, AWAY, **QUICK)
        self.heard = pointalk.heard
        self.expected = Expected(melody_format)
        return pointalk

    def hears(self, messages, since):
        """Just these messages."""
        wait_until(lambda: len(self.heard.midi(since)) >= len(messages), SOON,
                   lambda: f"{messages} heard; heard {self.heard.midi(since)}")
        self.assertEqual(self.heard.midi(since), messages)

    def move(self, place):
        """Moves and compares; returns the time of the move."""
        since = now()
        self.hand.move(*place)
        self.hears(self.expected.move(*place), since)
        return since

    @contextlib.contextmanager
    def left_held(self):
        """Begins when Wine has seen it: until then the pointer may go back to where the button was pressed."""
        self.hand.down()
        wait_until(lambda: self.probe.ask("key", LEFT_BUTTON)["down"], SOON, "the button is down")
        try:
            yield
        finally:
            self.hand.up()

    def click(self, *buttons):
        """Clicks, each of which is told after it has settled, so that ticks have gone by."""
        names = {"left": "Click", "right": "Right Click", "middle": "Middle Click"}
        for button in buttons:
            since = now()
            self.hand.click(button)
            self.heard.wait_words(names[button], SOON, since)

    def test_every_place_has_its_notes_and_velocities_in_every_format(self):
        for melody_format in range(4):
            with self.subTest(melody_format=melody_format):
                pointalk = self.run_format(melody_format)
                with self.left_held():  # or a pointer that waits for the machine would rest
                    for place in PLACES:
                        self.move(place)
                    since = now()
                ending = self.expected.rest()
                self.assertEqual(len(ending), 4 if melody_format < 2 else 2)
                self.hears(ending, since)
                pointalk.kill()  # only one runs in a session

    def test_nothing_is_heard_after_the_rest_until_the_pointer_moves(self):
        self.run_format(1)
        moved = self.move((500, 384))
        resting = self.expected.rest()
        wait_until(lambda: self.heard.midi(moved)[-4:] == resting, SOON, lambda: f"the end: {self.heard.midi(moved)}")
        since = now()
        self.click("left", "right")
        self.hand.move(501, 384)  # within the cell: its notes are the last ones, and not struck again
        self.click("left", "right")
        self.assertEqual(self.heard.midi(since), [])
        self.move((250, 250))

    def test_a_held_button_keeps_the_tones_until_it_is_let_go(self):
        self.run_format(0)
        with self.left_held():
            self.move((600, 200))
            since = now()
            self.heard.stays_silent(5 * REST)
            self.assertEqual(self.heard.midi(since), [])
        self.hears(self.expected.rest(), since)
