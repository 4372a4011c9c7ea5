// How COM makes the objects of the libraries here.
#pragma once

#include <windows.h>

#include <unknwn.h>

namespace pointalk::wine {

template <class Made> class ClassFactory final : public IClassFactory {
 public:
  // The one object of its kind lives as long as the library.
  static ClassFactory& Only() {
    static ClassFactory factory;
    return factory;
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    const bool ours = id == IID_IUnknown || id == IID_IClassFactory;
    *object = ours ? this : nullptr;
    return ours ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    auto* const made = new Made;
    const HRESULT outcome = made->QueryInterface(id, object);
    made->Release();
    return outcome;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

}  // namespace pointalk::wine
