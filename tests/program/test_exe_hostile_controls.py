"""Controls that hang, die or lie while they are read: each is survived, the next healthy window is named, also while they
hang, and memory in them is given back when they are done with it, and not before."""

import itertools
import time

from harness import wait_until
from listening import QUICK, SOON, Listening

HEALTHY = ((960, 380), "O K button"), ((840, 405), "Page up")
HUGE = 2**31 - 1
SLOW = 60    # milliseconds
LATE = 300   # milliseconds, three times what is waited for
ROUNDS = 2
PROBE = "WM_NULL"  # what a control is sent that has not answered
LENT = 10    # seconds, more than a block stays after the control that has it has answered
ROUGHLY = 3  # handles that a query which is just going on may have open

# The controls that a target makes, with the places on them that are visited.
RECTS = {"list": (100, 450, 200, 530), "view": (220, 450, 400, 530), "text": (100, 550, 300, 600), "rich": (320, 550, 520, 600),
         "button": (420, 450, 520, 490)}
PLACES = {"list": (130, 0), "view": (235, 479), "text": (110, 558), "rich": (330, 558), "button": (470, 470)}
LIST_ROWS = (471, 458, 484)  # one after the other, since an item is not told twice in a row

HANGS = (
    {"list": "LB_ITEMFROMPOINT", "view": "LVM_SUBITEMHITTEST", "text": "EM_CHARFROMPOS", "rich": "EM_CHARFROMPOS",
     "button": "WM_GETTEXTLENGTH"},
    {"list": "LB_GETTEXT", "view": "LVM_GETITEMA", "text": "EM_GETLINE", "rich": "EM_LINELENGTH", "button": "WM_GETTEXT"},
)
# The blocks that are left with them: the record of a hit test and a point, a record with its text.
KEPT_WHILE_THEY_HANG = (2, 2)
LIES = (
    ("list", "LB_ITEMFROMPOINT", "result", -1), ("list", "LB_GETTEXTLEN", "result", HUGE), ("list", "LB_GETTEXTLEN", "result", -5),
    ("list", "LB_GETTEXT", "text", "z" * 300, HUGE),
    ("view", "LVM_SUBITEMHITTEST", "hit", HUGE, 4), ("view", "LVM_SUBITEMHITTEST", "hit", -7, 2),
    ("view", "LVM_GETITEMA", "text", "y" * 300, 1),
    ("text", "EM_LINELENGTH", "result", HUGE), ("text", "EM_LINELENGTH", "result", -5), ("text", "EM_CHARFROMPOS", "result", HUGE),
    ("text", "EM_GETLINE", "text", "z" * 200, 5000), ("text", "EM_GETLINE", "result", -1),
    ("rich", "EM_CHARFROMPOS", "result", HUGE), ("rich", "EM_LINELENGTH", "result", HUGE), ("rich", "EM_LINEFROMCHAR", "result", -HUGE),
    ("button", "WM_GETTEXTLENGTH", "result", HUGE), ("button", "WM_GETTEXTLENGTH", "result", -5), ("button", "WM_GETTEXT", "result", HUGE),
)
CHANGES = (("list", "LB_ITEMFROMPOINT", "items list"), ("list", "LB_GETTEXTLEN", 'items list "Much longer than the text before"'),
           ("view", "LVM_SUBITEMHITTEST", "items view"), ("view", "LVM_SUBITEMHITTEST", 'items view "Other"'),
           ("text", "EM_LINELENGTH", 'title text ""'), ("rich", "EM_CHARFROMPOS", 'title rich ""'))


