"""Lists of other programs: the desktop's icons, list views elsewhere, list boxes, and what reading them leaves behind."""

import struct

from harness import now, wait_until
from listening import EARCON, QUICK, SOON, Listening, again_where_late, note_on

ICONS = ("My Computer", "My Documents", "Recycle Bin", "Letters & Notes", "Gr\u00fc\u00dfe")
SCROLL_DOWN = [hex(note_on(EARCON, note, 90)) for note in (216, 215, 214, 213, 212, 211, 210, 209, 209)]
SCROLL_UP = [hex(note_on(EARCON, note, 90)) for note in (209, 210, 211, 212, 213, 214, 215, 216, 216)]


class Lists(Listening):
    layouts = ("desktop", "controls")
    environment = QUICK

    def setUp(self):
        self.leave()  # over no icon

    def at_rest(self, place, words=None, earcons=None):
        """What is said and sounded on the way from one rest to the next; waits for the words and sounds that are named."""
        since = now()
        self.point(place)
        for text in words or []:
            self.heard.wait_words(text, SOON, since)
        if earcons:
            wait_until(lambda: self.earcons(since) == earcons, SOON, lambda: f"{earcons}; heard {self.heard.lines(since)}")
        self.rest()
        return self.heard.words(since), self.earcons(since)

    def assert_at_rest(self, place, words, earcons):
        """Just these are said and sounded on the way from one rest to the next."""
        self.assertEqual(self.at_rest(place, words, earcons), (words, earcons))

    def come_from_button(self):
        """From the button once it is named, which takes what the way there has left to be said before a name."""
        self.visit_until(self.target.centre("ok"), lambda text: text.endswith("O K button"), "the button")
        self.rest()

    def last_sound_at(self, place, words):
        """The last event sound until the pointer rests at a place where these words are said."""
        since = self.visit(place, words)
        self.rest()
        return self.earcons(since)[-1]

    def make_list(self, name, holder, title, rect, *items, **options):
        """A list in a top-level window of its own."""
        left, top, right, bottom = rect
        self.target.create(holder, class_="ListHolder", title=title, rect=rect, thread=holder)
        self.target.create(name, parent=holder, rect=(left + 5, top + 5, right - 5, bottom - 5), **options)
        self.target.ask("items", name, *items)
        self.addCleanup(self.target.destroy, holder)

    @again_where_late
    def test_icons_of_the_desktop(self):
        self.come_from_button()
        self.target.ask("hide", "controls")
        self.addCleanup(self.target.ask, "show", "controls")
        self.assertEqual(self.last_sound_at(self.target.place("icons", "item", 0), "Desktop, " + ICONS[0]), "NewIcon")
        self.assert_at_rest(self.target.place("icons", "label", 0), [], [])
        for index in range(1, 5):
            self.assert_at_rest(self.target.place("icons", "label", index), [ICONS[index]], ["NewIcon"])
        self.assert_at_rest((500, 600), ["Desktop"], ["OffIcon"])
        self.assert_at_rest((600, 600), [], [])
        self.assert_at_rest(self.target.place("icons", "item", 4), [ICONS[4]], ["NewIcon"])

    @again_where_late
    def test_items_of_another_window_after_its_name(self):
        self.come_from_button()
        words, earcons = self.at_rest(self.target.place("details", "label", 0))
        self.assertEqual((words, earcons), (["Controls, Report dot txt"], ["NewWindow", "NewIcon"]))
        self.assert_at_rest(self.target.place("details", "label", 2), ["Photo dot jpg"], ["NewIcon"])
        left, _, right, bottom = self.target.windows["details"]["rect"]
        self.assert_at_rest(((left + right) // 2, bottom - 5), ["Controls,"], ["OffIcon"])
        self.assert_at_rest(self.target.place("details", "label", 1), ["Budget dot xls"], ["NewIcon"])

    def test_from_list_to_list_each_holder_is_named(self):
        self.make_list("first", "north", "North", (600, 100, 900, 250), "One", "Two", class_="SysListView32")
        self.make_list("second", "south", "South", (600, 260, 900, 410), "Three", "Four", class_="SysListView32", kind="report")
        self.make_list("third", "nowhere", "", (600, 420, 900, 570), "Five", "Six", class_="OwnListOrView",
                       base="SysListView32")
        for name, index, said in (("first", 1, "North, Two"), ("second", 0, "South, Three"), ("second", 1, "Four"),
                                  ("first", 0, "North, One"), ("third", 1, "Six"), ("third", 0, "Five"),
                                  ("second", 1, "South, Four")):
            with self.subTest(said):
                self.visit(self.target.place(name, "label", index), said)

    def test_labels_that_are_long_or_odd(self):
        long = "Label " * 60
        self.make_list("odd", "holder", "Odd", (600, 100, 1000, 400), long, "Ends\x01", "\x02", "Last", class_="SysListView32",
                       kind="report")
        self.visit(self.target.place("odd", "label", 3), "Odd, Last")
        self.visit(self.target.place("odd", "label", 0), long[:133])
        self.visit(self.target.place("odd", "label", 1), "Ends")
        self.visit(self.target.place("odd", "label", 2), "Odd,")  # an empty label

    @again_where_late
    def test_items_of_a_list_box(self):
        self.target.ask("send", "list", "LB_SETTOPINDEX", 0, 0)
        self.come_from_button()
        self.assertEqual(self.last_sound_at(self.target.place("list", "item", 1), "Banana"), "ListBoxHit")
        x, y = self.target.place("list", "item", 1)
        self.assert_at_rest((x + 10, y + 1), [], [])
        for index, text in ((2, "Cherry"), (0, "Apple"), (3, "Date")):
            self.assert_at_rest(self.target.place("list", "item", index), [text], ["ListBoxHit"])

    @again_where_late
    def test_a_list_box_that_was_scrolled(self):
        self.target.ask("send", "list", "LB_SETTOPINDEX", 0, 0)
        x, y = self.target.place("list", "item", 1)
        self.come_from_button()
        self.at_rest((x, y))
        for top, said, scroll in ((3, "Elder", SCROLL_DOWN), (2, "Date", SCROLL_UP)):
            with self.subTest(said):
                self.target.ask("send", "list", "LB_SETTOPINDEX", top, 0)
                x += 1
                self.assert_at_rest((x, y), [said], [*scroll, "ListBoxHit"])

    @again_where_late
    def test_below_the_last_item_of_a_list_box(self):
        self.make_list("short", "box", "Box", (600, 100, 900, 250), "One", "Two", class_="ListBox")
        self.at_rest(self.target.place("short", "item", 0))
        self.visit(self.target.place("short", "item", 1), "Two")
        self.rest()
        words, earcons = self.at_rest((750, 230))
        self.assertEqual((words, set(earcons)), ([], {"OffVisibleArea"}))
        self.assert_at_rest(self.target.place("short", "item", 1), [], [])  # still the last item that was hit
        self.visit(self.target.place("short", "item", 0), "One")

    @again_where_late
    def test_a_list_box_that_draws_its_data_itself_only_sounds(self):
        self.come_from_button()
        self.at_rest(self.target.place("drawn", "item", 2))
        for index in (1, 0, 2):
            self.assert_at_rest(self.target.place("drawn", "item", index), [], ["ListBoxHit"])

    def test_one_record_stays_in_the_first_list_and_nothing_in_any_other(self):
        records = [block for block in self.target.blocks().values()
                   if bytes.fromhex(block["bytes"]).startswith(struct.pack("<ii", *self.away))]
        self.assertEqual(len(records), 1)  # the pointer waited over the icons while Pointalk started
        with self.desktop.target() as other:
            self.target, target = other, self.target
            try:
                other.create("holder", class_="ListHolder", title="Other", rect=(600, 100, 900, 400))
                other.create("view", class_="SysListView32", kind="report", parent="holder", rect=(610, 110, 890, 200))
                other.ask("items", "view", "One", "Two", "Three")
                other.create("rich", class_="RichEdit20W", title="Some text", parent="holder", rect=(610, 210, 890, 300))
                before = self.read_all(other), other.blocks().keys(), target.blocks().keys()
                for _ in range(8):
                    self.read_all(other)
            finally:
                self.target = target
            left = lambda: (other.blocks().keys() - before[1], target.blocks().keys() - before[2])
            # A tick that is just reading has its blocks there.
            wait_until(lambda: left() == (set(), set()), SOON, lambda: f"nothing is left; there is {left()}")

    def read_all(self, other):
        for index, said in enumerate(("One", "Two", "Three")):
            self.visit_until(other.place("view", "label", index), lambda text, said=said: said in text, said)
        self.visit(other.place("rich", "char", 2), "Some text")
