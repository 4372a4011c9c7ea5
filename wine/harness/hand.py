"""The listener's hand: pointer, buttons and keys, through one xdotool that stays."""

import contextlib
import queue
import subprocess
import threading
import time

from .waiting import wait_until

BUTTONS = {"left": 1, "middle": 2, "right": 3, "wheel up": 4, "wheel down": 5}


class Hand:
    def __init__(self, environment):
        self._environment = environment
        self._xdotool = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                         stderr=subprocess.DEVNULL, env=environment, text=True)
        self._answers = queue.Queue()
        self._pressed = []
        self._reader = threading.Thread(target=self._read, daemon=True)
        self._reader.start()

    def _read(self):
        with self._xdotool.stdout as answers:
            for line in answers:
                self._answers.put(line)

    def _do(self, *commands):
        """Returns once the X server has taken the commands. The question that proves it is about the root window: any other
        may be gone before it is answered, and xdotool ends over that."""
        self._xdotool.stdin.write("\n".join((*commands, "getdisplaygeometry")) + "\n")
        self._xdotool.stdin.flush()
        return self._answers.get(timeout=100)

    def move(self, x, y):
        self._do(f"mousemove {x} {y}")

    def glide(self, start, end, steps=20, pause=0.015):
        """From one place to another through the places between."""
        for step in range(steps + 1):
            x = start[0] + (end[0] - start[0]) * step // steps
            y = start[1] + (end[1] - start[1]) * step // steps
            self.move(x, y)
            time.sleep(pause)

    def down(self, button="left"):
        self._do(f"mousedown {BUTTONS[button]}")

    def up(self, button="left"):
        self._do(f"mouseup {BUTTONS[button]}")

    def click(self, button="left"):
        self._do(f"click {BUTTONS[button]}")

    def double_click(self, button="left"):
        self._do(f"click --repeat 2 --delay 60 {BUTTONS[button]}")

    def press(self, key):
        """Presses a key for good, by xdotool's name of it: shift, ctrl, alt, F1, Return."""
        self._pressed.append(key)
        self._do(f"keydown {key}")

    def release(self, key):
        if key in self._pressed:
            self._pressed.remove(key)
        self._do(f"keyup {key}")

    def press_again(self):
        """Presses the keys that are down once more, with the desktop's own window to take them: on a busy machine the X server
        may go on handing them to a window that no program looks after any more."""
        if not self._pressed:
            return
        self._do(*(f"keyup {key}" for key in self._pressed))
        self._output("search", "--onlyvisible", "--name", "^(.* - )?Wine [Dd]esktop$", "windowfocus")
        self._do(*(f"keydown {key}" for key in self._pressed))

    def where_keys_go(self):
        """The name of the window that the X server hands the keys to; for the message of a test that failed."""
        return self._output("getwindowfocus", "getwindowname")

    @contextlib.contextmanager
    def held(self, *keys):
        """Holds keys for as long as it takes to see what they bring: a busy machine may miss a short press."""
        for key in keys:
            self.press(key)
        try:
            yield
        finally:
            for key in reversed(keys):
                self.release(key)

    def tap(self, *keys):
        """Presses and releases keys one after the other, such as "y" or "alt+f"."""
        self._do(*(f"key {key}" for key in keys))

    def type(self, text):
        """Types characters one by one; for keys with names use tap."""
        self._do(*(f"key U{ord(character):04X}" for character in text))

    def aim(self, x_window):
        """Has the X server hand the keys to that window of its own. When one window closes and another opens, Wine may have the
        new one in front while the X server still hands the keys to a third; they are lost then."""
        wait_until(lambda: self._focused("windowfocus", str(x_window)) == str(x_window), 100,
                   lambda: f"the keys for window {x_window} go to {self._focused()}")

    def _focused(self, *first):
        return self._output(*first, "getwindowfocus", "-f")

    def _output(self, *commands):
        return subprocess.run(["xdotool", *commands], env=self._environment, stdin=subprocess.DEVNULL, capture_output=True,
                              text=True, timeout=100, check=False).stdout.strip()

    def close(self):
        self._xdotool.stdin.close()
        try:
            self._xdotool.wait(5)
        except subprocess.TimeoutExpired:
            self._xdotool.kill()
            self._xdotool.wait(5)
        self._reader.join(10)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()
