#include "wine/automation/client.h"

#include <map>
#include <utility>

#include "wine/automation/answers.h"
#include "wine/heard/heard.h"

namespace pointalk::wine {
namespace {

namespace property = win32::automation_property;

enum class Kind { kText, kNumber, kFlag };

struct Property {
  const wchar_t* name;  // in an answer
  Kind kind;
};

const std::map<int, Property>& Known() {
  static const std::map<int, Property> known = {
      {property::kIsPassword, {L"password", Kind::kFlag}},
      {property::kName, {L"name", Kind::kText}},
      {property::kValue, {L"value", Kind::kText}},
      {property::kDescription, {L"description", Kind::kText}},
      {property::kRole, {L"role", Kind::kNumber}},
      {property::kState, {L"state", Kind::kNumber}},
  };
  return known;
}

// What is missing is empty, or 0, as with UI Automation.
void Fill(VARIANT& value, const target::CommandLine& answer, const Property& asked) {
  switch (asked.kind) {
    case Kind::kText: {
      const std::wstring text = answer.OptionOr(asked.name, L"");
      value.vt = VT_BSTR;
      value.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
      return;
    }
    case Kind::kNumber:
      value.vt = VT_I4;
      value.lVal = static_cast<LONG>(answer.NumberOr(asked.name, 0));
      return;
    case Kind::kFlag:
      value.vt = VT_BOOL;
      value.boolVal = answer.NumberOr(asked.name, 0) != 0 ? VARIANT_TRUE : VARIANT_FALSE;
      return;
  }
}

}  // namespace

HRESULT CacheRequest::AddProperty(int property) {
  if (!Known().contains(property)) return E_INVALIDARG;
  properties_.insert(property);
  return S_OK;
}

Element::Element(target::CommandLine answer, std::set<int> properties)
    : answer_(std::move(answer)), properties_(std::move(properties)) {}

HRESULT Element::GetCachedPropertyValue(int property, VARIANT* value) {
  VariantInit(value);
  if (!properties_.contains(property)) return E_INVALIDARG;
  const Property& asked = Known().at(property);
  if (Fails(answer_, asked.name)) return E_FAIL;
  Fill(*value, answer_, asked);
  return S_OK;
}

HRESULT Client::ElementFromPointBuildCache(POINT screen, win32::AutomationCacheRequest* request,
                                           win32::AutomationElement** element) {
  *element = nullptr;
  if (HaveAnswers()) HeardLine("automation").Number("x", screen.x).Number("y", screen.y).Write();
  auto answer = AnswerAt(screen);
  if (!answer) return S_FALSE;
  if (Fails(*answer, L"all")) return E_FAIL;
  *element = new Element(*std::move(answer), static_cast<CacheRequest*>(request)->Properties());
  return S_OK;
}

HRESULT Client::CreateCacheRequest(win32::AutomationCacheRequest** request) {
  *request = new CacheRequest;
  return S_OK;
}

}  // namespace pointalk::wine
