"""Password fields of every kind: what is in them is never said, spelled, reported or written down; what is in the same
fields while they are open is."""

import itertools

from harness import now, wait_until
from listening import QUICK, SOON, Listening
from report_case import MOST_REPORTS, ReportCase

SECRET = "kelpfin"  # said as it is written, and spelled by its letters
TITLE = f"{SECRET} {SECRET}"
LABEL = "Name of the fish"
AND_WAIT = 2  # the flags of an utterance that is waited for
ELSEWHERE = ((960, 380), "O K button"), ((840, 405), "Page up")

BELOW_PANEL = 320  # y
PASSWORD, MULTILINE, DISABLED, PROTECTED = 0x20, 0x4, 0x08000000, 0x20000000

# Fields that can be made as password fields, each with the class that it is made of and what is said when it is one.
MADE = {
    "edit": ("Edit", None, LABEL),
    "textbox": ("HarbourTextBox", "Edit", "It is eigh harbour text box"),
    "lines": ("HarbourEditBox", "Edit", "It is eigh harbour edit box"),
    "plank": ("HarbourPlank", "Edit", "It is eigh harbour plank"),
    "off": ("HarbourPier", "Edit", "It is eigh harbour"),  # disabled: the window at the place is the frame
    "rich20a": ("RichEdit20A", None, "client"),
    "rich20w": ("RichEdit20W", None, "client"),
    "rich50w": ("RICHEDIT50W", None, "client"),
    "richplank": ("HarbourRichEdit", "RICHEDIT50W", "client"),
}
STYLES = {"lines": MULTILINE, "off": DISABLED}  # the others have none of their own

# Fields that become password fields when they are there.
TURNED = {
    "lateedit": ("Edit", None, "It is eigh edit"),  # no label
    "latetextbox": ("HarbourLateTextBox", "Edit", "It is eigh harbour late text box"),
    "lateplank": ("HarbourLatePlank", "Edit", "It is eigh harbour late plank"),
    "laterich20w": ("RichEdit20W", None, "client"),
    "laterich50w": ("RICHEDIT50W", None, "client"),
    "combo": ("ComboBox", None, "It is eigh combo box"),
}


def rect(number, top):
    left, top = 100 + number % 3 * 220, top + number // 3 * 60
    return left, top, left + 200, top + 40


def letters(text):
    """The letters of a text, be it spelled or not."""
    return text.lower().replace(" ", "").replace("eigh", "a").replace("capitl", "")


def make_harbour(target, style, top=60):
    """Makes all the fields with what is to be kept in them, those of MADE with that style."""
    target.create("harbour", class_="Harbour", rect=(80, top - 20, 780, top + 380), thread="harbour")
    fields = {**MADE, **TURNED}
    for number, (name, (class_name, base, _)) in enumerate(fields.items()):
        options = {"base": base} if base else {}
        if name in MADE:
            options["style"] = STYLES.get(name, 0) | style
        if name == "combo":
            options["kind"] = "editable"
        target.create(name, class_=class_name, rect=rect(number, top), parent="harbour", title=TITLE, **options)
        if name == "edit":
            target.create("label", class_="Static", title=LABEL, rect=(100, top + 340, 300, top + 360), parent="harbour")
    target.ask("title", "combo", TITLE)


def make_own(target, state, top=460):
    """Makes windows whose own accessible objects have that state: one with a name and one without."""
    for number, (name, told) in enumerate({"named": {"name": LABEL}, "nameless": {}}.items()):
        left = 100 + number * 220
        target.create(name, class_="HarbourOwn", rect=(left, top, left + 200, top + 40))
        target.element(name, 0, value=TITLE, role=42, state=state, **told)


