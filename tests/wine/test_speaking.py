"""When the voice's Speak returns, what it cuts off, and what can be heard of it."""

import math
import pathlib
import shutil
import unittest

from companions import (ASYNCHRONOUS, ENDLESS, GUARDED, HELPER_LIMIT, HOUR, PURGE, CompanionTest, awaited, create, helper_folders,
                        left_behind, loudest, poll, speak)

SENTENCE = "This sentence takes a little while to say."
SAID = ("sapi5 speak", "sounding", "spoken", "cut", "silent", "sapi5 speak over")


class SpeakReturns(CompanionTest):
    def setUp(self):
        super().setUp()
        self.sound_for(HOUR, ENDLESS)

    def test_without_flags_when_the_text_has_been_spoken(self):
        self.voice(create("v"), speak(SENTENCE))
        self.assertEqual(self.order(*SAID), [("sapi5 speak", 1), ("sounding", 1), ("spoken", 1), ("sapi5 speak over", 1)])
        self.assertEqual(self.only("spoken")["sounded"], self.only("sounding")["length"])
        line = self.only("sapi5 speak")
        self.assertEqual((line["flags"], line["given"], line["text"]), (0, False, SENTENCE))

    def test_without_flags_after_what_is_already_playing(self):
        self.voice(create("v"), speak("One, two, three.", ASYNCHRONOUS), speak("Four.", 0))
        self.assertEqual(self.order(*SAID[1:]),
                         [("sounding", 1), ("spoken", 1), ("sounding", 2), ("spoken", 2), ("sapi5 speak over", 2)])

    def test_at_once_when_asynchronous(self):
        for flags in (ASYNCHRONOUS, ASYNCHRONOUS | PURGE):
            with self.subTest(flags=flags):
                self.heard_file.unlink(missing_ok=True)
                _, spoke, *_ = self.voice(create("v"), speak(ENDLESS, flags), awaited("sounding"), ("put", "v", "Rate", "i:0"),
                                          speak(" ", 3), awaited("cut"))
                self.assertTrue(spoke.worked)
                self.assertEqual(self.order(*SAID, "sapi5 rate"),
                                 [("sapi5 speak", 1), ("sounding", 1), "sapi5 rate", ("sapi5 speak", 2), ("cut", 1)])

    def test_after_a_purge_only_its_own_text_is_waited_for(self):
        self.voice(create("v"), speak(ENDLESS, ASYNCHRONOUS), awaited("sounding"), speak("Yes.", PURGE))
        self.assertEqual(self.order(*SAID), [("sapi5 speak", 1), ("sounding", 1), ("sapi5 speak", 2), ("cut", 1),
                                             ("sounding", 2), ("spoken", 2), ("sapi5 speak over", 2)])

    def test_whether_all_is_said_can_be_asked(self):
        done = ("call", "v", "WaitUntilDone", "i:0")
        answers = self.voice(create("v"), done, speak(ENDLESS, ASYNCHRONOUS), done, speak("Yes.", ASYNCHRONOUS | PURGE),
                             ("call", "v", "WaitUntilDone", "i:-1"), done)
        self.assertEqual([answers[place].value for place in (1, 3, 5, 6)], ["true", "false", "true", "true"])
        self.assertEqual(self.order("spoken"), [("spoken", 2)])
        self.assertEqual([(line["limit"], line["done"]) for line in self.heard("sapi5 wait until done")],
                         [(0, True), (0, False), (-1, True), (0, True)])

    def test_never_from_a_text_that_the_environment_names(self):
        self.environment["POINTALK_SAPI5_HANGS"] = "never"
        hung = self.start_voice([create("v"), speak("Yes.", ASYNCHRONOUS), speak("It never ends.", ASYNCHRONOUS)])
        poll(lambda: len(self.heard("sapi5 speak")) == 2, 100, "second text")
        self.voice(create("v"), speak(" ", ASYNCHRONOUS))  # in which the other would have come back
        self.assertIsNone(hung.poll())
        self.end(hung)
        self.assertEqual(len(hung.stdout.read().splitlines()), 2)
        self.assertEqual(["utterance" in line for line in self.heard("sapi5 speak")], [True, False, True])

    def test_at_once_for_a_blank(self):
        _, *spoke = self.voice(create("v"), *(speak(text, flags) for text in ("", " ", "\u00a0  ") for flags in (0, 2)))
        for answer in spoke:
            self.assertTrue(answer.worked)
        self.assertEqual(len(self.heard("sapi5 speak")), 6)
        self.assertEqual(self.heard("sounding", "spoken", "cut", "silent"), [])


