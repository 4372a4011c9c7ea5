"""Drives programs under Wine as a listener and a hostile neighbour would.

    with Desktop() as desktop, desktop.target("controls") as target, desktop.hand() as hand:
        hand.move(*target.centre("ok"))

Every wait has a limit; whatever was started is ended by its own process.
"""

from .desktop import BUILD, ROOT, TARGET_BUILD, Desktop
from .hand import Hand
from .heard import Heard, names_desktop, now
from .mail import Mail
from .panel import Panel
from .pointalk import Pointalk, Run
from .programs import KILLED_AT_ITS_END, LineProgram, Probe, Target, command_for, quoted
from .settings import settings_text, written_scaling
from .visiting import visit
from .waiting import wait_until

__all__ = [
    "BUILD", "KILLED_AT_ITS_END", "ROOT", "Desktop", "Hand", "Heard", "LineProgram", "Mail", "Panel", "Pointalk", "Probe",
    "Run", "TARGET_BUILD", "Target", "command_for", "names_desktop", "now", "quoted", "settings_text", "visit", "wait_until",
    "written_scaling",
]
