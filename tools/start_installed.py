#!/usr/bin/env python3
"""Starts the installed pointalk for the first time, on a virtual screen without a sound device, points at its panel, and has it
end. tools/try_deb.sh calls it."""

import pathlib
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "x11"))

from desktop import LIMIT, Desktop  # noqa: E402

PANEL = "Pointalk Control Center"
BUTTON = "Melody Format button"


def answer(desktop, title, question, key):
    """Waits until a question is spoken and its box has the keyboard, and answers it."""
    desktop.wait_until(lambda: any(question in text for text in desktop.said()))
    desktop.wait_until(lambda: desktop.output("xdotool", "getactivewindow", "getwindowname").startswith(title.encode()))
    desktop.output("xdotool", "key", key)


def points_at(desktop, button):
    """Moves over the panel, row by row, until a button of it is named."""
    for y in range(20, 300, 15):
        for x in range(20, 500, 60):
            desktop.move(x, y)
            if button in desktop.said():
                return True
    return False


def main():
    with tempfile.TemporaryDirectory() as folder, Desktop(folder) as desktop:
        desktop.start_voice()
        pointalk = desktop.start("pointalk")
        answer(desktop, "Can't find an available Midi Device", "Do you want to run without midi?", "y")
        answer(desktop, "Pointalk", "Do you agree?", "y")
        answer(desktop, "Pointalk Instructions", "This mouse driver lets you hear", "Return")
        desktop.wait_until(lambda: desktop.said().count("thank you") == 2)  # for either box
        if desktop.start("pointalk").wait(LIMIT) != 0:
            sys.exit("the second start failed")
        desktop.windows(PANEL)
        desktop.wait_until(lambda: points_at(desktop, BUTTON))
        pointalk.terminate()
        if pointalk.wait(LIMIT) != 0:
            sys.exit("it did not end in order")
        if (desktop.config / "status.txt").read_bytes() != b"stopped\r\n":
            sys.exit("its status is not that of an end in order")


if __name__ == "__main__":
    main()
