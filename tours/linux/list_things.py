#!/usr/bin/env python3
"""Prints what the programs of a desktop show, as they tell it to screen readers: a list in JSON of {"program", "role", "name",
"rect", "depth"}, a window before what is in it, with the "words" of a short text as [word, rect]. It is asked of the library
that other readers use, not of Pointalk's own code."""

import json
import re
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

MOST_CHILDREN, MOST_CHARACTERS = 30, 2000
PUSH_BUTTON = 43  # the number of its role
FRAMES = 3  # the depth to which things count that do not say that they are showing


def rect_of(extents):
    return [extents.x, extents.y, extents.x + extents.width, extents.y + extents.height]


def role_of(thing):
    """The name of its role; that of a push button is another one in later releases of the library."""
    return "push button" if int(thing.get_role()) == PUSH_BUTTON else thing.get_role_name()


def words_of(thing):
    text = thing.get_text_iface()
    if not text or not 0 < Atspi.Text.get_character_count(text) <= MOST_CHARACTERS:
        return []
    found = []
    for word in re.finditer(r"\w+", Atspi.Text.get_text(text, 0, -1)):
        extents = Atspi.Text.get_range_extents(text, word.start(), word.end(), Atspi.CoordType.SCREEN)
        found.append([word.group(), rect_of(extents)])
    return found


def collect(thing, program, depth, found):
    if depth >= FRAMES and not thing.get_state_set().contains(Atspi.StateType.SHOWING):
        return
    component = thing.get_component_iface()
    if component:
        rect = rect_of(component.get_extents(Atspi.CoordType.SCREEN))
        found.append({"program": program, "role": role_of(thing), "name": thing.get_name(), "rect": rect,
                      "depth": depth, "words": words_of(thing)})
    for number in range(min(thing.get_child_count(), MOST_CHILDREN)):
        child = thing.get_child_at_index(number)
        if child:
            collect(child, program, depth + 1, found)


def main():
    desktop, found = Atspi.get_desktop(0), []
    for number in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(number)
        try:
            collect(program, program.get_name(), 0, found)
        except GLib.Error:  # it has ended meanwhile
            continue
    json.dump(found, sys.stdout)


if __name__ == "__main__":
    main()
