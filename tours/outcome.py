"""What a tour leaves: its files, and whether everything was heard."""

import pathlib
import shutil
import tempfile

import latency
import latency_picture
import picture
import record


def empty_folder(path):
    """The folder for the files, without those of an earlier tour."""
    folder = pathlib.Path(path)
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    return folder


def make_picture(output, number, screenshot, walk, since):
    """Of the number-th screen, with what was heard there since that time."""
    name = "tour.png" if number == 1 else f"tour-{number}.png"
    picture.draw(screenshot, output / name, [move for move in walk.hand.moves if move[0] >= since], walk.heard.lines(since))


def make_files(output, waves, walk, begin):
    lines, moves = walk.heard.lines(begin), walk.hand.moves
    record.write_transcript(output / "transcript.txt", lines, moves, walk.stops + walk.nudges, begin)
    record.write_midi(output / "tour.mid", lines, begin)
    with tempfile.TemporaryDirectory() as scratch:
        spoke = record.write_sound(output / "tour.wav", output / "tour.mid", waves, lines, begin, pathlib.Path(scratch))
    if not spoke:
        walk.missed.append("the voice: a sound")
    series, overtaken = latency.series(moves, walk.namings, lines)
    latency.write(output / "latency.txt", series, overtaken)
    latency_picture.draw(output / "latency.png", series)


def report(output, walk):
    """Says what was missed; the exit status."""
    for missed in walk.missed:
        print("Not heard:", missed)
    with open(output / "transcript.txt", "a", encoding="utf-8") as file:
        file.writelines(f"not heard: {missed}\n" for missed in walk.missed)
    print(f"The tour has {len(walk.stops)} stops and is in {output}: {len(walk.missed)} not heard.")
    return 1 if walk.missed else 0
