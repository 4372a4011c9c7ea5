"""The stand-in for other people's programs answers as real controls do, seen from another process."""

import unittest

from harness import Desktop, wait_until

ROLE_PUSH_BUTTON, ROLE_CLIENT, ROLE_TEXT = 43, 10, 42
ON_ICON, ON_LABEL, NOWHERE = 2, 4, 1
ICONS = "FolderView"  # what the desktop's icon list is called

desktop = target = probe = hand = None


def setUpModule():
    global desktop, target, probe, hand
    desktop = unittest.enterModuleContext(Desktop())
    target = unittest.enterModuleContext(desktop.target("all"))
    probe = unittest.enterModuleContext(desktop.probe())
    hand = unittest.enterModuleContext(desktop.hand())


tearDownModule = unittest.doModuleCleanups


def object_under(x, y):
    """On a busy machine the desktop's icon list was found where another window lies above it; it is asked again then."""
    def found():
        it = probe.ask("object", x, y)
        return it if it["name"].get("text") != ICONS else None

    return wait_until(found, 100, f"another object than the desktop's at {x}, {y}")


def object_at(name):
    return object_under(*target.centre(name))


class Windows(unittest.TestCase):
    # Windows whose middle other windows cover.
    COVERED = {"controls", "texts", "menus", "elements", "progman", "view", "taskbar", "tray", "rebar", "simplecombo",
               "icons"}

    def test_every_window_is_found_under_its_middle(self):
        for name, window in target.windows.items():
            if name in self.COVERED:
                continue
            with self.subTest(name):
                found = probe.ask("at", *target.centre(name))
                self.assertEqual((found["hwnd"], found["class"], found["process"]),
                                 (window["hwnd"], window["class"], target.id))

    def test_the_desktop_is_a_chain_of_three_windows_below_all_others(self):
        progman = probe.ask("find", "Progman", "Program Manager")
        self.assertEqual(progman, {"hwnd": target.handle("progman"), "child": target.handle("view")})
        icons = probe.ask("at", 50, 600)
        self.assertEqual((icons["class"], icons["parent"]), ("SysListView32", target.handle("view")))

    def test_the_clock_is_a_child_of_the_task_bar(self):
        clock = probe.ask("at", *target.centre("clock"))
        self.assertEqual((clock["class"], clock["parent"]), ("TrayClockWClass", target.handle("tray")))
        self.assertEqual(object_at("clock")["name"]["text"], "10:45 PM")

    def test_windows_of_both_kinds(self):
        kinds = {name: target.windows[name]["unicode"] for name in ("ok", "ansibutton", "ansifield", "richansi", "rich")}
        self.assertEqual(kinds, {"ok": True, "ansibutton": False, "ansifield": False, "richansi": False, "rich": True})
        self.assertEqual(object_at("ansifield")["value"]["text"], "caf\u00e9")

    def test_windows_come_move_and_go_as_told(self):
        made = target.create("guest", class_="GuestClass", title="Caf\u00e9", rect=(600, 450, 700, 500))
        self.assertEqual((made["class"], made["rect"]), ("GuestClass", [600, 450, 700, 500]))
        self.assertEqual(probe.ask("at", 650, 475)["hwnd"], made["hwnd"])
        self.assertEqual(probe.ask("find", "GuestClass", "Caf\u00e9")["hwnd"], made["hwnd"])
        target.ask("title", "guest", "Other")
        self.assertEqual(probe.ask("text", made["hwnd"], 100)["text"], "Other")
        target.ask("move", "guest", 600, 550, 700, 600)
        self.assertNotEqual(probe.ask("at", 650, 475)["hwnd"], made["hwnd"])
        self.assertEqual(probe.ask("at", 650, 575)["hwnd"], made["hwnd"])
        target.ask("hide", "guest")
        self.assertNotEqual(probe.ask("at", 650, 575)["hwnd"], made["hwnd"])
        target.ask("show", "guest")
        self.assertEqual(probe.ask("at", 650, 575)["hwnd"], made["hwnd"])
        target.destroy("guest")
        self.assertEqual(probe.ask("find", "GuestClass", "Other")["hwnd"], 0)

    def test_what_cannot_be_done_is_refused(self):
        for words in (("juggle",), ("title", "nobody", "x"), ("items", "ok", "x"), ("rule", "ok", "WM_NOISE", "die"),
                      ("rule", "ok", "WM_GETTEXT", "sing"), ("where", "list", "item", 99), ("create", "ok")):
            with self.subTest(words), self.assertRaises(RuntimeError):
                target.ask(*words)


