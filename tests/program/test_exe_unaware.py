"""Programs that know nothing of the screen's scale: the system enlarges them, and what lies under the pointer is named all the
same. Places are the screen's; such a program gives its own."""

from harness import Desktop
from listening import QUICK, SETTINGS, Listening, start

USUAL = 96                 # dots per inch at 100 %
OWN_SCREEN = (1024, 768)   # as such a program sees it
BETWEEN = "Remember me button"  # the text of another control: none is said twice in a row
LINES = ("Woven quick fox", "Must walk over", "", "When lazy dogs", "Do sleep")


class Enlarged:
    """At a scale of so many per cent."""

    percent = 100

    @classmethod
    def setUpClass(cls):
        size = "x".join(str(cls.enlarged(length)) for length in OWN_SCREEN)
        cls.desktop = cls.enterClassContext(Desktop(private=True, screen=size))
        cls.desktop.import_keys(f'[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]\n"Default"="{size}"\n\n'
                                "[HKEY_CURRENT_USER\\Control Panel\\Desktop]\n"
                                f'"LogPixels"=dword:{cls.enlarged(USUAL):08x}\n')
        cls.desktop.restart()
        cls.hand = cls.enterClassContext(cls.desktop.hand())
        cls.target = cls.enterClassContext(cls.desktop.target("controls", "texts", "elements", unaware=True))
        cls.pointalk = cls.enterClassContext(cls.desktop.pointalk(SETTINGS))
        cls.heard = cls.pointalk.heard
        start(cls.hand, cls.pointalk, cls.on_screen((1010, 700)), **QUICK)

    @classmethod
    def enlarged(cls, length):
        return length * cls.percent // 100

    @classmethod
    def on_screen(cls, place):
        """In the middle of what the program counts as one pixel there, or nearly so."""
        return tuple(cls.enlarged(2 * length + 1) // 2 for length in place)

    def go_elsewhere(self):
        self.visit(self.on_screen(self.target.centre("remember")), BETWEEN)

    def read(self, *steps, late=()):
        """Visits places of the program and what is said there, one after the other; nothing else may be said between, but for
        what a busy machine says where an answer is late."""
        (place, said), *others = steps
        begin = self.visit(self.on_screen(place), said)
        for place, said in others:
            self.visit(self.on_screen(place), said)
        words, between = iter(said for _, said in steps), []
        heard = self.heard.words(begin)
        due = next(words)
        for text in heard[heard.index(due):]:
            if text == due:
                due = next(words, None)
            else:
                between.append(text)
        self.assertEqual((due, [text for text in between if text not in late]), (None, []))

    def test_it_counts_in_pixels_of_its_own(self):
        with self.desktop.probe() as probe:
            seen = {line["hwnd"]: line["rect"] for line in probe.ask("windows")["windows"]}
        for name in ("controls", "texts"):
            own = self.target.windows[name]["rect"]
            self.assertEqual(seen[self.target.handle(name)], [self.enlarged(length) for length in own])

    def test_items_of_a_list_view(self):
        self.go_elsewhere()
        self.read(*((self.target.place("details", "label", index), said) for index, said in
                    ((0, "Controls, Report dot txt"), (1, "Budget dot xls"), (2, "Photo dot jpg"), (1, "Budget dot xls"))))

    def test_items_of_a_list_box(self):
        self.go_elsewhere()
        self.read(*((self.target.place("list", "item", index), said) for index, said in
                    ((4, "Elder"), (3, "Date"), (0, "Apple"), (1, "Banana"), (2, "Cherry"))))

    def test_words_of_texts(self):
        for field in ("editbox", "rich"):
            with self.subTest(field):
                self.go_elsewhere()
                self.target.ask("title", field, "\r\n".join(LINES))
                text = ("\r" if field == "rich" else "\r\n").join(LINES)
                places = {word: self.target.place(field, "char", text.index(word) + 1) for word in text.split()}
                self.read(*((places[word], said) for word, said in
                            (("Woven", LINES[0]), ("fox", "fox"), ("walk", LINES[1]), ("over", "over"), ("Do", LINES[4]))),
                          late=(LINES[0], LINES[0] + "\r"))  # what lies where no answer came

    def test_accessible_objects(self):
        self.read(((850, 405), "Page up"), ((960, 380), "O K button"), ((850, 405), "Page up"),
                  late=("It is eigh target elements", "Elements"))  # of their window


class At150Percent(Enlarged, Listening):
    percent = 150


class At200Percent(Enlarged, Listening):
    percent = 200