class HostileControls(Listening):
    layouts = ("elements",)
    environment = QUICK

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.healthy = itertools.cycle(HEALTHY)
        cls.list_rows = itertools.cycle(LIST_ROWS)

    def make(self, *names):
        """A target with these controls, each answering by itself."""
        target = self.enterContext(self.desktop.target())
        for name in names:
            kinds = {"list": {"class_": "ListBox"}, "view": {"class_": "SysListView32", "kind": "report"},
                     "text": {"class_": "HostileTextBox", "base": "Edit", "title": "Some words"},
                     "rich": {"class_": "RichEdit20W", "title": "Other words"}, "button": {"class_": "HostileButton", "title": "Push"}}
            target.create(name, rect=RECTS[name], thread=name, **kinds[name])
            self.fill(target, name)
            if name == "button":
                target.element(name, 0, name="  ", role=43)  # so that its title is asked for
        return target

    def fill(self, target, name):
        if name in ("list", "view"):
            target.ask("items", name, "First item", "Second item", "Third item")

    def go_over(self, name):
        """Over the control, until a tick has come there: its notes sound before anything is asked."""
        x, y = PLACES[name]
        self.point((x, y or next(self.list_rows)))

    def go_on(self):
        """On to a healthy window, until that is named."""
        self.visit(*next(self.healthy))
        self.assertTrue(self.pointalk.running())

    def stay_over(self, name, question, what):
        """Over the control, from one of a list's rows to the next, until the answer is true."""
        def moved():
            self.go_over(name)
            return question()

        wait_until(moved, SOON, what, pause=0.05)

    def over(self, target, name, message):
        """Over the control until it was asked by that message, and on."""
        target.ask("reset")
        self.stay_over(name, lambda: message in target.counts(name), lambda: f"{message}: {target.counts(name)}")
        self.go_on()

    def read_all(self, target):
        """With everything taken in that first questions take, the small blocks of its memory. What a control is given that is
        late, as on a busy machine, stays for some seconds; then it has been given back."""
        late = False
        for name, message in HANGS[1].items():
            self.over(target, name, message)
            late = late or PROBE in target.counts(name)
        if late:
            time.sleep(LENT)
        return target.blocks().keys()

    def left(self, target, before):
        """The blocks that have come since."""
        return target.blocks().keys() - before

    def assert_given_back(self, target, before):
        wait_until(lambda: not self.left(target, before), SOON, lambda: f"all is given back: {self.left(target, before)}")

    def test_controls_that_hang_inside_a_message(self):
        """A message that hangs keeps what it was given, however often the pointer comes by."""
        for hangs, kept in zip(HANGS, KEPT_WHILE_THEY_HANG):
            target = self.make(*hangs)
            before = self.read_all(target)
            for name, message in hangs.items():
                with self.subTest(name, message=message):
                    target.rule(name, message, "hold")
                    self.over(target, name, message)
                    for _ in range(ROUNDS):
                        self.go_over(name)
                        self.go_on()
            wait_until(lambda: len(self.left(target, before)) == kept, SOON, lambda: f"{kept}: {self.left(target, before)}")
            for name in hangs:
                target.ask("unrule", name)
            self.assert_given_back(target, before)
            target.close()

    def test_controls_that_use_what_they_were_given_after_the_limit(self):
        """The target ends where memory that a message handed over is gone while it answers that."""
        for name, message in (("view", "LVM_SUBITEMHITTEST"), ("view", "LVM_GETITEMA"), ("rich", "EM_CHARFROMPOS")):
            with self.subTest(name, message=message):
                target = self.make(name)
                self.over(target, name, message)
                before = target.blocks().keys()
                target.rule(name, message, "delay", LATE)
                for _ in range(ROUNDS):
                    self.over(target, name, message)
                target.ask("send", name, "WM_NULL", 0, 0)  # by its own thread, once the message is answered
                self.assertIsNone(target.process.poll())
                target.ask("unrule", name)
                self.assert_given_back(target, before)
                target.close()

    def test_programs_that_are_closed_while_they_hang(self):
        """All that was kept for them is let go, and the next one's list is read as ever."""
        def handles():
            return probe.ask("resources", probe.ask("find", "PointalkPanel", "Pointalk Control Center")["hwnd"])["handles"]

        probe = self.enterContext(self.desktop.probe())
        before = None
        for _ in range(8):
            target = self.make("view")
            self.over(target, "view", "LVM_GETITEMA")
            before = before or handles()
            target.rule("view", "LVM_GETITEMA", "hold")
            self.over(target, "view", "LVM_GETITEMA")
            target.close()
        wait_until(lambda: handles() <= before + ROUGHLY, SOON, lambda: f"{before} handles: {handles()}")

    def test_controls_that_are_slow_to_answer_everything(self):
        target = self.make(*RECTS)
        for name in RECTS:
            target.rule(name, "*", "delay", SLOW)
        for _ in range(ROUNDS):
            for name in RECTS:
                self.go_over(name)
                self.go_on()

    def test_programs_that_die_inside_a_message(self):
        for name, message in (("list", "LB_GETTEXT"), ("view", "LVM_SUBITEMHITTEST"), ("view", "LVM_GETITEMA"),
                              ("text", "EM_GETLINE"), ("rich", "EM_CHARFROMPOS"), ("button", "WM_GETTEXT")):
            with self.subTest(name, message=message):
                target = self.make(name)
                target.rule(name, message, "die")
                self.stay_over(name, lambda: target.process.poll() is not None, "the program dies")
                self.assertEqual(target.wait_for_end(), 3)
                self.go_on()

    def test_controls_that_answer_nonsense(self):
        target = self.make(*RECTS)
        before = self.read_all(target)
        for name, message, *lie in LIES:
            with self.subTest(name, message=message, lie=lie):
                target.rule(name, message, *lie)
                self.over(target, name, message)
                target.ask("unrule", name)
        self.assert_given_back(target, before)

    def test_a_list_box_that_tells_more_than_it_has(self):
        """Wine 8 carries over what there is. Wine 10 reads as far as the list box says, which is left stuck by that or ends."""
        target = self.make("list")
        target.rule("list", "LB_GETTEXTLEN", "result", 65_000)

        def told():
            try:
                return "LB_GETTEXT" in target.counts("list")
            except EOFError:
                return True

        self.stay_over("list", told, "the text is asked for")
        self.go_on()

    def test_controls_that_change_while_they_are_read(self):
        target = self.make(*RECTS)
        before = self.read_all(target)
        for name, message, command in CHANGES:
            with self.subTest(name, command=command):
                self.fill(target, name)
                target.rule(name, message, "then", command)
                self.over(target, name, message)
                target.ask("unrule", name)
        self.assert_given_back(target, before)

    def test_windows_that_go_while_they_are_read(self):
        target = self.make(*RECTS)
        before = self.read_all(target)
        for name, message in HANGS[0].items():
            with self.subTest(name):
                target.rule(name, message, "then", "destroy " + name)
                living = lambda: [window["name"] for window in target.ask("windows")["windows"]]
                self.stay_over(name, lambda: name not in living(), f"{name} goes")
                self.go_on()
        self.assert_given_back(target, before)
