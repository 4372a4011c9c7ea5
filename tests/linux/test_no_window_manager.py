"""A screen without a window manager, on which no window is marked as one of a program."""

from accessible import AccessibleTarget
from desktop import Desktop
from session import start_pointalk_over, wait_for_name


def test_what_lies_under_the_pointer_is_named_and_not_what_has_the_focus(tmp_path):
    with Desktop(tmp_path / "desktop", window_manager=None) as desktop:
        desktop.start_voice()
        start_pointalk_over(desktop)
        target = AccessibleTarget(desktop, "GTK 4.18.0")
        target.show_window("frame", [0, 0, 800, 600], "Plain", kind="unmanaged")
        target.put("first", [20, 320, 120, 360], name="First")
        target.put("second", [20, 400, 120, 440], name="Second")
        target.tell(focus="first")
        for _ in range(2):
            wait_for_name(desktop, (70, 420), "Second button", (70, 340))
            wait_for_name(desktop, (70, 340), "First button", (70, 420))
