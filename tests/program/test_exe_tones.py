"""The two tones: that places of the screen and the settings reach the port, and when the tones end."""

import contextlib
import unittest

from harness import Desktop, now, settings_text, wait_until
from listening import HIGHER, LOWER, QUICK, REST, SOON, note_off, note_on, program, start

FILE_INSTRUMENTS = (12, 40)       # of the file's vertical and horizontal line; they trade places at every save
AWAY = (1000, 600)
MIDDLE, LEFT, BELOW_MIDDLE = (500, 384), (20, 384), (500, 700)
LEFT_BUTTON = 1                   # as a key


def struck(channel, note, velocity):
    """The two messages with which a tone begins."""
    instrument = dict(zip((HIGHER, LOWER), FILE_INSTRUMENTS))[channel]
    return [program(channel, instrument), note_on(channel, note, velocity)]


def ended(channel, note, velocity):
    return [0, note_off(channel, note, velocity)]


# In the format of two scales.
AT_MIDDLE = struck(LOWER, 47, 100) + struck(HIGHER, 83, 80)
END_AT_MIDDLE = ended(HIGHER, 83, 80) + ended(LOWER, 47, 100)


class Tones(unittest.TestCase):
    """Over the empty desktop, where nothing else sounds."""

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True))
        cls.hand = cls.enterClassContext(cls.desktop.hand())
        cls.probe = cls.enterClassContext(cls.desktop.probe())

    def run_format(self, melody_format, **more):
        settings = settings_text(VerticalVolume=80, HorizontalVolume=80, MouseMelodyFormat=melody_format,
                                 VerticalInstrument=FILE_INSTRUMENTS[0], HorizontalInstrument=FILE_INSTRUMENTS[1], **more)
        pointalk = self.enterContext(self.desktop.pointalk(settings))
        start(self.hand, pointalk, AWAY, **QUICK)
        self.heard = pointalk.heard

    def hears(self, messages, since):
        """Just these messages."""
        wait_until(lambda: len(self.heard.midi(since)) >= len(messages), SOON,
                   lambda: f"{messages} heard; heard {self.heard.midi(since)}")
        self.assertEqual(self.heard.midi(since), messages)

    def move(self, place, messages):
        """Moves and compares; returns the time of the move."""
        since = now()
        self.hand.move(*place)
        self.hears(messages, since)
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

    def test_a_place_has_two_notes_and_a_tone_whose_cell_stays_goes_on(self):
        self.run_format(1)
        with self.left_held():  # or a pointer that waits for the machine would rest
            self.move(MIDDLE, AT_MIDDLE)
            self.move(LEFT, ended(HIGHER, 83, 80) + struck(HIGHER, 76, 80))
            since = now()
        self.hears(ended(HIGHER, 76, 80) + ended(LOWER, 47, 100), since)

    def test_the_format_and_the_scaling_of_the_settings_are_played(self):
        self.run_format(2, KeyboardScaling=150)
        with self.left_held():
            self.move(BELOW_MIDDLE, struck(LOWER, 45, 62))
            since = now()
        self.hears(ended(LOWER, 45, 62), since)

    def test_nothing_is_heard_after_the_rest_until_the_pointer_moves(self):
        self.run_format(1)
        moved = now()
        self.hand.move(*MIDDLE)
        wait_until(lambda: self.heard.midi(moved) == AT_MIDDLE + END_AT_MIDDLE, SOON, lambda: f"{self.heard.midi(moved)}")
        since = now()
        self.click("left", "right")
        self.hand.move(MIDDLE[0] + 1, MIDDLE[1])  # within the cell: its notes are the last ones, and not struck again
        self.click("left", "right")
        self.assertEqual(self.heard.midi(since), [])
        with self.left_held():
            self.move(LEFT, struck(HIGHER, 76, 80))

    def test_a_held_button_keeps_the_tones_until_it_is_let_go(self):
        self.run_format(1)
        with self.left_held():
            self.move(MIDDLE, AT_MIDDLE)
            since = now()
            self.heard.stays_silent(5 * REST)
            self.assertEqual(self.heard.midi(since), [])
        self.hears(END_AT_MIDDLE, since)