class PasswordFields(Listening):
    layouts = ("elements",)
    environment = QUICK

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.others = itertools.cycle(ELSEWHERE)

    def setUp(self):
        self.fields = self.enterContext(self.desktop.target())

    def place(self, name):
        """On the text of a field, on the button of a combo box."""
        left, top, right, bottom = self.fields.windows[name]["rect"]
        return (right - 6, top + 10) if name == "combo" else (left + 8, (top + bottom) // 2)

    def hears(self, name, words):
        """Moves over a field until that is said, be it spelled."""
        (x, y), since, looks = self.place(name), now(), itertools.count()

        def said():
            self.hand.move(x + next(looks) // 100 % 2, y)
            return any(letters(text) == letters(words) for text in self.heard.words(since))

        wait_until(said, SOON, lambda: f"{name}: {words}; heard {self.heard.words(since)}")
        return since

    def asks_by_keys(self, name, words):
        """What a listener may do over a field without a button: come to it, press Control, hold Shift."""
        self.visit(*next(self.others))
        self.hears(name, words)
        self.hears_its_kind(name)
        with self.hand.held("shift"):
            self.visit(ELSEWHERE[0][0], "Capitl O Capitl K   b u t t o n")
            self.hears(name, words)

    def asks_everything(self, name, words):
        """The same, and go along it and click."""
        self.asks_by_keys(name, words)
        x, y = self.place(name)
        self.hand.glide((x, y), (x + 5, y), 5)
        self.hand.glide((x, y + 1), (x + 60, y + 1), 10)
        for button, told in (("left", "Click"), ("middle", "Middle Click")):  # a right click opens a menu
            since = now()
            self.hand.click(button)
            self.heard.wait_words(told, SOON, since)

    def hears_its_kind(self, name):
        """Presses Control on the move until it is answered: a pointer that had come to rest before is told nothing."""
        (x, y), since, looks = self.place(name), now(), itertools.count()

        def said():
            look = next(looks)
            self.hand.move(x + 2 + look % 2, y)
            if look % 100 == 20:
                self.hand.press("ctrl")
            elif look % 100 == 0:
                self.hand.release("ctrl")
            return any(flags == AND_WAIT and text.startswith("It is a") for flags, text in self.speech(since))

        try:
            wait_until(said, SOON, lambda: f"the kind of {name}; heard {self.speech(since)}", pause=0.02)
        finally:
            self.hand.release("ctrl")

    def tells_nothing(self, fields, asks):
        since = now()
        for name, (_, _, words) in fields.items():
            with self.subTest(name):
                asks(name, words)
        self.assertEqual([text for text in self.heard.words(since) if SECRET in letters(text)], [])
        for path in self.pointalk.folder.iterdir():
            if path != self.heard.path:
                self.assertNotIn(SECRET.encode(), path.read_bytes(), path)

    def tells(self, names):
        """Each says what is in it, in the words of its class, and spells it."""
        for name in names:
            with self.subTest(name):
                words = TITLE + ", client area" if name in ("plank", "off", "lateplank", "combo") else TITLE
                self.visit(*next(self.others))
                self.hears(name, words)
                self.visit(*next(self.others))
                with self.hand.held("shift"):
                    self.hears(name, words)

    def test_a_password_field_tells_its_label_or_its_kind(self):
        make_harbour(self.fields, PASSWORD)
        for name in TURNED:
            self.fields.ask("conceal", name)
        self.tells_nothing({**MADE, **TURNED}, self.asks_everything)

    def test_an_open_field_tells_its_text_until_it_becomes_a_password_field(self):
        make_harbour(self.fields, 0)
        self.tells((*MADE, *TURNED))
        for name in TURNED:
            self.fields.ask("conceal", name)
        self.tells_nothing(TURNED, self.asks_by_keys)

    def test_a_protected_object_tells_its_name_or_its_kind(self):
        make_own(self.fields, 0)
        self.tells(("named", "nameless"))
        for name in ("named", "nameless"):
            self.fields.element(name, 0, state=PROTECTED)
        self.tells_nothing({"named": (None, None, LABEL), "nameless": (None, None, "It is eigh harbour own")},
                           self.asks_everything)


class Reports(ReportCase):
    """A run that keeps the class log after a crash, as far as a listener comes with it."""

    def setUp(self):
        self.target = self.enterContext(self.desktop.target())
        self.pointalk = self.enterContext(self.desktop.pointalk())

    def start_taking_notes(self):
        self.begin(self.pointalk)
        self.pointalk.wait_ready()
        self.pointalk.kill()
        self.begin(self.pointalk)
        self.panel.answer("Pointalk", "y")
        self.panel.answer("Pointalk", "Return")
        self.pointalk.wait_ready()
        self.open_panel(self.pointalk)

    def reported(self, name):
        """The facts of a report on a window."""
        self.arm()
        self.go(name)
        return self.made(self.by_shift)

    def test_no_report_log_or_mail_has_a_password(self):
        self.start_taking_notes()
        make_harbour(self.target, PASSWORD, BELOW_PANEL)
        make_own(self.target, PROTECTED, BELOW_PANEL + 390)
        fields = {"edit": "Edit", "plank": "HarbourPlank", "rich50w": "RichEdit50W", "named": "HarbourOwn"}
        for name, class_name in fields.items():
            with self.subTest(name):
                report = self.reported(name)
                self.assertIn(f"mOfficialClassName = {class_name}\r\n", report)
                self.assertNotIn(SECRET, letters(report))
        self.target.element("named", 0, state=0)
        told, report = f"maccValue = {TITLE}\r\nmaccText = {TITLE}\r\n", ""
        for _ in range(MOST_REPORTS):  # on a busy machine the object may be late in the tick that makes one
            if told not in report:
                report = self.reported("named")
        self.assertIn(told, report)
        self.go("plank")
        wait_until(lambda: self.pointalk.file("ClassName.txt") == "HarbourPlank\r\n", SOON, "the class in the log")
        self.pointalk.kill()
        self.assertEqual(self.pointalk.file("status.txt"), "logging\r\n")
        kept = [path for path in self.pointalk.folder.iterdir() if path != self.pointalk.heard.path]
        self.assertEqual([path.name for path in kept if SECRET.encode() in path.read_bytes()], [])
        self.assertEqual([link for link in self.mail.links() if SECRET in link], [])
