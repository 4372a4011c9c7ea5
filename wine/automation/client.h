// The companion in place of UI Automation's client, which Wine has in parts only. It knows what the program
// asks and refuses everything else: an element has only what was asked for along with it, and the program is
// asked only once.
//
// Where there are answers to be given, each question becomes a line of `heard/heard.h`, "automation".
#pragma once

#include <set>

#include "win32/automation_client.h"
#include "wine/automation/counted.h"
#include "wine/target/text.h"

namespace pointalk::wine {

class CacheRequest final : public Counted<win32::AutomationCacheRequest> {
 public:
  HRESULT STDMETHODCALLTYPE AddProperty(int property) override;
  HRESULT STDMETHODCALLTYPE AddPattern() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTreeScope() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE PutTreeScope() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTreeFilter() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE PutTreeFilter() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetReference() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE PutReference(win32::AutomationReference) override { return S_OK; }

  const std::set<int>& Properties() const { return properties_; }

 private:
  std::set<int> properties_;
};

class Element final : public Counted<win32::AutomationElement> {
 public:
  Element(target::CommandLine answer, std::set<int> properties);

  HRESULT STDMETHODCALLTYPE SetFocus() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetRuntimeId() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE FindFirst() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE FindAll() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE FindFirstBuildCache() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE FindAllBuildCache() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE BuildUpdatedCache() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetCurrentPropertyValue() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetCurrentPropertyValueEx() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetCachedPropertyValue(int property, VARIANT* value) override;

 private:
  target::CommandLine answer_;
  std::set<int> properties_;
};

class Client final : public Counted<win32::AutomationClient> {
 public:
  HRESULT STDMETHODCALLTYPE CompareElements() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CompareRuntimeIds() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetRootElement() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ElementFromHandle() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ElementFromPoint() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetFocusedElement() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetRootElementBuildCache() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ElementFromHandleBuildCache() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ElementFromPointBuildCache(POINT screen, win32::AutomationCacheRequest* request,
                                                       win32::AutomationElement** element) override;
  HRESULT STDMETHODCALLTYPE GetFocusedElementBuildCache() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CreateTreeWalker() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetControlViewWalker() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContentViewWalker() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetRawViewWalker() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetRawViewCondition() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetControlViewCondition() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContentViewCondition() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CreateCacheRequest(win32::AutomationCacheRequest** request) override;
};

}  // namespace pointalk::wine
