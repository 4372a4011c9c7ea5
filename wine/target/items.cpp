#include "wine/target/items.h"

#include <commctrl.h>
#include <richedit.h>

#include <functional>
#include <map>

namespace pointalk::target {
namespace {

LRESULT Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return SendMessageW(window, message, wParam, lParam);
}

template <class Record> LPARAM Address(Record& record) { return reinterpret_cast<LPARAM>(&record); }

LPARAM Address(const std::wstring& text) { return reinterpret_cast<LPARAM>(text.c_str()); }

void FillListBox(HWND list, const std::vector<std::wstring>& texts) {
  Ask(list, LB_RESETCONTENT);
  for (const std::wstring& text : texts) Ask(list, LB_ADDSTRING, 0, Address(text));
}

void FillComboBox(HWND combo, const std::vector<std::wstring>& texts) {
  Ask(combo, CB_RESETCONTENT);
  for (const std::wstring& text : texts) Ask(combo, CB_ADDSTRING, 0, Address(text));
  Ask(combo, CB_SETCURSEL, 0);
}

HIMAGELIST OneIcon(int size) {
  const HIMAGELIST images = ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, 1, 1);
  ImageList_AddIcon(images, LoadIcon(nullptr, IDI_APPLICATION));
  return images;
}

void PrepareListView(HWND view) {
  Ask(view, LVM_SETIMAGELIST, LVSIL_NORMAL, reinterpret_cast<LPARAM>(OneIcon(32)));
  Ask(view, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(OneIcon(16)));
  int place = 0;
  for (std::wstring title : {L"Name", L"Size"}) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.cx = 110;
    column.pszText = title.data();
    Ask(view, LVM_INSERTCOLUMNW, static_cast<WPARAM>(place++), Address(column));
  }
}

void FillListView(HWND view, const std::vector<std::wstring>& texts) {
  if (Ask(view, LVM_GETIMAGELIST, LVSIL_NORMAL) == 0) PrepareListView(view);
  Ask(view, LVM_DELETEALLITEMS);
  const bool report = (GetWindowLongPtrW(view, GWL_STYLE) & LVS_TYPEMASK) == LVS_REPORT;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    std::wstring text = texts[i];
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.iItem = static_cast<int>(i);
    item.pszText = text.data();
    Ask(view, LVM_INSERTITEMW, 0, Address(item));
    if (!report) continue;
    std::wstring size = std::to_wstring(i + 1) + L" KB";
    LVITEMW subItem{};
    subItem.iSubItem = 1;
    subItem.pszText = size.data();
    Ask(view, LVM_SETITEMTEXTW, i, Address(subItem));
  }
}

