"""Proves that tools/check_rehearsals.py plays and compares what it is asked for, and folds start blocks without loss."""

import os
import unittest

from test_checks import CheckCase


class RehearsalCase(CheckCase):
    def rehearsal(self, name, golden, script="{}"):
        self.put(f"tests/rehearsals/{name}.json", script)
        self.put(f"tests/rehearsals/{name}.txt", golden)

    def golden(self, name):
        return (self.root / "tests" / "rehearsals" / f"{name}.txt").read_text(encoding="utf-8")

    def player(self, body, name="player"):
        self.put(name, f"#!/bin/sh\n{body}\n").chmod(0o755)

    def arguments(self, *names):
        return ["--root", self.root, "--program", self.root / "player", *names]


class Rehearsals(RehearsalCase):
    def setUp(self):
        super().setUp()
        self.rehearsal("tones/crosses", "midi 0x1\n")
        self.player("printf 'midi 0x1\\n'")

    def test_same_transcript(self):
        self.passes("check_rehearsals.py", *self.arguments())
        self.assertEqual(self.last_line, "1 passed, 0 failed")

    def test_other_transcript(self):
        self.player("printf 'midi 0x2\\n'")
        self.fails("check_rehearsals.py", *self.arguments(), because="+midi 0x2")

    def test_missing_golden(self):
        (self.root / "tests" / "rehearsals" / "tones" / "crosses.txt").unlink()
        self.fails("check_rehearsals.py", *self.arguments(), because="has no golden text")

    def test_crash(self):
        self.player("printf 'midi 0x1\\n'; kill -SEGV $$")
        self.fails("check_rehearsals.py", *self.arguments(), because="exit status -11")

    def test_refused_script(self):
        self.player("echo 'steps[0]: unknown' >&2; exit 2")
        self.fails("check_rehearsals.py", *self.arguments(), because="+! steps[0]: unknown")
        self.rehearsal("tones/crosses", "! steps[0]: unknown\n")
        self.passes("check_rehearsals.py", *self.arguments())

    def test_rebaseline(self):
        self.player("printf 'midi 0x2\\n'")
        self.passes("check_rehearsals.py", *self.arguments(), environment={"REBASELINE": "1"})
        self.assertEqual(self.golden("tones/crosses"), "midi 0x2\n")

    def test_no_rehearsal_at_all(self):
        (self.root / "tests" / "rehearsals" / "tones" / "crosses.json").unlink()
        self.assertEqual(self.run_tool("check_rehearsals.py", *self.arguments()), 1)

    def test_by_name(self):
        self.rehearsal("tones/stop", "midi 0x1\n")
        self.rehearsal("lists/labels", "midi 0x2\n")
        for name in ("crosses", "tests/rehearsals/tones/crosses.json", "crosses.txt"):
            with self.subTest(name):
                self.passes("check_rehearsals.py", *self.arguments(name))
                self.assertEqual(self.last_line, "1 passed, 0 failed")
        self.fails("check_rehearsals.py", *self.arguments("crosses", "labels"), because="FAILED: lists/labels.json")
        self.assertEqual(self.last_line, "1 passed, 1 failed")

    def test_by_folder(self):
        self.rehearsal("tones/stop", "midi 0x1\n")
        self.rehearsal("lists/labels", "midi 0x2\n")
        for names in (["tones"], ["tests/rehearsals/tones/"], ["tones", "crosses"]):
            with self.subTest(names):
                self.passes("check_rehearsals.py", *self.arguments(*names))
                self.assertEqual(self.last_line, "2 passed, 0 failed")

    def test_unknown_name(self):
        self.assertEqual(self.run_tool("check_rehearsals.py", *self.arguments("crosses", "cross")), 2)
        self.assertIn("no rehearsal and no folder of them is called cross\n", self.output)

    def test_newest_program(self):
        self.player("printf 'midi 0x1\\n'", "build/plain/pointalk-rehearse")
        self.passes("check_rehearsals.py", "--root", self.root)
        self.player("printf 'midi 0x2\\n'", "build/linux-asan-clang/pointalk-rehearse")
        os.utime(self.root / "build" / "plain" / "pointalk-rehearse", (1, 1))
        self.fails("check_rehearsals.py", "--root", self.root, because="+midi 0x2")

    def test_no_program(self):
        self.assertEqual(self.run_tool("check_rehearsals.py", "--root", self.root), 2)
        self.assertIn("no pointalk-rehearse is built", self.output)


