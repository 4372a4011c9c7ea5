"""The stages of the measurement, each with the table that it prints."""

import os
import random
import time

import latency
from cost import Processor, memory, written
from harness import now
from record import notes
from tones import LOWER
from world import FREE, World

SEED = 1             # of the path: the same in every run
LIMIT = 2_000_000    # microseconds after which a move was not spoken of
LOOK = 0.01          # seconds between two looks at what was said
PAUSE = (0.15, 0.30)  # seconds between the words and the next move, as a listener has
SETTLE = 10          # seconds after which everything rests
REST = 20            # seconds that are measured at rest
TRACED = 10          # seconds in which it is written down whom pointalk writes to
TURNS = 24           # moves to a program that is stopped and to another one
STROKE = [(300, y) for y in range(100, 700, 80)]  # places in the window of GTK, each with another tone than the one before
STROKES = 12
PACE = 0.05          # seconds between two places of a stroke
GAP = 150_000        # microseconds without a new tone that are heard as a break: two places of a stroke, and a tick
PERCENTS = (0, 10, 20, 30, 40, 50, 60, 70, 80, 90, 99, 100)


class Turn:
    """A move onto a thing, and after how many microseconds each of the two had words for it; none where it had not."""

    def __init__(self, thing, delays):
        self.thing, self.delays = thing, delays


def move_onto(world, thing):
    _, name, place = thing
    since = now()
    world.hand.move(*place)
    lines = dict.fromkeys(speaker.name for speaker in world.speakers)
    while None in lines.values() and now() - since < LIMIT:
        time.sleep(LOOK)
        lines.update((speaker.name, speaker.first_naming(name, since)) for speaker in world.speakers)
    return Turn(thing, {speaker: line["t"] - since if line else None for speaker, line in lines.items()})


def walk(world, moves, chance, of=lambda thing, before: thing is not before):
    turns, before = [], None
    for _ in range(moves):
        before = chance.choice([thing for thing in world.things if of(thing, before)])
        turns.append(move_onto(world, before))
        time.sleep(chance.uniform(*PAUSE))
    return turns


def delays_of(turns, speaker):
    return [turn.delays[speaker] for turn in turns if turn.delays[speaker] is not None]


def milliseconds(values, percent):
    return f"{latency.percentile(values, percent) / 1000:10.1f}" if values else f"{'-':>10}"


def note_delays(world, since):
    moves = [move for move in world.hand.moves if move[0] >= since]
    return latency.note_delays(moves, world.speakers[0].heard.lines(since))[0]


def compare(world, moves):
    """Both over the same things at the same time."""
    since, processors = now(), [Processor(speaker.process.pid) for speaker in world.speakers]
    turns = walk(world, moves, random.Random(SEED))
    moving = [processor.percent() for processor in processors]
    struck, words = note_delays(world, since), [delays_of(turns, speaker.name) for speaker in world.speakers]
    print(f"\n{moves} moves onto {len(world.things)} named things; milliseconds from the move to\n"
          f"{'':12}{'its note':>10}{'words':>10}{'Orca':>10}")
    for percent in PERCENTS:
        label = {0: "shortest", 50: "median", 100: "longest"}.get(percent, f"{percent} of 100")
        print(f"{label:12}" + "".join(milliseconds(values, percent) for values in (struck, *words)))
    print(f"{'measured':12}{len(struck):10}{len(words[0]):10}{len(words[1]):10}")
    for speaker in world.speakers:
        missed = sorted({"{0}: {1}".format(*turn.thing) for turn in turns if turn.delays[speaker.name] is None})
        print(f"{speaker.name} spoke of {moves - sum(turn.delays[speaker.name] is None for turn in turns)} of {moves} moves"
              + (f"; not of {', '.join(missed)}" if missed else ""))
    return turns, struck, words, moving


