"""A voice of the synthesizer's list, and how it is left."""

import panel as keys
from panel import Panel
from session import HERE, start_pointalk_over

USE_MARY = 3


LISTED = "SET SELF SYNTHESIS_VOICE English (Great Britain)"


def test_a_listed_voice_is_chosen_and_left(desktop):
    """What is said with the next voice is said on a connection that has never been told of the listed one."""
    desktop.config.mkdir(parents=True)
    settings = (HERE.parents[1] / "packaging" / "PTK.ini").read_bytes()
    (desktop.config / "PTK.ini").write_bytes(settings + b"VoiceSelection = 5\r\n")
    start_pointalk_over(desktop)

    def commands(client):
        return [line.get("command") for line in desktop.heard() if line["client"] == client]
    desktop.wait_until(lambda: any(line.get("command") == LISTED for line in desktop.heard()))
    Panel(desktop).choose(keys.VOICE, USE_MARY)
    desktop.wait_until(lambda: "Voice is now Mary." in desktop.said())
    client, = {line["client"] for line in desktop.heard() if line.get("say") == "Voice is now Mary."}
    assert "SET SELF VOICE_TYPE FEMALE1" in commands(client)
    assert LISTED not in commands(client)