class StartBlocks(RehearsalCase):
    """Here the script of a rehearsal is the transcript that its player prints."""

    USUAL = '> {"start":true}\nmidi 0x1\nsapi5 speak 3 "Hello"\n'
    FOLDED = '> {"start":true}\n(starts as usual)\n'
    REST = '> {"tick":1}\nmidi 0x2\n'

    def setUp(self):
        super().setUp()
        self.player('cat "$1"')
        self.rehearsal("starts/as-usual", self.USUAL, self.USUAL)

    def rebaselines(self, *names):
        self.passes("check_rehearsals.py", *self.arguments(*names), environment={"REBASELINE": "1"})

    def test_folded_golden(self):
        self.rehearsal("tones/twice", 2 * (self.FOLDED + self.REST), 2 * (self.USUAL + self.REST))
        self.passes("check_rehearsals.py", *self.arguments())
        self.passes("check_rehearsals.py", *self.arguments("twice"))

    def test_whole_golden(self):
        self.rehearsal("tones/crosses", self.USUAL + self.REST, self.USUAL + self.REST)
        self.passes("check_rehearsals.py", *self.arguments())

    def test_other_start_than_folded(self):
        self.rehearsal("tones/crosses", self.FOLDED + self.REST, self.USUAL + "midi 0x3\n" + self.REST)
        self.fails("check_rehearsals.py", *self.arguments(), because="+midi 0x3")

    def test_other_lines_than_the_starts(self):
        self.rehearsal("tones/crosses", self.FOLDED + self.REST, self.USUAL + '> {"tick":1}\nmidi 0x3\n')
        self.fails("check_rehearsals.py", *self.arguments(), because="-midi 0x2\n+midi 0x3")

    def test_unknown_block(self):
        self.rehearsal("tones/crosses", '> {"start":true}\n(starts at night)\n', self.USUAL)
        self.fails("check_rehearsals.py", *self.arguments(), because="no start block is called 'at night'")

    def test_folded_line_elsewhere_stands_for_nothing(self):
        self.rehearsal("tones/crosses", self.FOLDED + '> {"tick":1}\n(starts as usual)\n', self.USUAL + self.REST)
        self.fails("check_rehearsals.py", *self.arguments(), because="-(starts as usual)")

    def test_block_of_a_start_that_is_not_the_first_step(self):
        answers = '> {"answers":["yes"]}\n'
        block = '> {"start":true}\nbox 4\n'
        self.rehearsal("starts/after-a-crash", answers + block + self.REST, answers + block + self.REST)
        self.rehearsal("crash/again", '> {"start":true}\n(starts after a crash)\n', block)
        self.passes("check_rehearsals.py", *self.arguments())

    def test_rebaseline_folds_equal_starts_alone(self):
        other = '> {"start":true}\nmidi 0x1\n'
        self.rehearsal("tones/crosses", "", self.USUAL + self.REST + other + self.USUAL)
        self.rehearsal("tones/longer", "", self.USUAL + "midi 0x3\n")
        self.rebaselines()
        self.assertEqual(self.golden("tones/crosses"), self.FOLDED + self.REST + other + self.FOLDED)
        self.assertEqual(self.golden("tones/longer"), self.USUAL + "midi 0x3\n")
        self.assertEqual(self.golden("starts/as-usual"), self.USUAL)

    def test_changed_greeting_changes_one_file(self):
        changed = self.USUAL.replace("Hello", "Good morning")
        self.rehearsal("starts/as-usual", self.USUAL, changed)
        self.rehearsal("event-sounds/crosses", self.FOLDED + self.REST, changed + self.REST)
        self.assertEqual(self.run_tool("check_rehearsals.py", *self.arguments()), 1)
        self.assertEqual(self.last_line, "0 passed, 2 failed")
        self.rebaselines()
        self.assertEqual(self.golden("starts/as-usual"), changed)
        self.assertEqual(self.golden("event-sounds/crosses"), self.FOLDED + self.REST)
        self.passes("check_rehearsals.py", *self.arguments())

    def test_block_without_a_script(self):
        (self.root / "tests" / "rehearsals" / "starts" / "as-usual.json").unlink()
        self.rehearsal("tones/crosses", self.FOLDED, self.USUAL)
        self.fails("check_rehearsals.py", *self.arguments(), because="no start block is called 'as usual'")

    def test_transcript_that_looks_folded(self):
        self.rehearsal("tones/crosses", self.FOLDED, self.FOLDED)
        self.fails("check_rehearsals.py", *self.arguments(), because="-sapi5 speak 3")
        self.fails("check_rehearsals.py", *self.arguments(), because="stands for a start block",
                   environment={"REBASELINE": "1"})


if __name__ == "__main__":
    unittest.main()
