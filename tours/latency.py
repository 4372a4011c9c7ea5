"""How long a listener waits: from each move of the pointer to its note and to its words."""

import bisect
import math

from record import notes
from tones import LOWEST, notes_at

TICK = 30_000      # microseconds between two looks at the pointer
LONGEST = 1_000_000
STRETCHES = 25     # of a histogram
BAR = 60           # characters of the longest bar


def note_delays(moves, lines):
    """(delays, how many were overtaken) of the moves onto another note. The pointer is looked at once a tick, so a move that
    another one follows at once has no note."""
    struck = {channel: [(t, note) for t, on, at, note, _ in notes(lines) if on and at == channel] for channel in LOWEST}
    delays, overtaken = [], 0
    for channel in LOWEST:
        came = [(t, notes_at(x, y)[channel]) for t, x, y in moves]
        turns = [here for before, here in zip(came, came[1:]) if here[1] != before[1]]
        ends = [t + TICK for t, _ in turns[1:]] + [math.inf]
        for (t, note), end in zip(turns, ends):
            first = bisect.bisect_left(struck[channel], (t,))
            heard = next((at for at, other in struck[channel][first:] if at < min(end, t + LONGEST) and other == note), None)
            if heard is None:
                overtaken += 1
            else:
                delays.append(heard - t)
    return delays, overtaken


def word_delays(namings):
    """From the move onto a thing until its words were handed to the voice."""
    return [line["t"] - came for came, line in namings]


def speech_delays(namings, lines):
    """From the move onto a thing until the voice was heard to say its words; words that were cut off before are left out."""
    began = {line["utterance"]: line["t"] for line in lines if line["what"] == "sounding" and line["part"] == 1}
    return [began[line["utterance"]] - came for came, line in namings if line["utterance"] in began]


def series(moves, namings, lines):
    """(name, delays in microseconds, width of a stretch) of each kind, and how many moves were overtaken."""
    note, overtaken = note_delays(moves, lines)
    return [("To the note", note, 5_000), ("To the words as handed to the voice", word_delays(namings), 5_000),
            ("To the sound of the words", speech_delays(namings, lines), 10_000)], overtaken


def percentile(values, percent):
    """The smallest value that is not below so many percent of all."""
    return sorted(values)[max(0, math.ceil(len(values) * percent / 100) - 1)]


def histogram(values, width):
    """(label, how many) for each stretch of that width, and for all that is longer."""
    counts = [0] * (STRETCHES + 1)
    for value in values:
        counts[min(value // width, STRETCHES)] += 1
    begins = [number * width // 1000 for number in range(STRETCHES + 1)]
    labels = [f"{begin}-{end}" for begin, end in zip(begins, begins[1:])] + [f"over {begins[-1]}"]
    return list(zip(labels, counts))


def summary(values):
    return (f"{len(values)} measured, median {percentile(values, 50) / 1000:.1f} ms, "
            f"p99 {percentile(values, 99) / 1000:.1f} ms, longest {max(values) / 1000:.1f} ms")


def write(path, kinds, overtaken):
    with open(path, "w", encoding="utf-8") as file:
        file.write("From a move of the pointer until it is heard. A move counts from just before it is handed to the X server;\n"
                   f"{overtaken} moves onto another note were overtaken by the next one before the pointer was looked at.\n")
        for name, values, width in kinds:
            file.write(f"\n{name}: {summary(values) if values else 'nothing measured'}\n")
            bars = histogram(values, width) if values else []
            most = max((count for _, count in bars), default=1)
            for label, count in bars:
                file.write(f"{label:>10} ms {count:5d} {'#' * math.ceil(count * BAR / most)}".rstrip() + "\n")
