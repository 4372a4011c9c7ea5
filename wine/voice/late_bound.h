// The base of the objects that clients call by member name, as they call the real engines.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <atomic>
#include <optional>
#include <string>
#include <vector>

namespace pointalk::wine {

// A member that an object answers to. The id is the object's own choice, above 0.
struct Member {
  const wchar_t* name;  // found in any case
  DISPID id;
};

enum class Access { kGetOrCall, kPut, kPutReference };

// What a client hands to a member, in the order of the member's own arguments; the new value of a put is the
// last one. An argument that is missing or left out on purpose is absent.
class Arguments {
 public:
  explicit Arguments(const DISPPARAMS& parameters) : parameters_(parameters) {}

  bool Given(unsigned index) const;
  // Converted as the platform converts, with its failure code when it cannot be; DISP_E_PARAMNOTOPTIONAL
  // when absent.
  HRESULT Whole(unsigned index, LONG& value) const;
  HRESULT Real(unsigned index, double& value) const;
  HRESULT Text(unsigned index, std::u16string& value) const;
  // Borrowed; fails for anything but an object.
  HRESULT Object(unsigned index, IDispatch*& value) const;

 private:
  HRESULT Converted(unsigned index, VARTYPE type, VARIANT& value) const;

  const DISPPARAMS& parameters_;
};

class LateBound : public IDispatch {
 public:
  // `members` must outlive the object. `interfaceId` is answered beside IUnknown and IDispatch.
  LateBound(const std::vector<Member>& members, const IID& interfaceId);
  virtual ~LateBound() = default;
  LateBound(const LateBound&) = delete;
  LateBound& operator=(const LateBound&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 protected:
  // `result` is empty at the call. DISP_E_MEMBERNOTFOUND for an access that the member does not have.
  virtual HRESULT Call(DISPID member, Access access, const Arguments& arguments, VARIANT& result) = 0;

 private:
  const std::vector<Member>& members_;
  const IID& interfaceId_;
  std::atomic<ULONG> references_ = 1;
};

void SetWhole(VARIANT& result, LONG value);
void SetTruth(VARIANT& result, bool value);
// Takes ownership of the caller's reference.
void SetObject(VARIANT& result, IDispatch* object);

}  // namespace pointalk::wine
