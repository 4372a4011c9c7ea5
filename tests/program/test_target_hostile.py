"""The stand-in for other people's programs misbehaves as it is told, and counts what it is asked."""

import unittest

from harness import KILLED_AT_ITS_END, Desktop

HUGE = 2**31 - 1

desktop = probe = None


def setUpModule():
    global desktop, probe
    desktop = unittest.enterModuleContext(Desktop())
    probe = unittest.enterModuleContext(desktop.probe())


tearDownModule = unittest.doModuleCleanups


class WithTarget(unittest.TestCase):
    layouts = ()

    def setUp(self):
        self.target = self.enterContext(desktop.target(*self.layouts))

    def send(self, name, message, w=0, l=0, limit=20_000):
        return probe.ask("send", self.target.handle(name), message, w, l, limit)


class Hanging(WithTarget):
    layouts = ("controls", "texts")

    def test_only_windows_of_its_thread_hang_until_they_are_woken(self):
        self.target.ask("hang", "ok")
        self.assertFalse(self.send("field", "WM_NULL", limit=100)["answered"])
        self.assertTrue(self.send("multiline", "WM_NULL")["answered"])
        self.assertEqual(self.target.counts("field"), {})
        self.assertFalse(self.send("ok", "WM_NULL", limit=100)["answered"])
        self.target.ask("wake", "ok")
        self.assertTrue(self.send("ok", "WM_NULL")["answered"])

    def test_a_slow_window_answers_late_but_rightly(self):
        self.target.rule("field", "WM_GETTEXTLENGTH", "delay", 2000)
        self.assertFalse(self.send("field", "WM_GETTEXTLENGTH", limit=100)["answered"])
        self.assertEqual(self.send("field", "WM_GETTEXTLENGTH")["result"], 5)

    def test_a_message_that_is_held_is_answered_when_the_rule_goes(self):
        self.target.rule("field", "WM_GETTEXTLENGTH", "hold")
        self.assertEqual(probe.ask("text", self.target.handle("field"), 100)["text"], "hello")
        self.assertFalse(self.send("field", "WM_GETTEXTLENGTH", limit=100)["answered"])
        self.assertFalse(self.send("field", "WM_NULL", limit=100)["answered"])
        self.target.ask("unrule", "field")
        self.assertEqual(self.send("field", "WM_GETTEXTLENGTH")["result"], 5)


class Dying(unittest.TestCase):
    def dies(self, layout, name, message, question):
        with self.subTest(message), desktop.target(layout) as target:
            target.rule(name, message, "die")
            question(target)
            self.assertIn(target.wait_for_end(), (3, KILLED_AT_ITS_END))
            with self.assertRaises(EOFError):
                target.ask("counts")

    def test_the_process_ends_inside_a_message(self):
        text = lambda name: lambda target: probe.ask("text", target.handle(name), 100)
        self.dies("controls", "field", "WM_GETTEXT", text("field"))
        self.dies("controls", "ok", "WM_GETOBJECT", lambda target: probe.ask("object", *target.centre("ok")))
        self.dies("controls", "list", "LB_GETTEXT", lambda target: probe.ask("listtext", target.handle("list"), 0, 100))
        self.dies("texts", "multiline", "EM_GETLINE", lambda target: probe.ask("line", target.handle("multiline"), 0, 100))
        self.dies("elements", "elements", "accValue", lambda target: probe.ask("object", 840, 380))

    def test_the_process_ends_between_hit_test_and_label(self):
        def hit_and_label(target):
            handle = target.handle("icons")
            self.assertEqual(probe.ask("hit", handle, *target.place("icons", "label", 1))["item"], 1)
            self.assertFalse(probe.ask("label", handle, 1)["answered"])
        self.dies("desktop", "icons", "LVM_GETITEMA", hit_and_label)


