"""A crash report: armed by the menu, made by a right click on a button, its mail link caught. Then the way out by the menu."""

from harness import Mail, now, wait_until
from places import centre

LINK = "mailto:support@pointalk.example?subject=CrashReport"
FASTER = 7  # how often the voice is made faster: the explanations are long


def visit(guide):
    guide.show_stand_ins(False)  # the task bar covers the minimised control panel
    mail = Mail(guide.desktop)
    guide.start_program("winecfg")
    winecfg = guide.places.put(guide.places.top_window("#32770"), (560, 180, 1010, 700))
    button = centre(guide.places.child(winecfg, "Button", "Cancel"))
    guide.walk.to(button, "a button", "Cancel button")
    arm(guide)
    report(guide, button, mail)
    leave(guide)


def open_panel(guide):
    guide.walk.to(centre(guide.panel.window()), "the minimised control panel", "Pointalk Control Center")
    guide.panel.open()


def arm(guide):
    walk, panel = guide.walk, guide.panel
    open_panel(guide)
    since = now()
    walk.hand.tap(*["F12"] * FASTER)
    walk.hears("F12", "speeding up voice", since=since)
    panel.choose("Send Crash Report")
    panel.answer("Crash Report Dialog", "y")
    walk.hears("TroubleShooting, Send Crash Report", "Do you need to send one?", since=since)
    walk.hears("Yes", "Yes.", "hit the Shift key.", since=since)
    walk.hears_out()
    panel.choose("Minimize Control Panel")
    wait_until(panel.is_minimised, 10, "the panel is minimised")


def report(guide, button, mail):
    walk = guide.walk
    walk.to(button, "the button in the safest way", "Cancel")
    walk.right_clicks("a right click on it", "I have asked your browser to create an email message")
    wait_until(mail.links, 10, "a mail link")
    if mail.links() != [LINK]:
        walk.missed.append(f"the mail link: {LINK}; instead {mail.links()}")


def leave(guide):
    """Ends Pointalk by File, Exit."""
    open_panel(guide)
    since = now()
    guide.panel.quit(guide.pointalk)
    guide.walk.hears("File, Exit", "Do you want to quit from Pointalk?", "Yes.", "Pointalk is ending. Goodbye.", since=since)
