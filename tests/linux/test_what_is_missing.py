"""Desktops that lack something."""

import time

from desktop import LIMIT, Desktop
from session import PROGRAM, RECORDER


def test_a_wayland_session_is_refused(tmp_path):
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.start_voice()
        assert desktop.start(PROGRAM, XDG_SESSION_TYPE="wayland").wait(LIMIT) == 3
        assert len(desktop.said()) == 1
        assert "Wayland" in desktop.said()[0]


def test_without_a_sound_device_it_asks(tmp_path):
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.start_voice()
        desktop.start(PROGRAM, LD_PRELOAD=str(RECORDER), POINTALK_NO_SOUND="1")
        desktop.wait_until(lambda: any("Do you want to run without midi" in text for text in desktop.said()))


def test_without_a_voice_the_tones_sound(tmp_path):
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.config.mkdir(parents=True)
        (desktop.config / "DidWarn.flg").write_text("Been there done that.\r\n", encoding="ascii")
        desktop.start(PROGRAM, LD_PRELOAD=str(RECORDER), POINTALK_NOTES=str(desktop.notes_log))

        def sounds():
            before = len(desktop.notes())
            for point in ((300, 300), (700, 800)):
                desktop.move(*point)
                time.sleep(0.3)
            return len(desktop.notes()) > before
        desktop.wait_until(sounds)
        assert "speech-dispatcher" in (desktop.folder / "pointalk.err").read_text(encoding="utf-8")
