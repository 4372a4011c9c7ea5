"""pointalk's panel and its boxes by the keyboard alone, as a listener has them."""

from desktop import LIMIT
from session import PROGRAM

CAPTION = "Pointalk Control Center"
AWAY = (1000, 950)  # where no menu opens under the pointer, which would choose its entries
# The menus by the key that opens them with Alt; their entries are counted from 0.
MIDI, VOICE, PROGRAM_MENU, TROUBLE = "m", "v", "p", "t"
VERTICAL_INSTRUMENT, VERTICAL_VOLUME, MELODY_FORMAT = 4, 5, 6
MAKE_AUTO_START, MAKE_NOT_AUTO_START = 0, 1
CRASH_REPORT = 0


class Panel:
    def __init__(self, desktop):
        self.desktop = desktop

    def wait_for(self, title):
        """Until the window of that title has the keyboard."""
        question = ("xdotool", "getactivewindow", "getwindowname")
        self.desktop.wait_until(lambda: self.desktop.output(*question).decode().strip() == title)

    def bring_up(self):
        """By another start, as a listener does who cannot see where it is. Opens a menu and closes it again, which shows that the
        panel takes keys."""
        self.desktop.move(*AWAY)
        assert self.desktop.start(PROGRAM).wait(LIMIT) == 0
        self.wait_for(CAPTION)
        before = len(self.desktop.windows_of_pointalk())
        self.desktop.open_menu(lambda: self.press("alt+f"))
        self.press("Escape", "Escape")
        self.desktop.wait_until(lambda: len(self.desktop.windows_of_pointalk()) == before)

    def press(self, *keys):
        self.desktop.output("xdotool", "key", "--delay", "20", *keys)

    def choose(self, menu, entry):
        self.bring_up()
        self.press(f"alt+{menu}", *["Down"] * entry, "Return")

    def answer(self, title, *keys):
        """Presses keys in the box of that title, which has come."""
        self.wait_for(title)
        self.press(*keys)

    def ask_number(self, entry, title, number):
        """Answers the question of an entry of the menu of tones."""
        self.choose(MIDI, entry)
        self.answer(title, *str(number), "Return")
        self.wait_for(CAPTION)

    def wait_until_saved(self, **settings):
        self.desktop.wait_until(lambda: settings.items() <= self.settings().items())

    def settings(self):
        """What the settings file says, by its keys."""
        text = (self.desktop.config / "PTK.ini").read_text(encoding="cp1252")
        return dict(line.split(" = ", 1) for line in text.splitlines() if " = " in line)
