#!/usr/bin/env python3
"""A program to point at: things of every kind at known places of a window without a frame, at the screen's top left."""

import gi

gi.require_version("Gtk", "3.0")

from gi.repository import Gtk  # noqa: E402

MENU_HEIGHT = 30
ROW_HEIGHT = 40
WIDTH = 220


class Columns:
    """Puts a thing into a column of rows; it is as high as the rows that it spans, less a gap."""

    def __init__(self, inside):
        self.inside = inside

    def put(self, thing, column, row, rows=1):
        thing.set_size_request(WIDTH, rows * ROW_HEIGHT - 10)
        self.inside.put(thing, 10 + column * 240, row * ROW_HEIGHT + 5)


def scrolled(thing):
    holder = Gtk.ScrolledWindow()
    holder.add(thing)
    return holder


def text_view(text):
    view = Gtk.TextView()
    view.get_buffer().set_text(text)
    return scrolled(view)


def list_box(*names):
    rows = Gtk.ListBox()
    for name in names:
        rows.add(Gtk.Label(label=name))
    return rows


def table(model, *titles):
    """A tree or a table: what tells them apart is the model."""
    view = Gtk.TreeView(model=model, headers_visible=False)
    for number, title in enumerate(titles):
        view.append_column(Gtk.TreeViewColumn(title, Gtk.CellRendererText(), text=number))
    return view


def add_buttons(columns):
    columns.put(Gtk.Button(label="Push me"), 0, 0)
    columns.put(Gtk.CheckButton(label="Check me"), 0, 1)
    columns.put(Gtk.RadioButton(label="Radio me"), 0, 2)
    columns.put(Gtk.ToggleButton(label="Toggle me"), 0, 3)
    nameless = Gtk.Button()
    nameless.get_accessible().set_description("Does what nobody has named")
    columns.put(nameless, 0, 4)


def add_fields(columns):
    columns.put(Gtk.Label(label="A label"), 0, 5)
    columns.put(Gtk.Entry(text="line text"), 0, 6)
    password = Gtk.Entry(text="secret", visibility=False)
    password.get_accessible().set_name("Pass phrase")
    columns.put(password, 0, 7)
    colours = Gtk.ComboBoxText()
    for colour in ("Red", "Green", "Blue"):
        colours.append_text(colour)
    colours.set_active(0)
    columns.put(colours, 0, 8)
    number = Gtk.SpinButton.new_with_range(0, 99, 1)
    number.set_value(7)
    columns.put(number, 0, 9)


def add_numbers(columns):
    slider = Gtk.Scale.new_with_range(Gtk.Orientation.HORIZONTAL, 0, 100, 1)
    slider.set_draw_value(False)
    slider.set_value(30)
    columns.put(slider, 0, 10)
    columns.put(Gtk.ProgressBar(fraction=0.4), 0, 11)
    bar = Gtk.Scrollbar(adjustment=Gtk.Adjustment(upper=100, page_size=10))
    columns.put(bar, 0, 12)


def add_texts(columns):
    columns.put(text_view("alpha beta gamma\ndelta epsilon\nzeta"), 1, 0, 3)
    columns.put(text_view("first line of words\nsecond line here"), 1, 3, 3)
    columns.put(list_box("Item one", "Item two", "Item three"), 1, 6, 3)


def add_tables(columns):
    nodes = Gtk.TreeStore(str)
    nodes.append(nodes.append(None, ["Node A"]), ["Node B"])
    columns.put(table(nodes, "Nodes"), 2, 0, 3)
    cells = Gtk.ListStore(str, str)
    cells.append(["Cell one", "Cell two"])
    columns.put(table(cells, "First", "Second"), 2, 3, 3)
    pages = Gtk.Notebook()
    pages.append_page(Gtk.Button(label="On the page"), Gtk.Label(label="Tab one"))
    pages.append_page(Gtk.Label(label="Other page"), Gtk.Label(label="Tab two"))
    columns.put(pages, 2, 6, 3)
    icons = Gtk.ListStore(str)
    icons.append(["Icon one"])
    columns.put(Gtk.IconView(model=icons, text_column=0), 2, 9, 3)


def menu_bar():
    bar = Gtk.MenuBar()
    bar.set_size_request(-1, MENU_HEIGHT)
    file = Gtk.MenuItem(label="_File", use_underline=True)
    entries = Gtk.Menu()
    for name in ("_Open", "Save _As"):
        entries.append(Gtk.MenuItem(label=name, use_underline=True))
    file.set_submenu(entries)
    bar.append(file)
    return bar


def main():
    window = Gtk.Window(title="GTK Target", decorated=False, resizable=False)
    inside = Gtk.Fixed()
    inside.set_size_request(730, 13 * ROW_HEIGHT)
    columns = Columns(inside)
    for add in (add_buttons, add_fields, add_numbers, add_texts, add_tables):
        add(columns)
    outside = Gtk.Box(orientation=Gtk.Orientation.VERTICAL)
    outside.pack_start(menu_bar(), False, False, 0)
    outside.pack_start(inside, True, True, 0)
    window.add(outside)
    window.connect("destroy", Gtk.main_quit)
    window.move(0, 0)
    window.show_all()
    Gtk.main()


if __name__ == "__main__":
    main()
