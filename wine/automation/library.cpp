// How COM finds this library's client.
#include <windows.h>

#include <objbase.h>

#include "win32/automation_client.h"
#include "wine/automation/client.h"
#include "wine/class_factory.h"

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
  using namespace pointalk;
  if (!object) return E_POINTER;
  *object = nullptr;
  if (classId != win32::kAutomationClass) return CLASS_E_CLASSNOTAVAILABLE;
  return wine::ClassFactory<wine::Client>::Only().QueryInterface(id, object);
}

// A question that was left behind may still be under way.
STDAPI DllCanUnloadNow() { return S_FALSE; }
