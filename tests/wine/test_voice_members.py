"""The members of both engines, called by name as Pointalk calls them."""

import subprocess

from companions import (DISPATCH, PREFIX, PREFIX_TOOL, SAPI4, SAPI4_INTERFACE, SAPI5, SAPI5_INTERFACE, UNKNOWN, VOICE,
                        ENDLESS, HOUR, CompanionTest, awaited, create, speak)

STOP = 1  # a state of an audio device


class Sapi5Members(CompanionTest):
    def test_created_by_any_of_its_interfaces(self):
        for interface in (SAPI5_INTERFACE, UNKNOWN, DISPATCH):
            created, rate = self.voice(create("v", SAPI5, interface), ("call", "v", "Rate"))
            self.assertTrue(created.worked, interface)
            self.assertEqual(rate.value, "whole 0")

    def test_names_are_found_in_any_case(self):
        names = ("Rate", "rATE", "voice", "VOICE", "speak")
        _, *found = self.voice(create("v"), *(("ids", "v", name) for name in names))
        self.assertTrue(all(answer.worked for answer in found), found)
        self.assertEqual(self.voice(create("v"), ("ids", "v", "Nonsense"))[1].result, "80020006")

    def test_rate_and_volume_go_round(self):
        for member, line in (("Rate", "sapi5 rate"), ("Volume", "sapi5 volume")):
            _, *answers = self.voice(create("v"), ("put", "v", member, "i:7"), ("call", "v", member),
                                     ("put", "v", member, "d:2.5"), ("call", "v", member),
                                     ("put", "v", member, "s:-4"), ("call", "v", member),
                                     ("put", "v", member, "s:loud"), ("call", "v", member))
            self.assertEqual([answer.value for answer in answers[1::2]],
                             ["whole 7", "whole 2", "whole -4", "whole -4"])
            self.assertEqual([answer.worked for answer in answers[0::2]], [True, True, True, False])
            self.assertEqual([(heard["how"], heard["value"]) for heard in self.heard(line)],
                             [("put", 7), ("get", 7), ("put", 2), ("get", 2), ("put", -4), ("get", -4), ("put", -4),
                              ("get", -4)])

    def test_three_voices_are_listed(self):
        _, listed, count, *answers = self.voice(
            create("v"), ("into", "list", "v", "GetVoices"), ("call", "list", "Count"),
            *(command for index in range(3) for command in
              (("into", "one", "list", "Item", f"i:{index}"), ("call", "one", "GetDescription"))),
            ("call", "one", "GetDescription", "i:0"), ("into", "again", "v", "GetVoices", "s:", "s:"),
            ("call", "again", "Count"))
        self.assertTrue(listed.worked)
        self.assertEqual(count.value, "whole 3")
        self.assertEqual([answer.value for answer in answers[1:6:2]],
                         ["text Microsoft Mary", "text Microsoft Mike", "text Microsoft Sam"])
        self.assertEqual(answers[6].value, "text Microsoft Sam")
        self.assertEqual(answers[8].value, "whole 3")

    def test_an_index_outside_the_list_fails(self):
        _, _, below, above, missing = self.voice(
            create("v"), ("into", "list", "v", "GetVoices"), ("call", "list", "Item", "i:-1"),
            ("call", "list", "Item", "i:3"), ("call", "list", "Item"))
        self.assertFalse(below.worked or above.worked or missing.worked)

    def test_the_voice_is_assigned_by_reference(self):
        answers = self.voice(create("v"), ("into", "list", "v", "GetVoices"), ("into", "mike", "list", "Item", "i:1"),
                             ("putref", "v", "voice", "o:mike"), ("into", "now", "v", "Voice"),
                             ("call", "now", "GetDescription"), ("putref", "v", "voice", "o:list"),
                             ("put", "v", "VOICE", "o:mike"), ("putref", "v", "voice", "i:1"))
        self.assertTrue(answers[3].worked)
        self.assertEqual(answers[5].value, "text Microsoft Mike")
        self.assertEqual([answer.worked for answer in answers[6:]], [False, True, False])
        line = self.heard("sapi5 voice")[0]
        self.assertEqual((line["how"], line["index"], line["description"]), ("putref", 1, "Microsoft Mike"))

    def test_calls_that_the_engine_does_not_have_fail(self):
        _, *answers = self.voice(create("v"), ("put", "v", "Speak", "s:x"), ("call", "v", "Speak"),
                                 ("put", "v", "GetVoices", "i:1"), ("call", "v", "Speak", "s:x", "s:flags"))
        self.assertFalse(any(answer.worked for answer in answers), answers)
        self.assertEqual(self.heard("sounding"), [])

    def test_a_text_left_with_default_flags_may_be_any_value(self):
        _, number, left_out = self.voice(create("v"), ("call", "v", "Speak", "i:42", "i:1"),
                                         ("call", "v", "Speak", "s:x", "x:"))
        self.assertTrue(number.worked and left_out.worked)
        first, second = self.heard("sapi5 speak")
        self.assertEqual((first["text"], first["given"], second["given"]), ("42", True, False))

    def test_its_output_does_what_the_environment_says(self):
        asked, stopped = ("sapi5 output", None), ("sapi5 output state", STOP)
        for does, failing, lines in ((None, "voice", []), ("refused", "stream", [asked]), ("file", "audio", [asked]),
                                     ("stuck", "state", [asked, stopped]), ("audio", "none", [asked, stopped])):
            with self.subTest(does=does):
                self.heard_file.unlink(missing_ok=True)
                if does is not None:
                    self.environment["POINTALK_SAPI5_OUTPUT"] = does
                _, answer = self.voice(create("v"), ("output", "v", str(STOP)))
                self.assertEqual((answer.value, answer.worked), (failing, failing == "none"))
                self.assertEqual([(line["what"], line.get("state")) for line in self.heard("sapi5 output", "sapi5 output state")],
                                 lines)

    def test_creation_and_release_are_written_down(self):
        self.voice(create("v"), ("release", "v"))
        self.assertEqual([(line["what"], line["class"]) for line in self.heard()],
                         [("created", "sapi5"), ("released", "sapi5")])


