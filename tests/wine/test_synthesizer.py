"""The synthesizer's calls as they are written down, what it can pretend, and that it sounds."""

import contextlib
import shutil
import time
import unittest
from unittest import mock

from companions import HELPER_LIMIT, CompanionTest, awaited, create, helper_folders, loudest, poll, speak

A_SECOND = 44_100 * 2 * 2  # bytes of a recording


class WrittenDown(CompanionTest):
    def test_messages_keep_their_exact_values_and_order(self):
        values = ["4fcd", "513b9d", "0", "513b8d", "64e79c", "c8c3", "ffffffff", "80000000"]
        results = self.midi("open", *(f"short={value}" for value in values), "close")
        self.assertEqual(results, [0] * 10)
        self.assertEqual([line["value"] for line in self.heard("midi")], [f"0x{value}" for value in values])
        self.assertEqual([line["what"] for line in self.heard()], ["midi open"] + ["midi"] * 8 + ["midi close"])

    def test_opening_tells_its_arguments(self):
        self.assertEqual(self.midi("devices", "open", "caps", "reset", "close"), [1, 0, 0, 0, 0])
        line = self.only("midi open")
        self.assertEqual((line["result"], line["device"], line["callback"], line["instance"], line["flags"]),
                         (0, -1, 0, 0, 0))
        self.assertEqual(self.only("midi devices")["count"], 1)

    def test_a_closed_port_takes_nothing(self):
        self.assertEqual(self.midi("short=9d", "open", "close", "short=9d", "close"), [5, 0, 0, 5, 5])
        self.assertEqual([line["result"] for line in self.heard("midi")], [5, 5])

    def test_sounds_tell_name_module_and_flags(self):
        self.assertEqual(self.midi("sound=1", "wide=SystemAsterisk"), [1, 1])
        first, second = self.heard("sound")
        self.assertEqual((first["name"], first["module"], first["flags"]), ("1", 1, 11))
        self.assertEqual((second["name"], second["module"], second["flags"]), ("SystemAsterisk", 0, 1))

    def test_nothing_is_written_without_a_file(self):
        del self.environment["POINTALK_HEARD"]
        self.assertEqual(self.midi("open", "short=9d", "close"), [0, 0, 0])
        self.assertFalse(self.heard_file.exists())

    def test_the_clock_is_the_machines(self):
        before = time.clock_gettime_ns(time.CLOCK_MONOTONIC_RAW) // 1000
        self.midi("devices", "devices")
        after = time.clock_gettime_ns(time.CLOCK_MONOTONIC_RAW) // 1000
        first, second = (line["t"] for line in self.heard("midi devices"))
        self.assertTrue(before <= first <= second <= after, (before, first, second, after))

    def test_voice_and_synthesizer_share_a_file_and_a_clock(self):
        voice = self.start_voice([create("v"), speak("x", 3), awaited("midi"), *[speak("x", 3)] * 1999, speak("Over", 2)])
        poll(lambda: self.heard("sapi5 speak"), 60, "speech")
        midi = self.start_midi("open", *["short=0"] * 2000, "close")
        self.answers(midi, 200)
        self.answers(voice, 200)
        self.assertEqual(len(self.heard("midi")), 2000)
        self.assertEqual(len(self.heard("sapi5 speak")), 2001)
        order = [line["what"] for line in self.heard("sapi5 speak", "midi")]
        self.assertEqual(order[:2], ["sapi5 speak", "midi"])
        self.assertIn("sapi5 speak", order[2:])


class Pretending(CompanionTest):
    def test_no_devices(self):
        self.environment["POINTALK_MIDI_DEVICES"] = "0"
        self.assertEqual(self.midi("devices", "open"), [0, 68])
        self.assertEqual(self.only("midi open")["result"], 68)

    def test_results_of_opening(self):
        self.environment["POINTALK_MIDI_OPEN"] = "4,0,69"
        self.assertEqual(self.midi("open", "open", "close", "open", "open"), [4, 0, 0, 69, 0])

    def test_a_port_that_loses_its_device(self):
        self.environment["POINTALK_MIDI_LOSE"] = "2,6,1"
        messages = ["short=9d"] * 4
        self.assertEqual(self.midi("open", *messages, "close", "open", *messages), [0, 0, 0, 6, 6, 0, 0, 0, 0, 0, 0])
        self.assertEqual([line["result"] for line in self.heard("midi")], [0, 0, 6, 6, 0, 0, 0, 0])

    def test_slow_messages(self):
        slow = {"POINTALK_MIDI_DELAY": "600000"}
        with mock.patch.dict(self.environment, slow):
            process = self.start_midi("open", "short=9d", "short=0")
        poll(lambda: self.heard("midi"), 60, "the first message")
        self.midi("devices")
        self.assertEqual(self.only("midi")["value"], "0x9d")
        self.assertIsNone(process.poll())


@unittest.skipUnless(shutil.which("fluidsynth"), "FluidSynth is not installed")
class Sounding(CompanionTest):
    @contextlib.contextmanager
    def playing(self, *messages):
        """Plays them to FluidSynth, whose sound lands in the file that is given."""
        recording, over = self.record_loudspeaker(), self.folder / "over"
        before = helper_folders()
        process = self.start_midi("open", *messages, f"until={over}", "close")
        yield recording
        over.touch()
        self.assertEqual({answer.result for answer in self.answers(process, 60)}, {"0"})
        poll(lambda: helper_folders() <= before, HELPER_LIMIT, "end of FluidSynth")

    def test_a_note_is_heard(self):
        with self.playing("short=4fcd", "short=513b9d") as recording:
            poll(lambda: recording.exists() and loudest(recording) > 500, 60, "sound")

    def test_without_a_note_there_is_silence(self):
        with self.playing("short=4fcd", "short=0") as recording:
            poll(lambda: recording.exists() and recording.stat().st_size > A_SECOND, 60, "silence")
        self.assertLess(loudest(recording), 20)

    def test_a_data_byte_above_127_loses_its_high_bit(self):
        with self.playing("short=51bb9d") as recording:
            poll(lambda: recording.exists() and loudest(recording) > 500, 60, "sound")


class Ends(CompanionTest):
    def test_nothing_stays_behind_whenever_the_client_ends(self):
        before = helper_folders()
        for pause in ("sleep=300", "sleep=1500"):
            self.midi("open", pause)
        poll(lambda: helper_folders() <= before, HELPER_LIMIT, "end of the helpers")