def rest(world, moving):
    """What both cost; at rest, whom pointalk writes to."""
    world.hand.move(*FREE)
    time.sleep(SETTLE)
    processors = [Processor(speaker.process.pid) for speaker in world.speakers]
    time.sleep(REST)
    resting = [processor.percent() for processor in processors]
    print(f"\n{'':12}{'moving, % of a core':>22}{'at rest':>10}{'resident, MiB':>16}{'proportional':>14}")
    for speaker, while_moving, at_rest in zip(world.speakers, moving, resting):
        resident, proportional = memory(speaker.process.pid)
        print(f"{speaker.name:12}{while_moving:22.1f}{at_rest:10.2f}{resident:16.0f}{proportional:14.0f}")
    calls = written(world.speakers[0].process.pid, TRACED)
    print(f"\nWritten by pointalk in {TRACED} seconds at rest: "
          + (", ".join(f"{count} times to {name}" for name, count in sorted(calls.items())) or "nothing"))
    return resting[0], sum(count for name, count in calls.items() if "X11-unix" not in name)


def gaps_of_strokes(world):
    """The times between the tones while the pointer is drawn to and fro over the program of GTK."""
    since = now()
    for number in range(STROKES):
        for place in STROKE if number % 2 else reversed(STROKE):
            world.hand.move(*place)
            time.sleep(PACE)
    struck = [t for t, on, channel, _, _ in notes(world.speakers[0].heard.lines(since)) if on and channel == LOWER]
    return [later - earlier for earlier, later in zip(struck, struck[1:])]


def with_one_stopped(world):
    """The program of GTK is stopped: strokes over it, then moves to its things and to those of the other in turns."""
    stopped, free = world.shown["gtk3-demo"], gaps_of_strokes(world)
    with world.stopped(stopped):
        gaps = gaps_of_strokes(world)
        turns = walk(world, TURNS, random.Random(SEED),
                     lambda thing, before: (thing[0] == "qt6ct") == (before is None or before[0] != "qt6ct"))
    others = [turn for turn in turns if turn.thing[0] == "qt6ct"]
    print(f"\n{STROKES} strokes of a tone every {PACE * 1000:.0f} ms over one program; milliseconds from tone to tone")
    for what, values in (("while it answers", free), ("while it is stopped", gaps)):
        print(f"{what:20} median {milliseconds(values, 50).strip()}, 90 of 100 {milliseconds(values, 90).strip()}, longest "
              f"{milliseconds(values, 100).strip()}; longer than {GAP // 1000}: {sum(gap > GAP for gap in values)}")
    print("Moves from the one that is stopped to things of another:")
    for speaker in world.speakers:
        delays = delays_of(others, speaker.name)
        print(f"{speaker.name} spoke of {len(delays)} of {len(others)}: median {milliseconds(delays, 50).strip()} ms, longest "
              f"{milliseconds(delays, 100).strip()} ms")
    return gaps, others


def limit(name, values, percent, most):
    measured = latency.percentile(values, percent) / 1000
    return f"{name}, at most {most} ms", f"{measured:.1f} ms", measured <= most


def run(folder, build, moves):
    """Prints the tables; gives the aims, as (aim, what was measured, whether that reaches it)."""
    with World(folder, build) as world:
        print(f"load of the machine before: {os.getloadavg()[0]:.2f}")
        turns, struck, (ours, theirs), moving = compare(world, moves)
        resting, calls = rest(world, moving)
        gaps, others = with_one_stopped(world)
    aims = [limit(name, values, percent, most) for name, values, percent, most in (
        ("a note: median", struck, 50, 18), ("a note: 99 of 100", struck, 99, 33),
        ("words: median", ours, 50, 25), ("words: 99 of 100", ours, 99, 60))]
    ahead = sum(latency.percentile(ours, percent) < latency.percentile(theirs, percent) for percent in range(1, 101))
    spoken = sum(turn.delays["pointalk"] is not None for turn in turns)
    breaks = sum(gap > GAP for gap in gaps)
    named = len(delays_of(others, "pointalk"))
    return aims + [
        ("words: percentiles ahead of Orca's", f"{ahead} of 100", ahead == 100),
        ("moves that were spoken of", f"{spoken} of {moves}", spoken == moves),
        ("at rest: at most 1 % of a core", f"{resting:.2f} %", resting <= 1),
        ("at rest: calls to other programs", str(calls), calls == 0),
        ("one stopped: breaks between tones, at most 1", str(breaks), breaks <= 1),
        ("one stopped: the other is spoken of", f"{named} of {len(others)}", named == len(others)),
    ]