class Sapi4Members(CompanionTest):
    def four(self, *commands):
        return self.voice(create("v", SAPI4, SAPI4_INTERFACE), *commands)[1:]

    def test_speed_keeps_fractions(self):
        answers = self.four(("call", "v", "Speed"), ("put", "v", "Speed", "i:162"), ("call", "v", "Speed"),
                            ("put", "v", "speed", "d:170.5"), ("call", "v", "Speed"))
        self.assertEqual([answer.value for answer in answers[0::2]], ["whole 150", "whole 162", "real 170.500000"])
        self.assertEqual([line["value"] for line in self.heard("sapi4 speed")], [150, 162, 162, 170.5, 170.5])

    def test_both_volumes(self):
        answers = self.four(("put", "v", "VolumeLeft", "i:60"), ("put", "v", "VolumeRight", "i:40"),
                            ("call", "v", "VolumeLeft"), ("call", "v", "VolumeRight"))
        self.assertEqual([answer.value for answer in answers[2:]], ["whole 60", "whole 40"])
        self.assertEqual([line["what"] for line in self.heard()[1:3]], ["sapi4 volume left", "sapi4 volume right"])

    def test_find_and_select(self):
        answers = self.four(("call", "v", "Find", "s:Mfg=Microsoft;Gender=1"),
                            ("call", "v", "Find", "s:Mfg=Microsoft;Gender=0"), ("call", "v", "Find", "s:Mfg=Nobody"),
                            ("call", "v", "Select", "i:2"), ("call", "v", "Select", "i:0"),
                            ("call", "v", "Select", "i:4"))
        self.assertEqual([answer.value for answer in answers[:2]], ["whole 1", "whole 2"])
        self.assertEqual([answer.worked for answer in answers], [True, True, False, True, False, False])
        self.assertEqual([(line["criteria"], line["number"]) for line in self.heard("sapi4 find")][:2],
                         [("Mfg=Microsoft;Gender=1", 1), ("Mfg=Microsoft;Gender=0", 2)])

    def test_speak_queues_and_audio_reset_silences(self):
        self.sound_for(HOUR, ENDLESS)
        spoke, _, reset, _ = self.four(speak(ENDLESS), awaited("sounding"), ("call", "v", "AudioReset"), awaited("cut"))
        self.assertTrue(spoke.worked and reset.worked)
        self.assertEqual(self.order()[1:], [("sapi4 speak", 1), ("sounding", 1), "sapi4 audio reset", ("cut", 1)])
        self.assertEqual(self.only("sapi4 speak")["text"], ENDLESS)

    def test_whether_it_speaks_can_be_asked_unless_it_does_not_tell(self):
        self.sound_for(HOUR, ENDLESS)
        speaking = ("call", "v", "Speaking")
        before, _, during, *_, after = self.four(speaking, speak(ENDLESS), speaking, ("call", "v", "AudioReset"), awaited("cut"),
                                                 ("leaves", "v", "Speaking", "true"))
        self.assertEqual([answer.value for answer in (before, during, after)], ["false", "true", "false"])
        self.environment["POINTALK_SAPI4_SPEAKING"] = "untold"
        self.assertFalse(self.four(speaking)[0].worked)

    def test_the_last_word_position_moves_on_and_can_be_put_back(self):
        text, inside = "one two three four five six seven eight nine ten", 2
        self.sound_for(10, "one two")
        get, left = ("call", "v", "LastWordPosition"), lambda position: ("leaves", "v", "LastWordPosition", f"whole {position}")
        answers = self.four(get, speak(text), left(0), ("put", "v", "LastWordPosition", f"i:{inside}"), get, left(inside),
                            speak("alone"), get)
        before, middle, put, later, anew = (int(answers[i].value.split()[1]) for i in (0, 2, 4, 5, 7))
        begins = {0, *(at + 1 for at, letter in enumerate(text) if letter == " ")}
        self.assertEqual((before, anew), (0, 0))
        self.assertIn(middle, begins)
        self.assertIn(put, {inside} | {begin for begin in begins if begin > middle})  # a word more may have been said
        self.assertIn(later, begins)
        self.assertGreater(later, middle)
        hows = [line["how"] for line in self.heard("sapi4 last word position")]
        self.assertEqual((hows.count("put"), set(hows)), (1, {"get", "put"}))


