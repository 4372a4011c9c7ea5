"""Pointalk's own menus under the pointer, which it cannot ask itself for over the bus."""

import time

from desktop import LIMIT
from session import PROGRAM


def test_an_open_menu_of_the_panel_is_read(own):
    desktop = own.desktop
    assert desktop.start(PROGRAM).wait(LIMIT) == 0
    panel = desktop.windows("Pointalk Control Center")[0]
    shown = dict(line.split("=") for line in desktop.output("xdotool", "getwindowgeometry", "--shell", panel).decode().split())

    def has_read():
        said = own.said_after(lambda: desktop.output("xdotool", "windowactivate", "--sync", panel, "key", "alt+f"))
        for down in range(20, 120, 10):
            desktop.move(int(shown["X"]) + 40, int(shown["Y"]) + down)
            time.sleep(0.2)
        desktop.output("xdotool", "key", "Escape", "Escape")
        return {"Minimize Control Panel  menu", "Exit menu"} <= set(said())
    desktop.wait_until(has_read)
