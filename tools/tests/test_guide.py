"""Proves that the check of the user guide passes a good guide and fails a spoilt one."""

import unittest

from test_checks import CheckCase

TABLE = """
constexpr MenuEntry kMenu[] = {
    {u"mnuFile", u"&File"},
    {u"mnuFileExit", u"E&xit", kNoKey, false, &Mouse::mnuFileExit_Click},
    {u"mnuVoice", u"&Voice"},
    {u"mnuVoiceMute", u"Mute Voice ", Shortcut::kControlM, false,
     &Mouse::mnuVoiceMute_Click},
};
constexpr PanelButton kButtons[] = {
    {u"cmdOne", u"One", &Mouse::cmdOne_Click},
    {u"cmdTwo", u"Two", &Mouse::cmdTwo_Click},
};
"""

GUIDE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<title>Guide</title>
</head>
<body>
<h1>Guide</h1>
<h2>Keys</h2>
<dl>
<dt>Shift</dt><dd>Spells.</dd>
<dt>Control</dt><dd>Asks.</dd>
<dt>Control and Shift</dt><dd>Names.</dd>
</dl>
<h2>Panel</h2>
<h3>Buttons</h3>
<dl><dt>One, Two</dt><dd>Do something.</dd></dl>
<h3>File menu</h3>
<dl><dt>Exit</dt><dd>Ends it.</dd></dl>
<h3>Voice menu</h3>
<dl><dt>Mute Voice, Control and M</dt><dd>Be quiet.</dd></dl>
<ul><li>A point.</li></ul>
</body>
</html>
"""


class TheGuide(CheckCase):
    def setUp(self):
        super().setUp()
        self.put("app/panel_table.cpp", TABLE)
        self.put("docs/guide.html", GUIDE)

    def spoilt(self, old, new, because):
        self.assertIn(old, GUIDE)
        self.put("docs/guide.html", GUIDE.replace(old, new))
        self.fails("check_guide.py", "--root", self.root, because=because)

    def test_a_good_one_passes(self):
        self.passes("check_guide.py", "--root", self.root)

    def test_what_cannot_be_listened_to(self):
        self.spoilt("<li>A point.</li>", "<li><img src='x.png'></li>", "<img> cannot")
        self.spoilt("<ul><li>A point.</li></ul>", "<table></table>", "<table> cannot")
        self.spoilt("<ul><li>A point.</li></ul>", "<li>A point.</li>", "<li> stands in <body>")
        self.spoilt("<ul><li>A point.</li></ul>", "<ul><li>A point.</ul>", "</ul> closes nothing")
        self.spoilt("<h3>Buttons</h3>", "<h4>Buttons</h4>", "a heading of level 4 follows one of level 2")
        self.spoilt("<!DOCTYPE html>\n", "", "no doctype")
        self.spoilt(' lang="en"', "", "no lang")
        self.spoilt("<title>Guide</title>", "<title> </title>", "no one <title>")
        self.spoilt("<h2>Panel</h2>", "<h1>Panel</h1>", "no one <h1>")

    def test_what_is_not_described(self):
        self.spoilt("One, Two", "One", "Buttons: Two is not described")
        self.spoilt("<dd>Ends it.</dd>", "<dd> </dd>", "File menu: Exit is not described")
        self.spoilt("<h3>File menu</h3>", "<h3>Other menu</h3>", "File menu: Exit is not described")
        self.spoilt("Mute Voice, Control and M", "Mute Voice", "Mute Voice is described without its key, Control and M")
        self.spoilt("One, Two", "One, Two, Three", "Buttons: there is no Three")
        self.spoilt("<dt>Control and Shift</dt><dd>Names.</dd>", "", "Control and Shift")

    def test_a_table_that_is_not_found(self):
        self.put("app/panel_table.cpp", "")
        self.put("docs/guide.html", GUIDE.replace("One, Two", ""))
        self.assertEqual(self.run_tool("check_guide.py", "--root", self.root), 1, self.output)
        self.assertIn("FAILED: The control panel was found.", self.output)


if __name__ == "__main__":
    unittest.main()
