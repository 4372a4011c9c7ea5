// The keys `windows` and `objects` of a script.
#include <utility>

#include "sim/script_reader.h"

namespace pointalk::sim {
namespace {

MenuSetup ReadMenu(const ScriptNode& node);

void ReadSubmenu(const ScriptNode& node, MenuSetup::Item& item);

constexpr KeyReader<MenuSetup::Item> kMenuItemKeys[] = {
    {"text", [](const ScriptNode& n, MenuSetup::Item& i) { i.text = n.Ansi(); }},
    {"rect", [](const ScriptNode& n, MenuSetup::Item& i) { i.place = ReadRectangle(n); }},
    {"items", ReadSubmenu},
};

std::vector<MenuSetup::Item> ReadMenuItems(const ScriptNode& node) {
  return node.Items([](const ScriptNode& itemNode) {
    MenuSetup::Item item;
    ReadKeys(itemNode, kMenuItemKeys, item);
    return item;
  });
}

void ReadSubmenu(const ScriptNode& node, MenuSetup::Item& item) {
  item.submenu = MenuSetup{ReadMenuItems(node)};
}

constexpr KeyReader<MenuSetup> kMenuKeys[] = {
    {"items", [](const ScriptNode& n, MenuSetup& m) { m.items = ReadMenuItems(n); }},
};

MenuSetup ReadMenu(const ScriptNode& node) {
  MenuSetup menu;
  ReadKeys(node, kMenuKeys, menu);
  return menu;
}

constexpr KeyReader<ListBox> kListBoxKeys[] = {
    {"items",
     [](const ScriptNode& n, ListBox& b) {
       b.items = n.Items([](const ScriptNode& item) { return item.AnsiWithNuls(); });
     }},
    {"itemHeight", [](const ScriptNode& n, ListBox& b) { b.itemHeight = n.Whole<std::int32_t>(1); }},
    {"top", [](const ScriptNode& n, ListBox& b) { b.top = n.Whole<std::int32_t>(0); }},
};

constexpr KeyReader<ListView::Item> kListViewItemKeys[] = {
    {"text", [](const ScriptNode& n, ListView::Item& i) { i.text = n.Ansi(); }},
    {"icon", [](const ScriptNode& n, ListView::Item& i) { i.icon = ReadRectangle(n); }},
    {"label", [](const ScriptNode& n, ListView::Item& i) { i.label = ReadRectangle(n); }},
};

constexpr KeyReader<ListView> kListViewKeys[] = {
    {"items",
     [](const ScriptNode& n, ListView& v) {
       v.items = n.Items([](const ScriptNode& itemNode) {
         ListView::Item item;
         ReadKeys(itemNode, kListViewItemKeys, item);
         return item;
       });
     }},
};

struct EditSetup {
  Text text;
  Edit::Layout layout;
  Edit::Reading reading = Edit::Reading::kOpen;
};

constexpr KeyReader<EditSetup> kEditKeys[] = {
    {"text", [](const ScriptNode& n, EditSetup& e) { e.text = n.Ansi(); }},
    {"charWidth", [](const ScriptNode& n, EditSetup& e) { e.layout.charWidth = n.Whole<std::int32_t>(1); }},
    {"lineHeight", [](const ScriptNode& n, EditSetup& e) { e.layout.lineHeight = n.Whole<std::int32_t>(1); }},
    {"password",
     [](const ScriptNode& n, EditSetup& e) {
       e.reading = n.Boolean() ? Edit::Reading::kPassword : Edit::Reading::kOpen;
     }},
};

Edit ReadEdit(const ScriptNode& node, TextView lineEnd) {
  EditSetup setup;
  ReadKeys(node, kEditKeys, setup);
  return {std::move(setup.text), setup.layout, lineEnd, setup.reading};
}

constexpr KeyReader<WindowFields> kWindowKeys[] = {
    {"id", [](const ScriptNode& n, WindowFields& w) { w.id = n.Whole<std::uint32_t>(1); }},
    {"class", [](const ScriptNode& n, WindowFields& w) { w.className = n.Ansi(); }},
    {"title", [](const ScriptNode& n, WindowFields& w) { w.title = n.Ansi(); }},
    {"rect", [](const ScriptNode& n, WindowFields& w) { w.place = ReadRectangle(n); }},
    {"parent", [](const ScriptNode& n, WindowFields& w) { w.parent = n.Whole<std::uint32_t>(); }},
    {"process", [](const ScriptNode& n, WindowFields& w) { w.process = n.Whole<std::uint32_t>(); }},
    {"visible", [](const ScriptNode& n, WindowFields& w) { w.visible = n.Boolean(); }},
    {"hung", [](const ScriptNode& n, WindowFields& w) { w.hung = n.Boolean(); }},
    {"menu", [](const ScriptNode& n, WindowFields& w) { w.menu = ReadMenu(n); }},
    {"listBox", [](const ScriptNode& n, WindowFields& w) { ReadKeys(n, kListBoxKeys, w.listBox.emplace()); }},
    {"listView",
     [](const ScriptNode& n, WindowFields& w) { ReadKeys(n, kListViewKeys, w.listView.emplace()); }},
    {"edit", [](const ScriptNode& n, WindowFields& w) { w.edit = ReadEdit(n, u"\r\n"); }},
    {"richEdit", [](const ScriptNode& n, WindowFields& w) { w.richEdit = ReadEdit(n, u"\r"); }},
};

constexpr KeyReader<AccessibleObject> kObjectKeys[] = {
    {"rect", [](const ScriptNode& n, AccessibleObject& o) { o.place = ReadRectangle(n); }},
    {"name", [](const ScriptNode& n, AccessibleObject& o) { o.name = n.Unicode(); }},
    {"role", [](const ScriptNode& n, AccessibleObject& o) { o.role = n.Ansi(); }},
    {"description", [](const ScriptNode& n, AccessibleObject& o) { o.description = n.Unicode(); }},
    {"value", [](const ScriptNode& n, AccessibleObject& o) { o.value = n.Unicode(); }},
    {"protected", [](const ScriptNode& n, AccessibleObject& o) { o.isProtected = n.Boolean(); }},
    {"fails", [](const ScriptNode& n, AccessibleObject& o) { o.fails = n.Boolean(); }},
    {"kills", [](const ScriptNode& n, AccessibleObject& o) { o.kills = n.Boolean(); }},
};

}  // namespace

Rectangle ReadRectangle(const ScriptNode& node) {
  if (node.ItemCount() != 4) node.Fail("must be [left, top, right, bottom]");
  const auto edge = [&](std::size_t index) { return node.Item(index).Whole<std::int32_t>(); };
  return {edge(0), edge(1), edge(2), edge(3)};
}

Point ReadPoint(const ScriptNode& node) {
  if (node.ItemCount() != 2) node.Fail("must be [x, y]");
  return {node.Item(0).Whole<std::int32_t>(), node.Item(1).Whole<std::int32_t>()};
}

WindowFields ReadWindowFields(const ScriptNode& node) {
  WindowFields fields;
  ReadKeys(node, kWindowKeys, fields);
  if (fields.id == 0) node.Fail("has no id");
  return fields;
}

std::vector<WindowFields> ReadWindows(const ScriptNode& node) {
  std::set<WindowHandle> ids;
  return node.Items([&](const ScriptNode& windowNode) {
    WindowFields fields = ReadWindowFields(windowNode);
    if (!ids.insert(fields.id).second) windowNode.Fail("has the id of another window");
    return fields;
  });
}

std::vector<AccessibleObject> ReadObjects(const ScriptNode& node) {
  return node.Items([](const ScriptNode& objectNode) {
    AccessibleObject object;
    ReadKeys(objectNode, kObjectKeys, object);
    return object;
  });
}

}  // namespace pointalk::sim
