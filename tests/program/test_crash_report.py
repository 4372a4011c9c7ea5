"""The crash report: armed by the menu, made by a right click or Shift, mailed by the link that the shell opens."""

import shutil

from harness import BUILD, now
from report_case import ReportCase


def report(class_name, name="", value="", text="", role="", description=""):
    return (f"mOfficialClassName = {class_name}\r\nmaccName = {name}\r\nmaccValue = {value}\r\nmaccText = {text}\r\n"
            f"maccRole = {role}\r\nmaccDescription = {description}\r\nmaccParent = ")


class Report(ReportCase):
    def setUp(self):
        self.target = self.enterContext(self.desktop.target())
        self.target.create("thing", class_="TroubleSome", rect=(100, 300, 300, 400), thread="thing")
        self.target.element("thing", 0, name="trouble", value="worth", description="a thing", role=43)
        self.target.create("button", class_="Button", title="Neighbour", rect=(400, 300, 600, 400))
        self.pointalk = self.enterContext(self.desktop.pointalk())
        self.start(self.pointalk)
        self.mailed = len(self.mail.links())

    def test_a_right_click_makes_it_and_a_left_click_does_not(self):
        self.hears("button", "Neighbour button")
        self.arm()
        self.hears("button", "Neighbour")
        self.hears("thing", "worth")
        since = now()
        self.hand.click()
        self.wiggle_until_said("Click", since)
        self.assertEqual(self.mail.links()[self.mailed:], [])
        self.assert_made("thing", self.by_right_click,
                         report("TroubleSome", "trouble", "worth", "worth", "push button", "a thing"))
        self.hears("button", "Neighbour button")

    def test_shift_makes_it_and_empty_fields_keep_their_lines(self):
        self.target.create("blank", class_="Blank", rect=(100, 450, 300, 550), thread="blank")
        self.target.element("blank", 0, role=10)
        self.arm()
        self.go("blank")
        self.assert_made("blank", self.by_shift, report("Blank", role="client"))

    def opens_the_mail_beside_a_start_in(self, folder):
        shutil.copy(BUILD / "wine" / "target" / "target.exe", folder / "start.exe")
        self.arm()
        self.go("thing")
        self.made(self.by_right_click)

    def test_a_program_named_start_beside_pointalk_is_not_started(self):
        self.opens_the_mail_beside_a_start_in(self.pointalk.folder)

    def test_a_program_named_start_in_the_current_folder_is_not_started(self):
        self.pointalk.kill()
        (self.pointalk.folder / "status.txt").unlink()
        elsewhere = self.desktop.folder / "elsewhere"
        elsewhere.mkdir()
        (elsewhere / "DidWarn.flg").touch()
        self.start(self.pointalk, directory=elsewhere)
        self.opens_the_mail_beside_a_start_in(elsewhere)

    def test_where_there_is_no_program_named_start_the_link_is_opened_itself(self):
        start = self.desktop.drive() / "windows" / "system32" / "start.exe"
        aside = start.with_name("aside.exe")
        start.rename(aside)
        self.addCleanup(aside.rename, start)
        self.arm()
        self.go("thing")
        self.made(self.by_right_click)
