// The part of UI Automation's client that is used here, which not every compiler's headers have. A member
// that nobody calls only holds its place in the table of functions, and is declared without its parameters.
#pragma once

#include <windows.h>

#include <oleauto.h>

namespace pointalk::win32 {

inline constexpr CLSID kAutomationClass = {
    0xFF48DBA4, 0x60EF, 0x4201, {0xAA, 0x87, 0x54, 0x10, 0x3E, 0xEF, 0x59, 0x4E}};
inline constexpr IID kAutomationInterface = {
    0x30CBE57D, 0xD9D0, 0x452A, {0xAB, 0x13, 0x7A, 0xC5, 0xAC, 0x48, 0x25, 0xEE}};

namespace automation_property {
inline constexpr int kIsPassword = 30019;   // VT_BOOL
inline constexpr int kName = 30092;         // VT_BSTR; this and those below as an accessible object has them
inline constexpr int kValue = 30093;        // VT_BSTR
inline constexpr int kDescription = 30094;  // VT_BSTR
inline constexpr int kRole = 30095;         // VT_I4
inline constexpr int kState = 30096;        // VT_I4
}  // namespace automation_property

// What an element keeps of its program's object.
enum class AutomationReference : int { kNone = 0, kFull = 1 };

// What is to be fetched of an element along with it.
struct AutomationCacheRequest : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE AddProperty(int property) = 0;
  virtual HRESULT STDMETHODCALLTYPE AddPattern() = 0;
  virtual HRESULT STDMETHODCALLTYPE Clone() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetTreeScope() = 0;
  virtual HRESULT STDMETHODCALLTYPE PutTreeScope() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetTreeFilter() = 0;
  virtual HRESULT STDMETHODCALLTYPE PutTreeFilter() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetReference() = 0;
  virtual HRESULT STDMETHODCALLTYPE PutReference(AutomationReference kept) = 0;
};

struct AutomationElement : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE SetFocus() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetRuntimeId() = 0;
  virtual HRESULT STDMETHODCALLTYPE FindFirst() = 0;
  virtual HRESULT STDMETHODCALLTYPE FindAll() = 0;
  virtual HRESULT STDMETHODCALLTYPE FindFirstBuildCache() = 0;
  virtual HRESULT STDMETHODCALLTYPE FindAllBuildCache() = 0;
  virtual HRESULT STDMETHODCALLTYPE BuildUpdatedCache() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetCurrentPropertyValue() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetCurrentPropertyValueEx() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetCachedPropertyValue(int property, VARIANT* value) = 0;
};

struct AutomationClient : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE CompareElements() = 0;
  virtual HRESULT STDMETHODCALLTYPE CompareRuntimeIds() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetRootElement() = 0;
  virtual HRESULT STDMETHODCALLTYPE ElementFromHandle() = 0;
  virtual HRESULT STDMETHODCALLTYPE ElementFromPoint() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetFocusedElement() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetRootElementBuildCache() = 0;
  virtual HRESULT STDMETHODCALLTYPE ElementFromHandleBuildCache() = 0;
  virtual HRESULT STDMETHODCALLTYPE ElementFromPointBuildCache(POINT screen, AutomationCacheRequest* request,
                                                               AutomationElement** element) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetFocusedElementBuildCache() = 0;
  virtual HRESULT STDMETHODCALLTYPE CreateTreeWalker() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetControlViewWalker() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetContentViewWalker() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetRawViewWalker() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetRawViewCondition() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetControlViewCondition() = 0;
  virtual HRESULT STDMETHODCALLTYPE GetContentViewCondition() = 0;
  virtual HRESULT STDMETHODCALLTYPE CreateCacheRequest(AutomationCacheRequest** request) = 0;
};

}  // namespace pointalk::win32
