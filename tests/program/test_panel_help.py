"""Help, the questions of the other menus, and the ways through the menus."""

from harness import now, wait_until
from panel_case import SOON, PanelCase


class Help(PanelCase):
    def test_instructions_by_key_and_menu(self):
        for way in (lambda: self.hand.tap("F1"), lambda: self.panel.choose("Instructions")):
            since = now()
            way()
            self.notice("Pointalk Instructions", "This mouse driver lets you hear your mouse", "menu for user options. ",
                        since, "Return", then=["thank you"])

    def test_about(self):
        for key in ("Return", "Escape"):
            since = now()
            self.panel.choose("About Pointalk")
            self.notice("Pointalk", "Hello, and welcome to Pointalk, the Audio Mouse", " Hit Enter.", since, key,
                        then=["Thank you.", "OK."])

    def test_no_to_leaving_saves_and_goes_on(self):
        settings = self.pointalk.folder / "PTK.ini"
        before = settings.read_bytes()
        settings.write_bytes(b"gone\r\n")
        since = now()
        self.hand.tap("alt+f", "x")
        self.notice("Pointalk", "Do you want to quit from Pointalk?", " Y for yes, N for No.", since, "n", then=["No."])
        self.assertEqual(settings.read_bytes(), before)
        self.assertTrue(self.pointalk.running())
        self.assertEqual(self.pointalk.file("status.txt"), "running\r\n")

    def test_no_to_a_crash_report(self):
        since = now()
        self.panel.choose("Send Crash Report")
        self.notice("Crash Report Dialog", "Corvane is serious about reliability.", " Y for yes, N for No.", since, "n",
                    then=["No.", "Crash Report canceled"])

    def test_menus_are_walked_by_arrows(self):
        since = now()
        self.panel.open_menu("f")
        self.hand.tap("Right", "Right", "Down", "Down", "Down", "Return")
        self.said("Voice is now Mary.", since)
        since = now()
        self.panel.wait_for_keyboard()
        self.panel.open_menu("p")
        self.hand.tap("Right", "Return")
        self.panel.answer("Crash Report Dialog", "n")
        self.said("Crash Report canceled", since)
        self.panel.wait_for_keyboard()

    def test_escape_leaves_a_menu_without_a_command(self):
        before = self.pointalk.file("PTK.ini")
        for key in "fmvhpt":
            since = now()
            self.panel.open_menu(key)
            self.panel.close_menu()
            self.assertEqual(self.words(since), [])
        self.assertEqual(self.pointalk.file("PTK.ini"), before)

    def test_keys_are_other_programs_own_while_those_have_the_keyboard(self):
        with self.desktop.target() as target:
            target.create("other", class_="Other", rect=(100, 300, 500, 600), frame=True)
            target.ask("foreground", "other")
            wait_until(lambda: self.panel.focus()["window"]["class"] == "Other", SOON, "the other program in front")
            since, before = now(), self.pointalk.file("PTK.ini")
            self.hand.tap("F1", "F11", "F12", "ctrl+m", "alt+f", "x")
            self.assertEqual([line for line in self.pointalk.heard.stays_silent(1) if "text" in line], [])
            self.assertEqual(self.panel.focus()["window"]["class"], "Other")
            self.assertEqual(self.pointalk.file("PTK.ini"), before)
        self.panel.raise_it()
        self.panel.choose("Speed Up")
        self.said("speeding up voice", since)
