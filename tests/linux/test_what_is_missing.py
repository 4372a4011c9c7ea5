"""Desktops that lack something."""

import signal
import time

from desktop import LIMIT, Desktop
from session import PROGRAM, RECORDER


def test_a_wayland_session_is_refused(tmp_path):
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.start_voice()
        assert desktop.start(PROGRAM, XDG_SESSION_TYPE="wayland").wait(LIMIT) == 3
        assert len(desktop.said()) == 1
        assert "Wayland" in desktop.said()[0]


def test_a_wayland_session_without_an_x_server_is_refused_aloud(tmp_path):
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.start_voice()
        assert desktop.start(PROGRAM, DISPLAY="", WAYLAND_DISPLAY="wayland-0").wait(LIMIT) == 3
        assert len(desktop.said()) == 1
        assert "Wayland" in desktop.said()[0]


def test_without_a_sound_device_it_asks(tmp_path):
    with Desktop(tmp_path / "desktop") as desktop:
        desktop.start_voice()
        desktop.start(PROGRAM, LD_PRELOAD=str(RECORDER), POINTALK_NO_SOUND="1")
        desktop.wait_until(lambda: any("Do you want to run without midi" in text for text in desktop.said()))


def test_a_speech_server_that_it_starts_can_be_ended(tmp_path):
    """A program begins with the signals that its starter has blocked or ignores."""
    with Desktop(tmp_path / "desktop") as desktop:
        del desktop.env["SPEECHD_ADDRESS"]
        seen = tmp_path / "signals"
        server = tmp_path / "speech-dispatcher"
        server.write_text(f"#!/bin/sh\ngrep -E 'SigBlk|SigIgn' /proc/self/status >{seen}.new\nmv {seen}.new {seen}\n", encoding="utf-8")
        server.chmod(0o755)
        desktop.start(PROGRAM, PATH=f"{tmp_path}:{desktop.env['PATH']}")
        desktop.wait_until(seen.exists)
        for line in seen.read_text(encoding="utf-8").splitlines():
            signals = int(line.split()[1], 16)
            for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP, signal.SIGPIPE):
                assert not signals & 1 << number - 1, line


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
