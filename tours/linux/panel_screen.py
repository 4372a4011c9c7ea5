"""Pointalk's own panel: its buttons by pointer, its menus by key, a crash report, and the way out by the menu."""

from harness import now, wait_until

LINK = "mailto:support@pointalk.example?subject=CrashReport"
FASTER = 7  # how often the voice is made faster: the explanations are long


def visit(guide):
    walk, places = guide.walk, guide.places
    places.put(guide.start_program("qt6ct"), "Qt6 Configuration Tool", (290, 150, 1010, 700))
    cancel = places.place("Cancel", "push button")
    guide.panel.open()
    walk.to(places.place("Melody Format", "push button"), "a button of the panel", "Melody Format button")
    walk.jump(places.place("Voice Mary", "push button"), "another one", "Voice Mary button")
    arm(guide)
    report(guide, cancel)
    leave(guide)


def arm(guide):
    walk, panel = guide.walk, guide.panel
    since = now()
    walk.hand.tap(*["F12"] * FASTER)
    walk.hears("F12", "speeding up voice", since=since)
    panel.choose("Send Crash Report")
    panel.answer("Crash Report Dialog", "y")
    walk.hears("TroubleShooting, Send Crash Report", "Do you need to send one?", since=since)
    walk.hears("Yes", "Yes.", "hit the Shift key.", since=since)
    walk.hears_out()


def report(guide, button):
    walk = guide.walk
    walk.to(button, "a button in the safest way", "Cancel")
    walk.right_clicks("a right click on it", "I have asked your browser to create an email message")
    wait_until(guide.mail.links, 10, "a mail link")
    if guide.mail.links() != [LINK]:
        walk.missed.append(f"the mail link: {LINK}; instead {guide.mail.links()}")


def leave(guide):
    """Ends Pointalk by File, Exit."""
    guide.panel.open()
    since = now()
    guide.panel.choose("Exit")
    guide.panel.answer("Pointalk", "y")
    guide.pointalk.wait(60)
    guide.walk.hears("File, Exit", "Do you want to quit from Pointalk?", "Yes.", "Pointalk is ending. Goodbye.", since=since)
