"""Desktops that lack something, or have what does not work."""

import shutil
import signal
import subprocess
import time

import pytest

from desktop import LIMIT, Desktop, next_line
from session import PROGRAM, RECORDER, wait_for_tones


@pytest.fixture(scope="module", name="shared")
def make_shared(tmp_path_factory):
    with Desktop(tmp_path_factory.mktemp("desktop")) as desktop:
        yield desktop


@pytest.fixture(name="bare")
def make_bare(shared):
    """A desktop without a voice, on which pointalk has never been."""
    programs = len(shared.programs)
    yield shared
    for program in shared.programs[programs:]:
        program.kill()
        program.wait(LIMIT)
    shutil.rmtree(shared.config, ignore_errors=True)
    for path in (shared.socket, shared.speech_log, shared.notes_log, shared.folder / "pointalk.err"):
        path.unlink(missing_ok=True)


def start(desktop, **env):
    """As a user who has agreed to the terms; the greeting may not be heard."""
    desktop.config.mkdir(parents=True)
    (desktop.config / "DidWarn.flg").write_text("Been there done that.\r\n", encoding="ascii")
    return desktop.start(PROGRAM, LD_PRELOAD=str(RECORDER), POINTALK_NOTES=str(desktop.notes_log), **env)


def shown(desktop):
    """What a box shows is also written there."""
    return (desktop.folder / "pointalk.err").read_text(encoding="utf-8")


def test_a_wayland_session_is_refused(bare):
    bare.start_voice()
    assert bare.start(PROGRAM, XDG_SESSION_TYPE="wayland").wait(LIMIT) == 3
    assert len(bare.said()) == 1
    assert "Wayland" in bare.said()[0]
    assert "Wayland" in shown(bare)
    assert not bare.config.exists()


def test_a_wayland_session_without_an_x_server_is_refused_aloud(bare):
    bare.start_voice()
    assert bare.start(PROGRAM, DISPLAY="", WAYLAND_DISPLAY="wayland-0").wait(LIMIT) == 3
    assert len(bare.said()) == 1
    assert "Wayland" in bare.said()[0]


@pytest.mark.parametrize("session", [{"XDG_SESSION_TYPE": "wayland"}, {"DISPLAY": "", "WAYLAND_DISPLAY": "wayland-0"}])
def test_what_a_wayland_session_is_told_can_be_ended(bare, session):
    """Of two, the one that is left alone goes on with its sentence."""
    bare.start_voice("--spoken", "600")
    left, ended = bare.start(PROGRAM, **session), bare.start(PROGRAM, **session)
    bare.wait_until(lambda: len(bare.said()) == 2)
    ended.terminate()
    bare.wait_until(lambda: ended.poll() is not None or left.poll() is not None)
    assert ended.poll() == 3
    assert left.poll() is None


def test_without_a_sound_device_it_asks(bare):
    bare.start_voice()
    bare.start(PROGRAM, LD_PRELOAD=str(RECORDER), POINTALK_NO_SOUND="1")
    bare.wait_until(lambda: any("Do you want to run without midi" in text for text in bare.said()))
    # What the first start of all is given.
    settings = (bare.config / "PTK.ini").read_text(encoding="cp1252")
    assert [line for line in settings.splitlines() if "Volume = " in line] == [
        "VerticalVolume = 60", "HorizontalVolume = 60", "DoDingVolume = 60", "VoiceVolume = 80"]


def test_without_a_sound_font_its_package_is_named(bare):
    bare.start_voice()
    start(bare, POINTALK_NO_FONT="1")
    bare.wait_until(lambda: any("Do you want to run without midi" in text for text in bare.said()))
    assert "install the package timgm6mb-soundfont" in shown(bare)