class Controls(unittest.TestCase):
    def test_names_values_and_roles_of_the_usual_controls(self):
        for name, text in (("ok", "OK"), ("remember", "Remember me"), ("ansibutton", "Caf\u00e9"), ("label", "Your name:")):
            with self.subTest(name):
                self.assertEqual(object_at(name)["name"]["text"], text)
        field = object_at("field")
        self.assertEqual((field["value"]["text"], field["role"]["number"]), ("hello", ROLE_TEXT))
        self.assertNotIn("text", object_at("blankbutton")["name"])
        self.assertEqual(object_at("ok")["role"]["number"], ROLE_CLIENT)

    def test_a_list_box_tells_its_items(self):
        self.assertEqual(probe.ask("listtext", target.handle("list"), 1, 100)["text"], "Banana")
        self.assertEqual(probe.ask("send", target.handle("list"), "LB_GETTEXTLEN", 1, 0)["result"], 6)
        self.assertEqual(probe.ask("send", target.handle("list"), "LB_GETTEXTLEN", 99, 0)["result"], -1)

    def test_an_owner_drawn_list_box_tells_bytes_of_its_data(self):
        size = desktop.bits() // 8  # of an address
        self.assertEqual(probe.ask("listtext", target.handle("drawn"), 0, 100)["text"], "A" + (size - 1) * "\0")
        self.assertEqual(probe.ask("send", target.handle("drawn"), "LB_GETTEXTLEN", 0, 0)["result"], size)

    def test_list_views_tell_item_and_label(self):
        for name, index, label in (("icons", 1, "My Documents"), ("icons", 4, "Gr\u00fc\u00dfe"), ("details", 2, "Photo.jpg")):
            handle = target.handle(name)
            with self.subTest(name):
                hit = probe.ask("hit", handle, *target.place(name, "label", index))
                self.assertEqual((hit["item"], hit["flags"]), (index, ON_LABEL))
                self.assertEqual(probe.ask("hit", handle, *target.place(name, "item", index))["flags"], ON_ICON)
                self.assertEqual(probe.ask("label", handle, index)["text"], label)
        self.assertEqual(probe.ask("hit", target.handle("icons"), 50, 600)["flags"], NOWHERE)

    def test_edits_take_a_packed_point_and_rich_edits_a_record(self):
        index = 22  # the second character of the second line
        for name in ("multiline", "textbox", "editbox"):
            with self.subTest(name):
                x, y = target.place(name, "char", index)
                left, top, _, _ = target.windows[name]["rect"]
                border = 1
                packed = (y - top - border) * 65536 + (x - left - border)
                result = probe.ask("send", target.handle(name), "EM_CHARFROMPOS", 0, packed)["result"]
                self.assertEqual(divmod(result, 65536), (1, index))
                self.assertEqual(probe.ask("line", target.handle(name), 1, 100)["text"], "jumps over")
        for name in ("rich", "richansi"):
            with self.subTest(name):
                place = target.place(name, "char", index)
                self.assertEqual(probe.ask("character", target.handle(name), *place)["result"], index)
        self.assertEqual(probe.ask("line", target.handle("rich"), 1, 100)["text"], "jumps over\r")

    def test_a_line_is_given_up_to_the_capacity_asked_for(self):
        target.create("lines", class_="LongTextBox", base="Edit", rect=(600, 450, 800, 500), title="ab" * 1000)
        self.addCleanup(target.destroy, "lines")
        handle = target.handle("lines")
        self.assertEqual(probe.ask("send", handle, "EM_LINELENGTH", 0, 0)["result"], 2000)
        for capacity in (4, 20, 300, 1028, 2500):
            with self.subTest(capacity):
                told = probe.ask("line", handle, 0, capacity)
                self.assertEqual(told["result"], min(capacity, 2000))
                # Wine's sender takes the capacity for bytes as it unpacks the line, so half of it may be missing.
                self.assertEqual(told["text"][:capacity // 2], ("ab" * 1000)[:capacity // 2])

    def test_a_menu_opens_under_the_pointer(self):
        hand.move(*target.place("menus", "menu", 0))
        hand.click()
        self.addCleanup(hand.tap, "Escape", "Escape")
        x, y = target.place("menus", "menu", 0)
        below = lambda: probe.ask("at", x, y + 25)["class"] == "#32768"
        wait_until(below, 60, "the menu opens")


class Elements(unittest.TestCase):
    def test_each_part_is_found_under_its_place(self):
        address = object_under(840, 380)
        self.assertEqual((address["child"], address["name"]["text"], address["value"]["text"],
                          address["description"]["text"], address["role"]["number"]),
                         (1, "Address", "hello", "Where to", ROLE_TEXT))
        ok = object_under(960, 380)  # an object of its own
        self.assertEqual((ok["child"], ok["name"]["text"], ok["role"]["number"]), (0, "OK", ROLE_PUSH_BUTTON))
        own = object_under(960, 405)["role"]
        self.assertNotIn("number", own)
        self.assertEqual(own["text"], "flower pot")

    def test_every_role_number(self):
        for role in range(65):
            with self.subTest(role):
                found = object_under(140 + role % 10 * 43, 465 + role // 10 * 38)
                self.assertEqual((found["name"]["text"], found["role"]["number"]), (f"role {role}", role))
                self.assertTrue(found["role"]["text"])

    def test_any_name_comes_across_unchanged(self):
        target.create("odd", class_="OddNames", rect=(600, 450, 800, 500), thread="odd")
        self.addCleanup(target.destroy, "odd")
        names = ["", "   ", "x" * 100_000, "\ud800 alone", "\x01\x07\x1f", "one\r\ntwo\nthree", "\U0001f600 smile", "a\0b",
                 "\u202eright", "&", '"quoted\\"']
        for name in names:
            with self.subTest(name[:20]):
                target.element("odd", 0, name=name)
                self.assertEqual(probe.ask("object", 700, 475)["name"]["text"], name)

    def test_properties_fail_one_by_one(self):
        target.create("failing", class_="FailingParts", rect=(600, 450, 800, 500), thread="odd")
        self.addCleanup(target.destroy, "failing")
        target.element("failing", 0, name="n", value="v", description="d", role=ROLE_PUSH_BUTTON)
        for fails in (("name",), ("value", "role"), ("description",)):
            with self.subTest(fails):
                target.element("failing", 0, fails=fails)
                told = probe.ask("object", 700, 475)
                for part in ("name", "value", "description", "role"):
                    self.assertEqual(told[part]["result"] == 0, part not in fails, part)
                    self.assertEqual("text" in told[part], part not in fails, part)

    def test_roles_of_other_types(self):
        target.create("typed", class_="TypedRoles", rect=(600, 450, 800, 500), thread="odd")
        self.addCleanup(target.destroy, "typed")
        for name, number in (("i2", 2), ("r8", 5), ("empty", 0)):
            with self.subTest(name):
                target.element("typed", 0, role=12, roletype=name)
                self.assertEqual(probe.ask("object", 700, 475)["role"]["type"], number)
