"""Draws the pointer's path, the notes and the words into a picture of the screen."""

from PIL import Image, ImageDraw, ImageFont

from record import note_name, notes
from tones import LOWEST, SCREEN

PATH, NOTE, WORDS, BOX = (200, 0, 120), (0, 90, 200), (0, 0, 0), (255, 255, 225)
LONGEST = 46  # characters of a text that are drawn
NEAR = 32     # pixels within which the same words are drawn once


def font_of(size):
    for name in ("DejaVuSans.ttf", "LiberationSans-Regular.ttf"):
        try:
            return ImageFont.truetype(name, size)
        except OSError:
            continue
    return ImageFont.load_default()


def _place_at(moves, time):
    """Where the pointer was."""
    here = moves[0][1:]
    for t, x, y in moves:
        if t > time:
            break
        here = (x, y)
    return here


def _free_row(taken, box, lowest):
    """Moves a box down, or up where there is no room below, until it covers no other."""
    left, top, right, bottom = box
    step = 3

    def covers():
        return any(left < r and right > l and top < b and bottom > t for l, t, r, b in taken)

    while covers() and top > 0:
        if bottom + step > lowest:
            step = -3
        top, bottom = top + step, bottom + step
    taken.append((left, top, right, bottom))
    return left, top


def draw(screenshot, path, moves, lines):
    """moves and lines are those made while the picture's screen was shown."""
    image = Image.open(screenshot).convert("RGB").crop((0, 0, *SCREEN))
    canvas = ImageDraw.Draw(image)
    font, small = font_of(13), font_of(10)
    if moves:
        canvas.line([place[1:] for place in moves], fill=PATH, width=2)
    seen = set()
    for t, on, channel, note, _ in notes(lines):
        if not on or channel not in LOWEST or not moves:
            continue
        x, y = _place_at(moves, t)
        y += -12 if channel == 13 else 2
        if (x // 24, y // 12) not in seen:
            seen.add((x // 24, y // 12))
            canvas.text((x + 3, y), note_name(note), font=small, fill=NOTE)
    taken, said = [], set()
    for line in lines:
        if not line["what"].endswith(" speak") or not line["text"].strip() or not moves:
            continue
        text = line["text"].strip().replace("\r", " ").replace("\n", " ")
        text = text if len(text) <= LONGEST else text[:LONGEST - 1] + "…"
        x, y = _place_at(moves, line["t"])
        if (text, x // NEAR, y // NEAR) in said:
            continue
        said.add((text, x // NEAR, y // NEAR))
        width = int(canvas.textlength(text, font=font)) + 6
        x = max(0, min(x + 8, image.width - width - 2))
        y = min(y + 10, image.height - 17)
        left, top = _free_row(taken, (x, y, x + width, y + 17), image.height)
        canvas.rectangle((left, top, left + width, top + 16), fill=BOX, outline=PATH)
        canvas.text((left + 3, top), text, font=font, fill=WORDS)
    image.save(path)