def test_a_sound_server_that_ends_and_comes_back_sounds_again(bare):
    server = bare.folder / "sound server"
    server.touch()
    bare.start_voice()
    start(bare, POINTALK_SOUND_SERVER=str(server))
    wait_for_tones(bare)

    def devices():
        """What was opened and closed of the sound device, in order."""
        words = [line.split()[1] for line in bare.notes_log.read_text(encoding="ascii").splitlines()]
        return [word for word in words if word in ("open", "close")]

    def move():
        for point in ((640, 300), (100, 600)):
            bare.move(*point)
            time.sleep(0.2)
    server.unlink()
    bare.wait_until(lambda: move() or devices()[-1] == "close")
    move()
    assert devices()[-1] == "close"
    server.touch()
    bare.wait_until(lambda: move() or devices()[-1] == "open")
    wait_for_tones(bare)


BUS_WITHOUT_SERVICES = """<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><policy context="default">
<allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/></policy></busconfig>"""


def test_without_a_bus_for_objects_its_package_is_named(bare, tmp_path):
    settings = tmp_path / "bus.conf"
    settings.write_text(BUS_WITHOUT_SERVICES, encoding="ascii")
    bus = bare.start("dbus-daemon", f"--config-file={settings}", "--nofork", "--print-address=1", stdout=subprocess.PIPE)
    bare.start_voice()
    start(bare, DBUS_SESSION_BUS_ADDRESS=next_line(bus.stdout).decode())
    bare.wait_until(lambda: "install the package at-spi2-core" in shown(bare))
    wait_for_tones(bare)
    assert shown(bare).count("at-spi2-core") == 1


def test_without_a_bus_of_the_session_its_package_is_named(bare):
    bare.start_voice()
    start(bare, DBUS_SESSION_BUS_ADDRESS=f"unix:path={bare.folder}/no bus")
    bare.wait_until(lambda: "install the package dbus-user-session" in shown(bare))
    wait_for_tones(bare)
    assert shown(bare).count("install the package") == 1


def test_without_a_voice_the_tones_sound(bare):
    start(bare)
    wait_for_tones(bare)
    assert "speech-dispatcher does not answer" in shown(bare)
    assert "install one, such as the package speech-dispatcher-espeak-ng" in shown(bare)


@pytest.fixture(name="unaddressed")
def make_unaddressed(bare):
    """A desktop on which a server for speech is to be started."""
    address = bare.env.pop("SPEECHD_ADDRESS")
    yield bare
    bare.env["SPEECHD_ADDRESS"] = address


def test_without_speech_dispatcher_its_package_is_named(unaddressed):
    start(unaddressed, PATH=str(unaddressed.folder))
    wait_for_tones(unaddressed)
    assert "install the package speech-dispatcher" in shown(unaddressed)


def test_a_speech_server_that_it_starts_can_be_ended(unaddressed, tmp_path):
    """A program begins with the signals that its starter has blocked or ignores."""
    seen = tmp_path / "signals"
    server = tmp_path / "speech-dispatcher"
    server.write_text(f"#!/bin/sh\ngrep -E 'SigBlk|SigIgn' /proc/self/status >{seen}.new\nmv {seen}.new {seen}\n", encoding="utf-8")
    server.chmod(0o755)
    unaddressed.start(PROGRAM, PATH=f"{tmp_path}:{unaddressed.env['PATH']}")
    unaddressed.wait_until(seen.exists)
    # What the starter of the tests ignores, as nohup does and a shell for what it starts with &, is ignored by all that follow.
    numbers = [number for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP) if signal.getsignal(number) != signal.SIG_IGN]
    numbers.append(signal.SIGPIPE)
    for line in seen.read_text(encoding="utf-8").splitlines():
        signals = int(line.split()[1], 16)
        for number in numbers:
            assert not signals & 1 << number - 1, line


def test_a_voice_that_never_answers_does_not_keep_the_tones_back(bare):
    bare.start_voice("--hang-after", "0")
    pointalk = start(bare)
    wait_for_tones(bare)
    pointalk.terminate()
    assert pointalk.wait(LIMIT) == 0
