"""Two programs that show files, and the task manager."""

from places import centre, inside

FOLDER = "tour"  # what explorer's window is called after


def visit(guide):
    places = guide.places
    guide.make_folder("Letters")
    guide.make_file("Notes.txt", "notes")
    guide.start_program("winefile", guide.folder)
    guide.start_program("explorer", guide.folder)
    guide.start_program("taskmgr")
    winefile = places.put(places.top_window("WFS_Frame"), (10, 20, 500, 330))
    explorer = places.put(places.top_window("ExplorerWClass"), (510, 20, 1010, 330))
    taskmgr = places.put(places.top_window("#32770", "Task Manager"), (10, 340, 480, 720))

    in_winefile(guide.walk, places, winefile)
    in_explorer(guide.walk, places, explorer)
    in_taskmgr(guide.walk, places, taskmgr)


def in_winefile(walk, places, winefile):
    """Its lists draw their rows themselves and tell no text, so that what is heard of a row is its sound. Only another row's
    number sounds, whichever list it is in."""
    walk.to(inside(winefile, 120, 12), "winefile's title", "Wine File Manager")
    left, right = (places.child(winefile, "ListBox", number=number) for number in (0, 1))
    walk.to(inside(left, 60, 26), "winefile's list of folders", earcon="a row of a list box")
    walk.jump(inside(left, 60, 44), "the next row of it", earcon="a row of a list box")
    walk.jump(inside(right, 60, 8), "winefile's list of files", earcon="a row of a list box")
    walk.jump(inside(right, 60, 26), "the next row of it", earcon="a row of a list box")


def in_explorer(walk, places, explorer):
    view = places.child(explorer, "SysListView32")
    letters, notes = (places.item(view, label) for label in ("Letters", "Notes.txt"))
    walk.jump(letters, "explorer's folder view", FOLDER + ",", "Letters", earcon="another icon")
    walk.jump(notes, "another file", "Notes dot txt", earcon="another icon")
    walk.to_and_fro("from file to file and back", (letters, "Letters"), (notes, "Notes dot txt"), 20)
    walk.jump(inside(view, 40, -20), "off the files", earcon="off the icons")


def in_taskmgr(walk, places, taskmgr):
    tasks = places.child(taskmgr, "SysListView32")
    walk.to(centre(tasks), "the task manager's list", "Task Manager,")
    walk.jump(places.item(tasks, FOLDER), "a task", f'"{FOLDER}"', earcon="another icon")
    walk.to(centre(places.child(taskmgr, "Button", "&End Task")), "a button below it", "End Task")
