#include <windows.h>

#include <oleacc.h>

#include <array>

#include "wine/probe/questions.h"

namespace pointalk::probe {
namespace {

using target::JsonObject;

std::string TextJson(HRESULT result, BSTR text) {
  JsonObject json;
  json.Number("result", result);
  if (text) json.Text("text", {text, SysStringLen(text)});
  SysFreeString(text);
  return json.Line();
}

std::string RoleJson(HRESULT result, VARIANT& role) {
  JsonObject json;
  json.Number("result", result).Number("type", role.vt);
  if (role.vt == VT_BSTR) json.Text("text", {role.bstrVal, SysStringLen(role.bstrVal)});
  if (role.vt == VT_I4) {
    std::array<char, 128> text{};
    GetRoleTextA(static_cast<DWORD>(role.lVal), text.data(), static_cast<UINT>(text.size()));
    json.Number("number", role.lVal).Text("text", target::FromAnsi(text.data()));
  }
  VariantClear(&role);
  return json.Line();
}

}  // namespace

std::string AnswerObject(LONG x, LONG y) {
  IAccessible* object = nullptr;
  VARIANT child;
  VariantInit(&child);
  JsonObject json;
  json.Number("result", AccessibleObjectFromPoint({x, y}, &object, &child));
  if (!object) return json.Line();
  json.Number("child", child.vt == VT_I4 ? child.lVal : -1);
  BSTR text = nullptr;
  HRESULT result = object->get_accName(child, &text);
  json.Raw("name", TextJson(result, text));
  text = nullptr;
  result = object->get_accValue(child, &text);
  json.Raw("value", TextJson(result, text));
  text = nullptr;
  result = object->get_accDescription(child, &text);
  json.Raw("description", TextJson(result, text));
  VARIANT role;
  VariantInit(&role);
  result = object->get_accRole(child, &role);
  json.Raw("role", RoleJson(result, role));
  object->Release();
  VariantClear(&child);
  return json.Line();
}

}  // namespace pointalk::probe
