"""What the tests of the whole program share: a Pointalk that runs beside a stand-in, and what it must sound like."""

import functools
import time
import unittest
import warnings
import wave

from harness import Desktop, settings_text, visit, wait_until
from tones import HIGHER, LOWER, notes_at

SETTINGS = settings_text(VerticalVolume=60, HorizontalVolume=60, DoDingVolume=60)
GREETING = "Pointalk is running.  Hit F1 any time for help."
QUICK = {"POINTALK_ESPEAK": "true"}  # speech that takes no time
REST = 0.4            # seconds after which a still pointer rests where the machine has nothing else to do: eleven ticks
SOON = 100            # seconds after which what has not come never will
TURNS = 4             # of a test whose program may answer too late

EARCON = 12
EARCONS = {"NewWindow": (45, 231, 127), "OffVisibleArea": (45, 200, 105), "ListBoxHit": (45, 204, 105),
           "OffIcon": (45, 223, 110), "NewIcon": (45, 226, 117)}


def voice_that_takes(seconds, desktop, word=""):
    """The environment of a voice whose texts with that word sound for so long; the others take no time."""
    sound, speaker = desktop.folder / f"{seconds}.wav", desktop.folder / f"{seconds}{word}"
    with wave.open(str(sound), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(1)
        file.setframerate(10)
        file.writeframes(bytes(int(10 * seconds)))
    speaker.write_text(f'#!/bin/sh\ngrep -q "{word}" "${{13}}" && cp "{sound}" "${{15}}"\ntrue\n', "utf-8")
    speaker.chmod(0o755)
    return {"POINTALK_ESPEAK": str(speaker)}


def program(channel, instrument):
    return 0xC0 + channel + instrument * 256


def note_on(channel, note, velocity):
    return 0x90 + channel + note * 256 + velocity * 65536


def note_off(channel, note, velocity):
    return 0x80 + channel + note * 256 + velocity * 65536


def earcon(name):
    """The two messages with which an event sound begins."""
    instrument, note, velocity = EARCONS[name]
    return [program(EARCON, instrument), note_on(EARCON, note, velocity)]


def start(hand, pointalk, place=(1000, 600), **environment):
    """Starts Pointalk with the pointer out of the way and returns once its timer runs."""
    hand.move(*place)
    pointalk.start(**environment)
    pointalk.wait_running()


def again_where_late(test):
    """For a test that looks at everything that was said: a control that does not answer within 100 ms is told otherwise than one
    that does, and on a very busy machine any may be late. So it is tried again, TURNS times in all; what is wrong fails always."""
    @functools.wraps(test)
    def in_turns(self):
        for turn in range(TURNS):
            try:
                return test(self)
            except AssertionError as error:
                if turn == TURNS - 1:
                    raise
                warnings.warn(f"tried again: {error}", stacklevel=1)  # the step's log has it
                self.doCleanups()
                self.setUp()
    return in_turns


class Listening(unittest.TestCase):
    """A desktop, a stand-in where layouts are named, and a Pointalk that runs for all tests of the class."""

    layouts = ()
    settings = SETTINGS
    environment = {}
    away = (1000, 600)  # where the pointer waits

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True))
        cls.hand = cls.enterClassContext(cls.desktop.hand())
        if cls.layouts:
            cls.target = cls.enterClassContext(cls.desktop.target(*cls.layouts))
        cls.pointalk = cls.enterClassContext(cls.desktop.pointalk(cls.settings))
        cls.heard = cls.pointalk.heard
        start(cls.hand, cls.pointalk, cls.away, **cls.environment)

    def visit(self, place, words, limit=SOON):
        """Moves the pointer there, waits for the words, and returns the time just before the move."""
        return self.visit_until(place, lambda text: text == words, words, limit)

    def visit_until(self, place, wanted, what, limit=SOON):
        """As visit, for any text that is wanted."""
        return visit(self.hand, self.heard, place, wanted, what, limit)

    def last_notes(self):
        """The note that each of the two tones had last."""
        return {message & 0xF: message >> 8 & 0xFF for message in self.heard.midi()
                if message & 0xFF in (0x90 + HIGHER, 0x90 + LOWER)}

    def point(self, place):
        """Moves the pointer there and waits for the notes of the place."""
        self.hand.move(*place)
        wait_until(lambda: self.last_notes() == notes_at(*place), SOON, lambda: f"{notes_at(*place)}: {self.last_notes()}")

    def rest(self):
        """Until the pointer rests, which ends the tones."""
        time.sleep(REST)
        lower = lambda: [message for message in self.heard.midi() if message & 0xFF in (0x80 + LOWER, 0x90 + LOWER)]
        wait_until(lambda: lower()[-1:] and lower()[-1] & 0xF0 == 0x80, SOON, "the pointer rests")

    def leave(self):
        """Away from everything, until the pointer rests there."""
        self.point(self.away)
        self.rest()

    def speech(self, since):
        """Flags and texts; the blanks that cut off what is being said are left out."""
        return [(line["flags"], line["text"]) for line in self.heard.lines(since)
                if line["what"] == "sapi5 speak" and line["text"].strip()]

    def earcons(self, since):
        """The event sounds begun since then, by their names."""
        names = {note_on(EARCON, note, velocity): name for name, (_, note, velocity) in EARCONS.items()}
        return [names.get(message, hex(message)) for message in self.heard.midi(since)
                if message & 0xFF == 0x90 + EARCON]
