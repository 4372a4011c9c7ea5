"""Audio devices come and go while Pointalk runs: its MIDI port is opened anew, and the tones are heard again."""

import itertools
import time
import unittest

from harness import Desktop, Panel, wait_until
from listening import HIGHER, LOWER, QUICK, SETTINGS, SOON, start

AWAY = (1000, 600)
NO_DRIVER, NO_DEVICE, INVALID_HANDLE, NOT_READY = 6, 68, 5, 67
WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC = "0x218", 18
WM_DEVICECHANGE, DBT_DEVNODES_CHANGED = "0x219", 7
WOKEN, PLUGGED_IN = (WM_POWERBROADCAST, PBT_APMRESUMEAUTOMATIC, 0), (WM_DEVICECHANGE, DBT_DEVNODES_CHANGED, 0)
PORT = ("midi", "midi open", "midi close")
TURNS = 3
MORE_THAN_A_PAUSE = 200  # messages, in which a port whose device is gone is opened anew


def sounding(lines):
    """The notes that sound after these calls, each with its channel."""
    notes = set()
    for line in lines:
        value = int(line.get("value", "0"), 16)
        status, note, velocity = value & 0xF0, (value & 0x0F, value >> 8 & 0x7F), value >> 16 & 0x7F
        if line["what"] == "midi" and status in (0x80, 0x90) and line["result"] == 0:
            (notes.add if status == 0x90 and velocity else notes.discard)(note)
    return notes


class Devices(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(private=True))
        cls.hand = cls.enterClassContext(cls.desktop.hand())
        cls.probe = cls.enterClassContext(cls.desktop.probe())
        cls.panel = Panel(cls.probe, cls.hand, AWAY)

    def begin(self, **environment):
        self.pointalk = self.desktop.pointalk(SETTINGS)
        self.addCleanup(self.pointalk.kill)
        self.heard = self.pointalk.heard
        start(self.hand, self.pointalk, AWAY, **environment, **QUICK)
        self.pointalk.wait_ready()

    def port(self):
        """The calls about the port."""
        return [line for line in self.heard.lines() if line["what"] in PORT]

    def wander(self, until, what):
        """Moves the pointer to and fro until that has happened."""
        def look():
            look.step += 1
            self.hand.move(200 + look.step % 10 * 80, 100 + look.step % 7 * 90)
            return until()

        look.step = 0
        wait_until(look, SOON, lambda: f"{what}: {self.port()[-12:]}")

    def opened(self):
        return sum(line["what"] == "midi open" for line in self.port())

    def longest_refused(self):
        """How many messages were refused one after the other without the port being opened anew between them."""
        refused = (list(group) for is_refused, group in itertools.groupby(
            self.port(), lambda line: line["what"] == "midi" and line["result"] == NO_DEVICE) if is_refused)
        return max(map(len, refused), default=0)

    def rest(self):
        self.hand.move(*AWAY)
        wait_until(lambda: not sounding(self.port()), SOON, lambda: f"silence: {self.port()[-8:]}")

    def tell(self, message):
        self.assertTrue(self.probe.ask("send", self.panel.window()["hwnd"], *message)["answered"])

    def test_a_port_without_its_device_is_opened_anew_and_the_note_is_heard(self):
        for refusal in (NO_DRIVER, NO_DEVICE, INVALID_HANDLE):
            with self.subTest(refusal):
                self.begin(POINTALK_MIDI_LOSE=f"20,{refusal},9")
                refused = lambda: [index for index, line in enumerate(self.port()) if line.get("result") == refusal]
                self.wander(lambda: refused() and len(self.port()) > refused()[0] + 3, "refused")
                lines = self.port()[refused()[0]:][:4]
                self.assertEqual([line["what"] for line in lines], ["midi", "midi close", "midi open", "midi"])
                self.assertEqual([line["result"] for line in lines], [refusal, 0, 0, 0])
                self.assertEqual(lines[0]["value"], lines[3]["value"])
                self.wander(lambda: {HIGHER, LOWER} <= {channel for channel, _ in sounding(self.port()[refused()[0]:])},
                            "both tones")
                self.pointalk.kill()

    def test_a_device_that_stays_away_is_not_looked_for_with_every_message(self):
        self.begin(POINTALK_MIDI_LOSE=f"0,{NO_DEVICE},1000")
        # With a look at every message there would be two: the message that goes out once more, and the next one.
        self.wander(lambda: self.longest_refused() > 2, "refused without a look for the device")
        self.assertTrue(self.pointalk.running())

    def test_a_port_that_is_only_busy_stays(self):
        self.begin(POINTALK_MIDI_LOSE=f"0,{NOT_READY},1000")
        refused = lambda: sum(line.get("result") == NOT_READY for line in self.port())
        opened = []
        for _ in range(TURNS):
            before, due = self.opened(), refused() + MORE_THAN_A_PAUSE
            self.wander(lambda: refused() > due, "messages")
            opened.append(self.opened() - before)
            if not opened[-1]:
                break
        self.assertEqual(opened[-1], 0, f"{opened}; only news of devices, as at the start of a busy desktop, open it anew")

    def test_news_of_devices_open_the_port_anew_once_it_is_silent(self):
        self.begin()
        for message in (WOKEN, PLUGGED_IN):
            with self.subTest(message):
                self.hand.move(300, 300)
                wait_until(lambda: sounding(self.port()), SOON, "tones")
                self.hand.down()  # the tones go on while the button is held
                before = self.port()
                self.tell(message)
                time.sleep(2)
                self.hand.up()
                self.rest()
                wait_until(lambda: self.opened() > sum(line["what"] == "midi open" for line in before), SOON, "opened anew")
                lines = self.port()
                at = next(index for index in range(len(before), len(lines)) if lines[index]["what"] == "midi close")
                self.assertEqual([line["what"] for line in lines[at:at + 2]], ["midi close", "midi open"])
                self.assertEqual(sounding(lines[:at]), set())
                self.wander(lambda: len(sounding(self.port()[at + 2:])) > 1, "tones")
                self.rest()

    def test_news_of_devices_open_no_port_that_the_user_switched_off(self):
        self.begin()
        self.panel.open()
        self.panel.choose("Midi On/Off")
        wait_until(lambda: self.port()[-1]["what"] == "midi close", SOON, "closed")
        before = self.opened()
        self.tell(PLUGGED_IN)
        time.sleep(2)
        self.assertEqual(self.opened(), before)
