"""The desktop's icons, a menu and the task bar's clock, which Wine lacks: a program stands in for them.

Under Wine the menus of another program cannot be read and its menu bar is no accessible object, so that over it the window's
title is all that is heard; the parts of a command bar, which the program names itself, are heard as menus."""


def visit(guide):
    walk, target = guide.walk, guide.target
    guide.show_stand_ins(True)
    icon = [target.place("icons", "label", number) for number in range(4)]
    walk.to(icon[0], "an icon of the desktop", "Desktop", "My Computer", earcon="another icon")
    walk.jump(icon[1], "another icon", "My Documents", earcon="another icon")
    walk.jump(icon[3], "an icon with two words", "Letters & Notes", earcon="another icon")
    walk.to((60, 600), "the desktop without an icon", "Desktop", earcon="off the icons")
    walk.rests("rest over the desktop")

    walk.to(target.place("menus", "menu", 0), "a menu bar", "Menus")
    for x, words in ((620, "Application menu"), (690, "Open menu"), (750, "Bold button")):
        walk.to((x, 405), "a command bar", words)

    walk.jump(target.place("tasks", "item", 0), "the task bar", "Tasck-Bar-Running Applications")
    walk.to(target.centre("clock"), "the clock", "System Clock,", "P M")
