#include "wine/target/messages.h"

#include <commctrl.h>
#include <richedit.h>

#include <array>
#include <cstdio>

#include "wine/target/text.h"

namespace pointalk::target {
namespace {

struct NamedMessage {
  const char* name;
  UINT number;
};

constexpr std::array kMessages = {
    NamedMessage{"*", kAnyMessage},
    NamedMessage{"accHitTest", kAccHitTest},
    NamedMessage{"accName", kAccName},
    NamedMessage{"accRole", kAccRole},
    NamedMessage{"accDescription", kAccDescription},
    NamedMessage{"accValue", kAccValue},
    NamedMessage{"accState", kAccState},
    NamedMessage{"accOther", kAccOther},
    NamedMessage{"WM_NULL", WM_NULL},
    NamedMessage{"WM_GETTEXT", WM_GETTEXT},
    NamedMessage{"WM_GETTEXTLENGTH", WM_GETTEXTLENGTH},
    NamedMessage{"WM_GETOBJECT", WM_GETOBJECT},
    NamedMessage{"WM_NCHITTEST", WM_NCHITTEST},
    NamedMessage{"WM_SETCURSOR", WM_SETCURSOR},
    NamedMessage{"WM_VSCROLL", WM_VSCROLL},
    NamedMessage{"LB_ITEMFROMPOINT", LB_ITEMFROMPOINT},
    NamedMessage{"LB_GETTOPINDEX", LB_GETTOPINDEX},
    NamedMessage{"LB_SETTOPINDEX", LB_SETTOPINDEX},
    NamedMessage{"LB_GETTEXTLEN", LB_GETTEXTLEN},
    NamedMessage{"LB_GETTEXT", LB_GETTEXT},
    NamedMessage{"LVM_GETITEMCOUNT", LVM_GETITEMCOUNT},
    NamedMessage{"LVM_HITTEST", LVM_HITTEST},
    NamedMessage{"LVM_SUBITEMHITTEST", LVM_SUBITEMHITTEST},
    NamedMessage{"LVM_GETITEMA", LVM_GETITEMA},
    NamedMessage{"LVM_GETITEMW", LVM_GETITEMW},
    NamedMessage{"LVM_SCROLL", LVM_SCROLL},
    NamedMessage{"EM_CHARFROMPOS", EM_CHARFROMPOS},
    NamedMessage{"EM_LINEFROMCHAR", EM_LINEFROMCHAR},
    NamedMessage{"EM_LINELENGTH", EM_LINELENGTH},
    NamedMessage{"EM_GETLINE", EM_GETLINE},
    NamedMessage{"EM_GETPASSWORDCHAR", EM_GETPASSWORDCHAR},
    NamedMessage{"EM_SETPASSWORDCHAR", EM_SETPASSWORDCHAR},
    NamedMessage{"EM_GETLINECOUNT", EM_GETLINECOUNT},
    NamedMessage{"EM_LINESCROLL", EM_LINESCROLL},
    NamedMessage{"EM_GETFIRSTVISIBLELINE", EM_GETFIRSTVISIBLELINE},
    NamedMessage{"CB_SHOWDROPDOWN", CB_SHOWDROPDOWN},
    NamedMessage{"CB_SETCURSEL", CB_SETCURSEL},
};

}  // namespace

UINT MessageNumber(std::wstring_view name) {
  const std::string ansi = ToAnsi(name);
  for (const auto& message : kMessages) {
    if (ansi == message.name) return message.number;
  }
  return static_cast<UINT>(ParseNumber(name));
}

std::string MessageName(UINT message) {
  for (const auto& known : kMessages) {
    if (known.number == message) return known.name;
  }
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "0x%04x", message);
  return text.data();
}

}  // namespace pointalk::target