class Purging(CompanionTest):
    def setUp(self):
        super().setUp()
        self.sound_for(HOUR, ENDLESS)

    def test_a_blank_silences_at_once(self):
        self.voice(create("v"), speak(ENDLESS, ASYNCHRONOUS), awaited("sounding"), speak(" ", 3), awaited("cut"))
        self.assertEqual(self.order(*SAID), [("sapi5 speak", 1), ("sounding", 1), ("sapi5 speak", 2), ("cut", 1)])

    def test_what_was_queued_is_never_heard(self):
        self.voice(create("v"), speak(ENDLESS, ASYNCHRONOUS), speak("Queued.", ASYNCHRONOUS), awaited("sounding"),
                   speak("Last.", PURGE))
        self.assertEqual(self.order(*SAID[1:]), [("sounding", 1), ("cut", 1), ("cut", 2), ("sounding", 3), ("spoken", 3),
                                                 ("sapi5 speak over", 3)])

    def test_a_storm_of_purges_leaves_the_last_text(self):
        storm = [speak(text, 3) for number in range(150) for text in (" ", f"{ENDLESS} Object number {number}")]
        self.voice(create("v"), *storm, speak("The last one", 2))
        self.assertEqual(len(self.heard("sapi5 speak")), 301)
        self.assertEqual(len(self.heard("cut")), 150)
        self.assertEqual(self.only("spoken")["utterance"], self.heard("sapi5 speak")[-1]["utterance"])

    def test_releasing_the_voice_silences_it(self):
        self.voice(create("v"), speak(ENDLESS, ASYNCHRONOUS), awaited("sounding"), ("release", "v"), awaited("released"))
        self.assertEqual(self.order(*SAID), [("sapi5 speak", 1), ("sounding", 1), ("cut", 1)])
        self.assertEqual(self.only("released")["class"], "sapi5")


class Sound(CompanionTest):
    def loudness(self, line):
        samples = self.wave_samples(line)
        return math.sqrt(sum(sample * sample for sample in samples) / len(samples))

    def test_the_wave_that_is_kept_is_what_sounds(self):
        self.voice(create("v"), speak(SENTENCE))
        sounding = self.only("sounding")
        self.assertEqual(self.wave_microseconds(sounding), sounding["length"])
        self.assertGreater(self.loudness(sounding), 100)

    @unittest.skipUnless(shutil.which("aplay"), "aplay is not installed")
    def test_the_machines_sound_device_plays_it(self):
        recording = self.record_loudspeaker()
        self.voice(create("v"), speak("Hello"))
        self.assertGreater(loudest(recording), 1000)
        self.assertEqual(self.only("spoken")["sounded"], self.only("sounding")["length"])

    def test_the_rate_changes_how_much_there_is_to_hear(self):
        self.voice(create("v"), *(command for rate in (-10, 0, 10) for command in
                                  (("put", "v", "Rate", f"i:{rate}"), speak("One two three four five six"))))
        slow, middle, fast = (len(self.wave_samples(line)) for line in self.heard("sounding"))
        self.assertGreater(slow, middle * 1.5)
        self.assertGreater(middle, fast * 1.5)

    def test_the_volume_changes_the_loudness(self):
        self.voice(create("v"), *(command for volume in (100, 30, 0) for command in
                                  (("put", "v", "Volume", f"i:{volume}"), speak("One two three"))))
        loud, soft, mute = (self.loudness(line) for line in self.heard("sounding"))
        self.assertGreater(loud, soft * 1.5)
        self.assertGreater(soft, 10)
        self.assertLess(mute, 2)

    def test_the_voices_differ(self):
        self.voice(create("v"), ("into", "list", "v", "GetVoices"),
                   *(command for index in range(3) for command in (
                       ("into", "one", "list", "Item", f"i:{index}"), ("putref", "v", "Voice", "o:one"),
                       speak("Hello"))))
        waves = [tuple(self.wave_samples(line)) for line in self.heard("sounding")]
        self.assertEqual(len(set(waves)), 3)

    def test_any_text_is_spoken_as_text(self):
        texts = ["Grüße 日本語 \U0001F600 and so on", "--help", "-w /dev/null", "<speak>plain</speak>",
                 "[[h@'loU]] brackets", "return\rinside", "a\x01b \x07", "nul\0inside", "; rm -rf $HOME `date` 'x'"]
        answers = self.voice(create("v"), ("put", "v", "Rate", "i:8"), *(speak(text) for text in texts))
        self.assertTrue(all(answer.worked for answer in answers), answers)
        self.assertEqual([line["text"] for line in self.heard("sapi5 speak")], texts)
        self.assertEqual(len(self.heard("spoken")), len(texts))
        for line in self.heard("sounding"):
            self.assertGreater(len(self.wave_samples(line)), 1000)

    def test_phoneme_brackets_are_read_as_brackets(self):
        # Not in Mary's voice: sixty runs of espeak-ng 1.52 gave nine different sounds for one text there, in Mike's one.
        self.voice(create("v"), ("into", "list", "v", "GetVoices"), ("into", "mike", "list", "Item", "i:1"),
                   ("putref", "v", "Voice", "o:mike"), speak("[[h@'loU]]"), speak("[ [h@'loU]]"))
        marked, apart = self.heard("sounding")
        self.assertEqual(self.wave_samples(marked), self.wave_samples(apart))

    def test_a_very_long_text_sounds_in_parts_and_can_be_cut_off(self):
        self.sound_for(HOUR, "ten words")
        self.voice(create("v"), ("call", "v", "Speak", "r:10000:ten words. ", "i:1"), awaited("sounding"), speak("Done.", 2))
        self.assertEqual(len(self.heard("sapi5 speak")[0]["text"]), 110_000)
        self.assertEqual(self.order(*SAID), [("sapi5 speak", 1), ("sounding", 1), ("sapi5 speak", 2), ("cut", 1),
                                             ("sounding", 2), ("spoken", 2), ("sapi5 speak over", 2)])

    def test_a_long_text_is_said_in_parts_to_its_end(self):
        self.voice(create("v"), ("put", "v", "Rate", "i:10"), ("call", "v", "Speak", "r:38:Ten words. "))
        parts = self.heard("sounding")
        self.assertEqual([line["part"] for line in parts], [1, 2])
        self.assertEqual(self.only("spoken")["sounded"], sum(line["length"] for line in parts))


