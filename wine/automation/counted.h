// The references of an object of one interface.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>

#include "win32/automation_client.h"

namespace pointalk::wine {

template <class Interface> class Counted : public Interface {
 public:
  Counted() = default;
  virtual ~Counted() = default;
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  // The client is the only one that is asked for its interface by name.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    const bool ours = id == IID_IUnknown || id == win32::kAutomationInterface;
    *object = ours ? static_cast<Interface*>(this) : nullptr;
    if (!ours) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 private:
  std::atomic<ULONG> references_ = 1;
};

}  // namespace pointalk::wine
