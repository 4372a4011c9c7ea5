// How COM finds the two engines in this library. Which of them a machine has is decided by what is registered
// for their class identifiers, not here.
#include <windows.h>

#include <objbase.h>

#include "wine/voice/sapi4.h"
#include "wine/voice/sapi5.h"

namespace pointalk::wine {

namespace {

template <class Engine> class Factory final : public IClassFactory {
 public:
  // The one object of its kind lives as long as the library.
  static Factory& Only() {
    static Factory factory;
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
    auto* const engine = new Engine;
    const HRESULT outcome = engine->QueryInterface(id, object);
    engine->Release();
    return outcome;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

// A client that leaves COM with its engine still speaking would unload the code that the engine's thread
// runs.
void StayLoaded() {
  HMODULE self = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     reinterpret_cast<const wchar_t*>(&StayLoaded), &self);
}

}  // namespace

}  // namespace pointalk::wine

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  using namespace pointalk::wine;
  if (!object) return E_POINTER;
  *object = nullptr;
  StayLoaded();
  if (classId == kSapi5Class) return Factory<Sapi5Voice>::Only().QueryInterface(id, object);
  if (classId == kSapi4Class) return Factory<Sapi4Voice>::Only().QueryInterface(id, object);
  return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return S_FALSE; }
