"""A start without a MIDI port: the question, its answers by keys, and what follows."""

import unittest

from harness import Desktop, Panel, now, wait_until
from listening import QUICK, SETTINGS, SOON

MIDI_BOX = "Can't find an available Midi Device; you may need to quit some other midi app"
MIDI_QUESTION = ("The Midi device is already in use by another program. If I were you I would quit from the other program "
                 "first. If the other program is not running anymore then you'll need to reboot to free up your midi port "
                 "again. Do you want to run without midi?")


class NoMidi(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True))
        cls.hand = cls.enterClassContext(cls.desktop.hand())
        cls.panel = Panel(cls.enterClassContext(cls.desktop.probe()), cls.hand)

    def kinds(self, *kinds):
        return [line for line in self.heard.lines() if line["what"] in kinds]

    def ask(self, key, **environment):
        """Starts where the port cannot be opened and answers the question."""
        self.hand.move(1000, 600)
        self.pointalk = self.enterContext(self.desktop.pointalk(SETTINGS))
        self.pointalk.start(**environment, **QUICK)
        self.heard = self.pointalk.heard
        box = self.panel.answer(MIDI_BOX, key)
        self.assertIn(MIDI_QUESTION, box["texts"])
        self.assertIn(MIDI_QUESTION + " Y for yes, N for No.", self.heard.words())

    def test_without_a_device_yes_goes_on_in_silence(self):
        self.ask("y", POINTALK_MIDI_DEVICES="0")
        self.pointalk.wait_running()
        since = now()
        self.hand.move(500, 300)
        self.hand.click()
        self.heard.wait_words("Click", SOON, since)
        self.assertEqual(self.kinds("midi"), [])
        self.assertEqual([line["result"] for line in self.kinds("midi open")], [68])  # the second time, and not told about

    def test_without_a_device_no_ends_the_program(self):
        self.ask("n", POINTALK_MIDI_DEVICES="0")
        self.pointalk.wait_for_end()
        self.assertEqual(self.kinds("midi open", "sound"), [])

    def test_a_port_in_use_is_left_to_others_with_yes_and_taken_later(self):
        self.ask("y", POINTALK_MIDI_OPEN="4,0")
        self.pointalk.wait_running()
        results = lambda: [line["result"] for line in self.kinds("midi open")]
        wait_until(lambda: len(results()) == 2, SOON, lambda: f"the port is opened again: {results()}")
        self.assertEqual(results(), [4, 0])
        since = now()
        self.hand.move(500, 300)
        self.heard.wait(lambda line: line["what"] == "midi" and line["result"] == 0, SOON, since)

    def test_a_port_in_use_ends_the_program_with_no_and_what_sounds_is_stopped(self):
        self.ask("n", POINTALK_MIDI_OPEN="4")
        self.pointalk.wait_for_end()
        sound, = self.kinds("sound")
        self.assertEqual((sound["name"], sound["module"], sound["flags"]), ("1", 1, 11))
