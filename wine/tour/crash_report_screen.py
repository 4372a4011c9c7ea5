"""A crash report: armed by the menu, made by a right click on a button, its mail link caught."""

import time

from harness import Mail, now, wait_until
from panel import open_panel
from places import centre

LINK = "mailto:support@pointalk.example?subject=CrashReport"
LONGEST_TEXT = 60  # seconds in which the longest text is spoken to its end


def visit(guide):
    walk, hand, heard = guide.walk, guide.walk.hand, guide.pointalk.heard
    mail = Mail(guide.desktop)
    guide.start_program("winecfg")
    winecfg = guide.places.put(guide.places.top_window("#32770"), (560, 180, 1010, 700))
    button = centre(guide.places.child(winecfg, "Button", "Cancel"))
    walk.to(button, "a button", "Cancel button")

    open_panel(guide)
    since = now()
    for _ in range(7):  # the explanations are long
        hand.tap("F12")
        time.sleep(0.1)
    walk.hears("F12", "speeding up voice", since=since)
    hand.tap("alt+t", "Return")
    walk.hears("TroubleShooting, Send Crash Report", "Do you need to send one?", since=since)
    since = now()
    hand.tap("y")
    walk.hears("Yes", "Yes.", "hit the Shift key.", since=since)
    is_over = lambda line: line["what"] == "sapi5 speak over"
    heard.wait(is_over, LONGEST_TEXT, since, "the explanation to its end")
    hand.tap("alt+f", "m")

    walk.to(button, "the button in the safest way", "Cancel")
    walk.nudge()
    since = now()
    hand.click("right")
    walk.stops.append((since, *walk.position, "a right click on it"))
    walk.hears("a right click on it", "I have asked your browser to create an email message", since=since)
    heard.wait(is_over, LONGEST_TEXT, since, "the last words to their end")
    wait_until(mail.links, 10, "a mail link")
    if mail.links() != [LINK]:
        walk.missed.append(f"the mail link: {LINK}; instead {mail.links()}")