void FillTree(HWND tree, const std::vector<std::wstring>& texts) {
  Ask(tree, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
  HTREEITEM root = nullptr;
  for (const std::wstring& text : texts) {
    const bool inner = text.starts_with(L'\t');
    std::wstring label = text.substr(inner ? 1 : 0);
    TVINSERTSTRUCTW insert{};
    insert.hParent = inner && root ? root : TVI_ROOT;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT;
    insert.item.pszText = label.data();
    const auto added = reinterpret_cast<HTREEITEM>(Ask(tree, TVM_INSERTITEMW, 0, Address(insert)));
    if (!inner)
      root = added;
    else
      Ask(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(root));
  }
}

void FillTabs(HWND tabs, const std::vector<std::wstring>& texts) {
  Ask(tabs, TCM_DELETEALLITEMS);
  for (std::wstring text : texts) {
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    Ask(tabs, TCM_INSERTITEMW, static_cast<WPARAM>(Ask(tabs, TCM_GETITEMCOUNT)), Address(item));
  }
}

void FillToolBar(HWND bar, const std::vector<std::wstring>& texts) {
  Ask(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
  while (Ask(bar, TB_DELETEBUTTON, 0) != 0) {
  }
  for (std::size_t i = 0; i < texts.size(); ++i) {
    TBBUTTON button{};
    button.iBitmap = I_IMAGENONE;
    button.idCommand = static_cast<int>(i) + 1;
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE;
    button.iString = reinterpret_cast<INT_PTR>(texts[i].c_str());
    Ask(bar, TB_ADDBUTTONSW, 1, Address(button));
  }
  Ask(bar, TB_AUTOSIZE);
}

RECT ToScreen(HWND window, RECT client) {
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
  return client;
}

HTREEITEM TreeItem(HWND tree, int index) {
  auto item = reinterpret_cast<HTREEITEM>(Ask(tree, TVM_GETNEXTITEM, TVGN_ROOT));
  for (; item && index > 0; --index) {
    item = reinterpret_cast<HTREEITEM>(
        Ask(tree, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, reinterpret_cast<LPARAM>(item)));
  }
  return item;
}

bool ItemRect(const TargetWindow& window, bool label, int index, RECT& rect) {
  const HWND handle = window.Handle();
  const std::wstring& base = window.Base();
  const auto place = static_cast<WPARAM>(index);
  if (base == L"listbox") return Ask(handle, LB_GETITEMRECT, place, Address(rect)) != LB_ERR;
  if (base == L"syslistview32") {
    rect.left = label ? LVIR_LABEL : LVIR_ICON;
    return Ask(handle, LVM_GETITEMRECT, place, Address(rect)) != 0;
  }
  if (base == L"systabcontrol32") return Ask(handle, TCM_GETITEMRECT, place, Address(rect)) != 0;
  if (base == L"toolbarwindow32") return Ask(handle, TB_GETITEMRECT, place, Address(rect)) != 0;
  if (base == L"systreeview32") {
    const HTREEITEM item = TreeItem(handle, index);
    if (!item) return false;
    *reinterpret_cast<HTREEITEM*>(&rect) = item;
    return Ask(handle, TVM_GETITEMRECT, TRUE, Address(rect)) != 0;
  }
  return false;
}

// The left upper corner of a character; the rectangle is as small as one character surely is.
RECT CharacterRect(const TargetWindow& window, int index) {
  POINT corner{};
  if (window.Base().starts_with(L"richedit")) {
    POINTL place{};
    Ask(window.Handle(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), index);
    corner = {place.x, place.y};
  } else {
    const LRESULT packed = Ask(window.Handle(), EM_POSFROMCHAR, static_cast<WPARAM>(index));
    if (packed == -1) throw CommandError("no such character");
    corner = {static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed))};
  }
  return ToScreen(window.Handle(), {corner.x, corner.y, corner.x + 2, corner.y + 10});
}

}  // namespace

void ReplaceItems(const TargetWindow& window, const std::vector<std::wstring>& texts) {
  using Filler = void (*)(HWND, const std::vector<std::wstring>&);
  static const std::map<std::wstring, Filler> kFillers = {
      {L"listbox", &FillListBox},    {L"combobox", &FillComboBox},    {L"syslistview32", &FillListView},
      {L"systreeview32", &FillTree}, {L"systabcontrol32", &FillTabs}, {L"toolbarwindow32", &FillToolBar},
  };
  const auto filler = kFillers.find(window.Base());
  if (filler == kFillers.end()) throw CommandError("a window of this class holds no items");
  filler->second(window.Handle(), texts);
}

void ReplaceItemData(const TargetWindow& window, const std::vector<std::int64_t>& data) {
  if (window.Base() != L"listbox") throw CommandError("only a list box holds item data");
  Ask(window.Handle(), LB_RESETCONTENT);
  for (const std::int64_t number : data) Ask(window.Handle(), LB_ADDSTRING, 0, static_cast<LPARAM>(number));
}

RECT PlaceOf(const TargetWindow& window, const std::wstring& what, int index) {
  RECT rect{};
  if (what == L"menu") {
    if (!GetMenuItemRect(window.Handle(), GetMenu(window.Handle()), static_cast<UINT>(index), &rect)) {
      throw CommandError("no such menu");
    }
    return rect;
  }
  if (what == L"char") return CharacterRect(window, index);
  if (what != L"item" && what != L"label") throw CommandError("unknown place " + JsonText(what));
  if (!ItemRect(window, what == L"label", index, rect)) throw CommandError("no such item");
  return ToScreen(window.Handle(), rect);
}

}  // namespace pointalk::target
