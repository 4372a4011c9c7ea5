// How COM finds the two engines in this library. Which of them a machine has is decided by what is registered
// for their class identifiers, not here.
#include <windows.h>

#include <objbase.h>

#include "wine/class_factory.h"
#include "wine/voice/sapi4.h"
#include "wine/voice/sapi5.h"

namespace pointalk::wine {

namespace {

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
  if (classId == kSapi5Class) return ClassFactory<Sapi5Voice>::Only().QueryInterface(id, object);
  if (classId == kSapi4Class) return ClassFactory<Sapi4Voice>::Only().QueryInterface(id, object);
  return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return S_FALSE; }
