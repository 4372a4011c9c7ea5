#include "win32/automation_question.h"

#include <utility>

#include <oleacc.h>

#include "win32/accessible_values.h"

namespace pointalk::win32 {
namespace {

namespace property = automation_property;

constexpr int kProperties[] = {property::kIsPassword,  property::kName, property::kValue,
                               property::kDescription, property::kRole, property::kState};

std::optional<Text> ReadText(AutomationElement& element, int which, std::size_t longest = kLongestComText) {
  Variant value;
  if (FAILED(element.GetCachedPropertyValue(which, value.Fill())) || value.Get().vt != VT_BSTR)
    return std::nullopt;
  return FromComText(value.Get().bstrVal, longest);
}

std::optional<std::int32_t> ReadNumber(AutomationElement& element, int which) {
  Variant value;
  if (FAILED(element.GetCachedPropertyValue(which, value.Fill()))) return std::nullopt;
  return NumberIn(value);
}

// An element that does not tell may be one.
bool IsPassword(AutomationElement& element) {
  Variant says;
  if (FAILED(element.GetCachedPropertyValue(property::kIsPassword, says.Fill()))) return true;
  if (says.Get().vt != VT_BOOL || says.Get().boolVal != VARIANT_FALSE) return true;
  const auto state = ReadNumber(element, property::kState);
  return !state || (*state & STATE_SYSTEM_PROTECTED) != 0;
}

}  // namespace

bool AutomationQuestion::IsReady() {
  if (!isPrepared_) Prepare();
  isPrepared_ = true;
  return request_ != nullptr;
}

void AutomationQuestion::Prepare() {
  void* made = nullptr;
  if (FAILED(
          CoCreateInstance(kAutomationClass, nullptr, CLSCTX_INPROC_SERVER, kAutomationInterface, &made)) ||
      made == nullptr)
    return;
  client_.reset(static_cast<AutomationClient*>(made));
  AutomationCacheRequest* request = nullptr;
  const HRESULT outcome = client_->CreateCacheRequest(&request);
  ComPointer<AutomationCacheRequest> owned(request);
  if (FAILED(outcome) || !owned) return;
  for (const int which : kProperties) {
    if (FAILED(owned->AddProperty(which))) return;
  }
  // The element is only read, so it need not hold its program's object. One that does is read as well.
  owned->PutReference(AutomationReference::kNone);
  request_ = std::move(owned);
}

std::optional<AutomationAnswer> AutomationQuestion::Ask(Point screen) {
  if (!IsReady()) return std::nullopt;
  AutomationElement* found = nullptr;
  const HRESULT outcome = client_->ElementFromPointBuildCache({screen.x, screen.y}, request_.get(), &found);
  const ComPointer<AutomationElement> element(found);
  if (FAILED(outcome) || !element) return std::nullopt;
  AutomationAnswer answer;
  answer.facts.name = ReadText(*element, property::kName);
  answer.facts.role = ReadNumber(*element, property::kRole);
  answer.facts.description = ReadText(*element, property::kDescription, kLongestDescription);
  answer.facts.value = ReadText(*element, property::kValue);
  answer.isPassword = IsPassword(*element);
  return answer;
}

}  // namespace pointalk::win32