class Lying(WithTarget):
    layouts = ("desktop", "controls", "texts")

    def test_counts_that_make_no_sense(self):
        for name, message, number in (("field", "WM_GETTEXTLENGTH", HUGE), ("field", "WM_GETTEXTLENGTH", -5),
                                      ("list", "LB_GETTEXTLEN", 65000), ("list", "LB_ITEMFROMPOINT", 0x00010000),
                                      ("multiline", "EM_LINELENGTH", HUGE), ("multiline", "EM_CHARFROMPOS", -2)):
            with self.subTest(message, number=number):
                self.target.rule(name, message, "result", number)
                self.assertEqual(self.send(name, message)["result"], number)
        self.assertEqual(probe.ask("listtext", self.target.handle("list"), 0, 70000)["result"], 5)

    def test_a_line_longer_than_the_room_for_it(self):
        self.target.rule("multiline", "EM_GETLINE", "text", "z" * 200, 5000)
        told = probe.ask("line", self.target.handle("multiline"), 0, 100)
        self.assertEqual((told["result"], told["text"][:40]), (5000, "z" * 40))
        self.target.rule("ansifield", "WM_GETTEXT", "text", "Gr\u00fc\u00dfe", 5)
        self.assertEqual(probe.ask("text", self.target.handle("ansifield"), 100)["text"], "Gr\u00fc\u00dfe")

    def test_a_hit_test_and_a_label_that_lie(self):
        handle, place = self.target.handle("icons"), self.target.place("icons", "label", 1)
        self.target.rule("icons", "LVM_SUBITEMHITTEST", "hit", 123456, 4)
        hit = probe.ask("hit", handle, *place)
        self.assertEqual((hit["item"], hit["flags"]), (123456, 4))
        self.target.rule("icons", "LVM_GETITEMA", "text", "y" * 300, 1)
        self.assertEqual(probe.ask("label", handle, 1)["text"], "y" * 255)  # no end mark in the buffer

    def test_the_list_changes_between_hit_test_and_label(self):
        handle = self.target.handle("icons")
        self.target.rule("icons", "LVM_SUBITEMHITTEST", "then", 'items icons "Other one" "Other two"')
        self.assertEqual(probe.ask("hit", handle, *self.target.place("icons", "label", 1))["item"], 1)
        self.assertEqual(probe.ask("label", handle, 1)["text"], "Other two")
        self.target.rule("icons", "LVM_SUBITEMHITTEST", "then", "items icons")
        probe.ask("hit", handle, *self.target.place("icons", "label", 1))
        self.assertEqual(probe.ask("label", handle, 1)["text"], "")

    def test_the_window_goes_between_hit_test_and_label(self):
        handle, place = self.target.handle("icons"), self.target.place("icons", "label", 1)
        self.target.rule("icons", "LVM_SUBITEMHITTEST", "then", "destroy icons")
        probe.ask("hit", handle, *place)
        self.assertNotEqual(probe.ask("at", *place)["hwnd"], handle)


class Counting(WithTarget):
    layouts = ("desktop", "controls", "elements")

    def test_only_what_other_programs_ask_is_counted(self):
        self.target.ask("title", "ok", "Fine")
        self.target.ask("items", "list", "One")
        self.assertEqual(self.target.all_counts(), {})
        for _ in range(3):
            probe.ask("text", self.target.handle("ok"), 100)
        self.send("ok", "0x8123")
        self.assertEqual(self.target.all_counts(), {"ok": {"WM_GETTEXT": 3, "0x8123": 1}})
        self.target.ask("reset")
        self.assertEqual(self.target.all_counts(), {})

    def test_calls_on_accessible_objects_are_counted(self):
        probe.ask("object", 840, 380)
        counts = self.target.counts("elements")
        self.assertEqual([counts[call] for call in ("accHitTest", "accName", "accRole", "accDescription", "accValue")], 5 * [1])
        self.assertGreaterEqual(counts["WM_GETOBJECT"], 1)

    def test_a_block_left_behind_is_seen_and_one_given_back_is_not(self):
        handle, place = self.target.handle("icons"), self.target.place("icons", "label", 1)
        probe.ask("hit", handle, *place)
        before = self.target.blocks()
        probe.ask("hit", handle, *place)
        probe.ask("label", handle, 1)
        self.assertEqual(self.target.blocks().keys() - before.keys(), set())
        probe.ask("hit", handle, *place, keep=1)
        left = self.target.blocks().keys() - before.keys()
        self.assertEqual(len(left), 1)
        record = bytes.fromhex(self.target.blocks()[left.pop()]["bytes"])
        self.assertEqual([int.from_bytes(record[at:at + 4], "little") for at in (0, 4, 12)], [*place, 1])