class WithoutSpeech(CompanionTest):
    def test_a_missing_program_is_silence(self):
        self.environment["POINTALK_ESPEAK"] = "/nowhere/espeak-ng"
        _, first, second = self.voice(create("v"), speak("Hello", 2), speak("Again", 0))
        self.assertTrue(first.worked and second.worked)
        self.assertEqual([line["utterance"] for line in self.heard("silent")],
                         [line["utterance"] for line in self.heard("sapi5 speak")])
        self.assertEqual(self.heard("sounding", "spoken"), [])

    def test_a_hung_program_ends_the_wait_and_is_ended(self):
        mark = self.folder / "pid"
        self.speech_program(f"echo $$ >{mark}; exec sleep 600")
        _, spoke = self.voice(create("v"), speak("Hello", 2))
        self.assertTrue(spoke.worked)
        self.assertEqual(self.order(*SAID), [("sapi5 speak", 1), ("silent", 1), ("sapi5 speak over", 1)])
        poll(lambda: not alive(int(mark.read_text())), 60, "end of the speech program")

    def test_a_hung_program_can_be_cut_off(self):
        mark, looked = self.folder / "pid", self.folder / "looked"
        self.speech_program(f"echo $$ >{mark}.whole; mv {mark}.whole {mark}; exec sleep 600")
        process = self.start_voice([create("v"), speak("Hello", 1), ("until", str(mark)), speak(" ", 2), ("until", str(looked))])
        poll(lambda: self.heard("cut"), 60, "cut")
        poll(lambda: not alive(int(mark.read_text())), 60, "end of the speech program")
        looked.touch()
        self.assertEqual([answer.worked for answer in self.answers(process, 60)], [True] * 5)
        self.assertEqual(self.order(*SAID), [("sapi5 speak", 1), ("sapi5 speak", 2), ("cut", 1), ("sapi5 speak over", 2)])


class Ends(CompanionTest):
    def test_nothing_stays_behind_when_the_client_is_killed_while_speaking(self):
        before = helper_folders()
        self.sound_for(HOUR, ENDLESS)
        process = self.start_voice([create("v"), speak(ENDLESS, 0)])
        poll(lambda: self.heard("sounding"), 60, "speech")
        folders = helper_folders() - before
        self.assertEqual(len(folders), 1)
        process.kill()
        process.wait(60)
        poll(lambda: not (folders & helper_folders()), HELPER_LIMIT, "end of the helper")

    def test_leaving_com_with_the_voice_speaking_is_no_crash(self):
        self.voice(create("v"), speak(SENTENCE, 1), awaited("sounding"), ("leave",), awaited("spoken"))
        self.assertEqual(self.order(*SAID), [("sapi5 speak", 1), ("sounding", 1), ("spoken", 1)])

    def test_nothing_is_left_after_a_normal_end(self):
        before, earlier = helper_folders(), left_behind()
        self.voice(create("v"), speak("Bye"))
        poll(lambda: helper_folders() <= before, HELPER_LIMIT, "end of the helper")
        poll(lambda: left_behind() <= earlier, GUARDED // 2, "end of what it started")


def alive(process_id):
    """An ended process that nobody has asked about is not alive."""
    try:
        status = pathlib.Path(f"/proc/{process_id}/stat").read_text("ascii", "replace")
    except OSError:
        return False
    return status.rpartition(")")[2].split()[0] != "Z"
