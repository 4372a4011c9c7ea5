"""What the tour makes of a record: what it misses, what that means for its exit status, and how long a listener waited."""

import contextlib
import io
import json
import pathlib
import sys
import tempfile
import unittest
from unittest import mock

SOURCE = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.insert(0, str(SOURCE / "tours"))

from harness import Heard, now  # noqa: E402
import latency  # noqa: E402
import outcome  # noqa: E402
import tones  # noqa: E402
import walk  # noqa: E402

MS = 1000
MIDDLE, MIDDLE_NOTES = (640, 512), {tones.HIGHER: 87, tones.LOWER: 45}


def note_on(channel, note):
    return 0x90 + channel + note * 0x100 + 60 * 0x10000


def note_off(channel, note):
    return note_on(channel, note) - 0x10


class StillHand:
    """Moves nothing, so that only the record tells what was heard."""

    def __init__(self):
        self.moves = [(now(), *MIDDLE)]

    def move(self, x, y):
        self.moves.append((now(), x, y))

    def position(self):
        return self.moves[-1][1:]

    def click(self):
        pass

    def held(self, *keys):
        return contextlib.nullcontext()


class Record(unittest.TestCase):
    """A walk over a record that the test writes."""

    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.file = self.folder / "heard.jsonl"
        self.enterContext(mock.patch.object(walk, "LIMIT", 0.1))
        self.enterContext(mock.patch.object(walk, "PACE", 0))
        self.enterContext(mock.patch.object(walk, "SILENCE", 0.05))
        self.walk = walk.Walk(StillHand(), Heard(self.file), lambda x, y: x // 100)

    def write(self, what, later=10, **fields):
        """A line that comes later than now, as one to what is done next does."""
        with open(self.file, "a", encoding="utf-8") as file:
            file.write(json.dumps({"t": now() + int(later * 1e6), "what": what, **fields}) + "\n")

    def says(self, text, **fields):
        self.write("sapi5 speak", text=text, flags=3, **fields)

    def sounds(self, *messages, **fields):
        for message in messages:
            self.write("midi", value=hex(message), result=0, **fields)

    def tones_of_the_middle(self):
        for channel, note in MIDDLE_NOTES.items():
            self.sounds(note_on(channel, note), note_off(channel, note))

    def outcome(self):
        """Exit status, what is printed, and what the transcript ends with."""
        printed = io.StringIO()
        (self.folder / "transcript.txt").write_text("")
        with contextlib.redirect_stdout(printed):
            status = outcome.report(self.folder, self.walk)
        return status, printed.getvalue(), (self.folder / "transcript.txt").read_text()


class Judgement(Record):
    def test_a_stop_at_which_everything_is_heard(self):
        self.tones_of_the_middle()
        self.sounds(note_on(walk.EARCON_CHANNEL, walk.EARCONS["another icon"]))
        self.says("Cancel button")
        self.walk.to(MIDDLE, "a button", "cancel", earcon="another icon")
        self.assertEqual(self.walk.missed, [])
        self.assertEqual(self.outcome(), (0, f"The tour has 1 stops and is in {self.folder}: 0 not heard.\n", ""))

    def test_a_word_that_the_record_lacks_ends_the_tour_with_an_error(self):
        self.tones_of_the_middle()
        self.says("Cancel")
        self.walk.to(MIDDLE, "a button", "Cancel button")
        status, printed, transcript = self.outcome()
        self.assertEqual(status, 1)
        missed = "a button: \"Cancel button\"; instead ['Cancel']"
        self.assertEqual(printed.splitlines()[0], "Not heard: " + missed)
        self.assertEqual(transcript, f"not heard: {missed}\n")

    def test_every_word_is_asked_for(self):
        self.tones_of_the_middle()
        self.says("Desktop")
        self.walk.to(MIDDLE, "an icon", "Desktop", "My Computer")
        self.assertEqual([missed.split(";")[0] for missed in self.walk.missed], ['an icon: "My Computer"'])

    def test_words_of_an_earlier_stop_do_not_count(self):
        self.tones_of_the_middle()
        self.says("Cancel button", later=-1)
        self.walk.to(MIDDLE, "a button", "Cancel button")
        self.assertEqual(len(self.walk.missed), 1)

    def test_a_word_alone_is_not_a_line_with_it(self):
        self.says("The quick brown fox")
        self.assertTrue(self.walk.hears("a line", "fox", since=0))
        self.assertFalse(self.walk.hears("a word", '"fox"', since=0))
        self.says(" fox")
        self.assertTrue(self.walk.hears("a word", '"fox"', since=0))

    def test_a_wrong_note(self):
        self.sounds(note_on(tones.HIGHER, 87), note_on(tones.LOWER, 47), note_off(tones.HIGHER, 87), note_off(tones.LOWER, 47))
        self.walk.to(MIDDLE, "a place")
        self.assertEqual([missed.split(";")[0] for missed in self.walk.missed], ["a place: the notes {13: 87, 14: 45}"])

    def test_a_missing_event_sound(self):
        self.tones_of_the_middle()
        self.sounds(note_on(walk.EARCON_CHANNEL, walk.EARCONS["off the icons"]))
        self.walk.to(MIDDLE, "an icon", earcon="another icon")
        self.assertEqual(self.walk.missed, ["an icon: the sound of another icon; instead nothing"])

    def test_a_place_that_does_not_answer_is_asked_again_by_the_least_move(self):
        self.tones_of_the_middle()
        came = self.walk.hand.move

        def move(x, y):
            came(x, y)
            if (x, y) != MIDDLE:
                self.says("Cancel button")
                self.sounds(note_on(walk.EARCON_CHANNEL, walk.EARCONS["another icon"]))
        self.walk.hand.move = move
        self.walk.to(MIDDLE, "a button", "cancel", steps=1)
        self.assertEqual((self.walk.missed, len(self.walk.stops), len(self.walk.nudges)), ([], 1, 1))

    def test_a_row_or_an_icon_that_sounded_last_is_come_to_again_from_another(self):
        """Which one is at a place, for a row among others, the last row of a list, and an icon in a line of them."""
        for name, number_at in (("row", lambda x, y: y // 18), ("last row", lambda x, y: min(y // 18, MIDDLE[1] // 18)),
                                ("icon", lambda x, y: x // 400)):
            with self.subTest(name):
                self.walk.hand.moves = [(now(), 100, 100)]
                self.walk.missed.clear()
                self.walk.nudges.clear()
                self.walk.hand.move = self.moving_over("a row of a list box", number_at, last=number_at(*MIDDLE))
                self.tones_of_the_middle()
                self.walk.jump(MIDDLE, name, earcon="a row of a list box")
                self.assertEqual(self.walk.missed, [])
                self.assertEqual(self.walk.hand.position(), MIDDLE)
                self.assertEqual({what for *_, what in self.walk.nudges}, {"once more"})

    def moving_over(self, earcon, number_at, last):
        """A way to move over things that sound when another one was the last."""
        def move(x, y):
            nonlocal last
            self.walk.hand.moves.append((now(), x, y))
            before, last = last, number_at(x, y)
            if last != before:
                self.sounds(note_on(walk.EARCON_CHANNEL, walk.EARCONS[earcon]), later=0)
        return move

    def test_the_sound_of_the_row_beside_is_not_that_of_the_place(self):
        rows = iter([0, 1])
        self.walk.hand.move = self.moving_over("a row of a list box", lambda x, y: next(rows, 1), last=0)
        self.tones_of_the_middle()
        self.walk.jump(MIDDLE, "a row", earcon="a row of a list box")
        self.assertEqual(self.walk.missed, ["a row: the sound of a row of a list box; instead nothing"])

    def test_a_place_that_was_named_too_early_is_come_to_again_from_the_other(self):
        first, second = (100, 100), (200, 100)
        came, names = self.walk.hand.move, {first: iter(["O K"]), second: iter([None, "Cancel"])}

        def move(x, y):
            came(x, y)
            name = next(names[x, y], None)
            if name:
                self.says(name, later=0)
        self.walk.hand.move = move
        self.walk.to_and_fro("and back", (first, "O K"), (second, "Cancel"), 2)
        self.assertEqual(self.walk.missed, [])
        self.assertEqual([place for _, *place in self.walk.hand.moves[1:]], [[100, 100], [200, 100], [100, 100], [200, 100]])

    def test_tones_that_do_not_end(self):
        self.sounds(*(note_on(channel, note) for channel, note in MIDDLE_NOTES.items()))
        with self.assertRaises(AssertionError):
            self.walk.to(MIDDLE, "a place")

    def test_a_rest_with_sound(self):
        self.says("Cancel", later=-1)
        self.walk.rests("rest")
        self.assertEqual(self.walk.missed, [])
        self.says("Cancel", later=60)
        self.walk.rests("rest")
        self.assertEqual(len(self.walk.missed), 1)

    def test_a_question_that_is_never_answered(self):
        self.walk.asks("what it is", "It is a text")
        self.assertEqual(self.outcome()[0], 1)


class Tones(unittest.TestCase):
    def test_the_notes_of_a_place(self):
        for place, higher, lower in ((MIDDLE, 87, 45), ((0, 767), 76, 40), ((1023, 0), 92, 56), ((105, 767), 76, 40),
                                     ((108, 767), 78, 40)):
            with self.subTest(place):
                self.assertEqual(tones.notes_at(*place), {tones.HIGHER: higher, tones.LOWER: lower})


class Waiting(unittest.TestCase):
    def strike(self, at, channel, note):
        return {"t": at * MS, "what": "midi", "value": hex(note_on(channel, note))}

    def test_from_a_move_to_its_note(self):
        moves = [(0, 10, 767), (100 * MS, 150, 767), (120 * MS, 300, 767), (125 * MS, 450, 767), (900 * MS, 452, 767)]
        lines = [self.strike(90, tones.HIGHER, 78), self.strike(112, tones.HIGHER, 78), self.strike(140, tones.HIGHER, 84)]
        # 150 is struck in time, 300 is never struck since 450 follows at once, and 452 has the same note.
        self.assertEqual(tones.notes_at(450, 767)[tones.HIGHER], 83)
        lines[2] = self.strike(140, tones.HIGHER, 83)
        self.assertEqual(latency.note_delays(moves, lines), ([12 * MS, 15 * MS], 1))

    def test_from_a_move_to_its_words_and_their_sound(self):
        namings = [(100 * MS, {"t": 140 * MS, "utterance": 4}), (200 * MS, {"t": 230 * MS, "utterance": 6})]
        lines = [{"t": 160 * MS, "what": "sounding", "utterance": 4, "part": 1},
                 {"t": 500 * MS, "what": "sounding", "utterance": 4, "part": 2}]
        self.assertEqual(latency.word_delays(namings), [40 * MS, 30 * MS])
        self.assertEqual(latency.speech_delays(namings, lines), [60 * MS])

    def test_median_and_p99(self):
        values = list(range(1, 201))
        self.assertEqual([latency.percentile(values, percent) for percent in (50, 99, 100)], [100, 198, 200])
        self.assertEqual([latency.percentile([7], percent) for percent in (50, 99)], [7, 7])

    def test_a_histogram_has_every_value_once(self):
        bars = latency.histogram([0, 4999, 5000, 124_999, 125_000, 9_000_000], 5000)
        self.assertEqual([bar for bar in bars if bar[1]], [("0-5", 2), ("5-10", 1), ("120-125", 1), ("over 125", 2)])

    def test_the_file_tells_them(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "latency.txt"
            latency.write(path, [("To the note", [12 * MS, 15 * MS, 40 * MS], 5 * MS), ("To the words", [], 5 * MS)], 3)
            text = path.read_text()
        self.assertIn("To the note: 3 measured, median 15.0 ms, p99 40.0 ms, longest 40.0 ms\n", text)
        self.assertIn("To the words: nothing measured\n", text)
        self.assertIn("\n3 moves onto another note were overtaken", text)


class Namings(Record):
    def test_the_wait_is_counted_from_the_move_onto_the_window(self):
        """Of a glide over two windows, from the first place over the last of them."""
        self.tones_of_the_middle()
        self.walk.hand.move(510, 512)
        self.says("Cancel")
        self.walk.to(MIDDLE, "a button", "Cancel")
        (came, line), = self.walk.namings
        first = next(t for t, x, _ in self.walk.hand.moves[2:] if x >= 600)
        self.assertLessEqual(came, first)
        self.assertGreater(came, max(t for t, x, _ in self.walk.hand.moves if x < 600))
        self.assertEqual(line["text"], "Cancel")
