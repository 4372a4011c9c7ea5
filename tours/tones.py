"""The two position tones as the tour's settings have them: a step of the major scale for every two cells."""

from record import notes

SCREEN = (1024, 768)  # the virtual desktop
HIGHER, LOWER = 13, 14
CELLS = 20
LOWEST = {HIGHER: 76, LOWER: 40}
SCALE = (0, 2, 4, 5, 7, 9, 11, 12, 14, 16)  # semitones


def _cell(distance, extent):
    """How far a place is, in cells; a cell begins a little beyond its twentieth part."""
    return max(0, min(CELLS - 1, int(distance / extent * CELLS - 0.1)))


def notes_at(x, y):
    """The note of each channel at a place of the screen."""
    width, height = SCREEN
    cells = {HIGHER: _cell(x, width), LOWER: _cell(height - y, height)}
    return {channel: LOWEST[channel] + SCALE[cell // 2] for channel, cell in cells.items()}


def sounding(lines):
    """The note that each channel had last, and whether either still has it."""
    last, still = {}, {}
    for _, on, channel, note, _ in notes(lines):
        if channel in LOWEST and on:
            last[channel] = note
        still[channel] = on
    return last, any(still.get(channel) for channel in LOWEST)