class WhichEngines(CompanionTest):
    @staticmethod
    def engines(which, prefix=PREFIX):
        subprocess.run([PREFIX_TOOL, "engines", prefix, which, VOICE], check=True, timeout=90, stdin=subprocess.DEVNULL)

    def created(self):
        return [answer.worked for answer in self.voice(create("five"), create("four", SAPI4, SAPI4_INTERFACE))]

    def test_an_engine_is_there_when_it_is_registered(self):
        self.addCleanup(self.engines, "both")
        for which, expected in (("sapi5", [True, False]), ("sapi4", [False, True]), ("none", [False, False]),
                                ("both", [True, True])):
            self.engines(which)
            self.assertEqual(self.created(), expected, which)

    def test_an_unknown_choice_is_refused(self):
        for arguments in (["engines", PREFIX, "sapi6", VOICE], ["engines", PREFIX], ["nothing"], []):
            outcome = subprocess.run([PREFIX_TOOL, *arguments], timeout=60, stdin=subprocess.DEVNULL,
                                     stderr=subprocess.PIPE, check=False)
            self.assertEqual(outcome.returncode, 2)
            self.assertIn(b"prefix.sh make PREFIX", outcome.stderr)

    def test_a_copy_never_overwrites(self):
        outcome = subprocess.run([PREFIX_TOOL, "copy", PREFIX, self.folder], timeout=60, stdin=subprocess.DEVNULL,
                                 stderr=subprocess.DEVNULL, check=False)
        self.assertEqual(outcome.returncode, 1)
        self.assertEqual(list(self.folder.iterdir()), [self.waves])
