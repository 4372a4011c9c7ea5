"""Draws the waiting times as histograms, one above the other."""

from PIL import Image, ImageDraw

from latency import histogram, percentile, summary
from picture import font_of

WIDTH, HEIGHT, MARGIN = 900, 240, 50
BARS, MEDIAN, P99, AXIS = (0, 90, 200), (0, 140, 60), (200, 0, 120), (80, 80, 80)
EVERY = 3  # of so many stretches one has its label


def _draw_one(canvas, top, name, values, width):
    font, small = font_of(15), font_of(11)
    canvas.text((MARGIN, top + 8), f"{name}: {summary(values)}", font=font, fill=AXIS)
    bars = histogram(values, width)
    left, right, upper, lower = MARGIN, WIDTH - MARGIN, top + 40, top + HEIGHT - 30
    most = max(count for _, count in bars)
    step = (right - left) / len(bars)
    for number, (label, count) in enumerate(bars):
        x = left + number * step
        if count:
            canvas.rectangle((x + 1, lower - (lower - upper) * count / most, x + step - 1, lower), fill=BARS)
        if number % EVERY == 0 and number < len(bars) - 2 or number == len(bars) - 1:
            canvas.text((x, lower + 4), label, font=small, fill=AXIS)
    canvas.line((left, lower, right, lower), fill=AXIS)
    canvas.text((4, lower + 4), "ms", font=small, fill=AXIS)
    canvas.text((4, upper - 6), str(most), font=small, fill=AXIS)
    for percent, colour, label in ((50, MEDIAN, "median"), (99, P99, "p99")):
        x = left + min(percentile(values, percent) / width, len(bars) - 0.5) * step
        canvas.line((x, upper - 4, x, lower), fill=colour, width=2)
        canvas.text((x + 4, upper - 6), label, font=small, fill=colour)


def draw(path, kinds):
    """kinds: as latency.series gives them; those without a value are left out."""
    shown = [kind for kind in kinds if kind[1]]
    image = Image.new("RGB", (WIDTH, max(1, len(shown)) * HEIGHT), (255, 255, 255))
    canvas = ImageDraw.Draw(image)
    for number, (name, values, width) in enumerate(shown):
        _draw_one(canvas, number * HEIGHT, name, values, width)
    image.save(path)
