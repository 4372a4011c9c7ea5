#include "wine/voice/output.h"

#include <atomic>
#include <string>

#include "wine/heard/heard.h"

namespace pointalk::wine {

namespace {

// Empty where the variable is not set.
std::wstring Behaviour() {
  wchar_t value[16] = L"";
  const DWORD length = GetEnvironmentVariableW(L"POINTALK_SAPI5_OUTPUT", value, 16);
  return {value, length < 16 ? length : 0};
}

class Output final : public ISpAudio {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool isAudio = id == __uuidof(ISpAudio) && Behaviour() != L"file";
    const bool ours = id == IID_IUnknown || id == __uuidof(ISpStreamFormat) || isAudio;
    *object = ours ? this : nullptr;
    if (ours) AddRef();
    return ours ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE SetState(SPAUDIOSTATE state, ULONGLONG) override {
    const HRESULT outcome = Behaviour() == L"stuck" ? E_FAIL : S_OK;
    HeardLine("sapi5 output state").Number("state", state).Number("result", outcome).Write();
    return outcome;
  }

  HRESULT STDMETHODCALLTYPE Read(void*, ULONG, ULONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Write(const void*, ULONG, ULONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Commit(DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Revert() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Stat(STATSTG*, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IStream**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetFormat(GUID*, WAVEFORMATEX**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetFormat(REFGUID, const WAVEFORMATEX*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetStatus(SPAUDIOSTATUS*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetBufferInfo(const SPAUDIOBUFFERINFO*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetBufferInfo(SPAUDIOBUFFERINFO*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetDefaultFormat(GUID*, WAVEFORMATEX**) override { return E_NOTIMPL; }
  HANDLE STDMETHODCALLTYPE EventHandle() override { return nullptr; }
  HRESULT STDMETHODCALLTYPE GetVolumeLevel(ULONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetVolumeLevel(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetBufferNotifySize(ULONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetBufferNotifySize(ULONG) override { return E_NOTIMPL; }

 private:
  ~Output() = default;

  std::atomic<ULONG> references_ = 1;
};

class Voice final : public ISpVoice {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool ours = id == IID_IUnknown || id == __uuidof(ISpVoice);
    *object = ours ? this : nullptr;
    if (ours) AddRef();
    return ours ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetOutputStream(ISpStreamFormat** stream) override {
    const HRESULT outcome = Behaviour() == L"refused" ? E_FAIL : S_OK;
    HeardLine("sapi5 output").Number("result", outcome).Write();
    *stream = SUCCEEDED(outcome) ? new Output : nullptr;
    return outcome;
  }

  HRESULT STDMETHODCALLTYPE SetNotifySink(ISpNotifySink*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetNotifyWindowMessage(HWND, UINT, WPARAM, LPARAM) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetNotifyCallbackFunction(SPNOTIFYCALLBACK*, WPARAM, LPARAM) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetNotifyCallbackInterface(ISpNotifyCallback*, WPARAM, LPARAM) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetNotifyWin32Event() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE WaitForNotifyEvent(DWORD) override { return E_NOTIMPL; }
  HANDLE STDMETHODCALLTYPE GetNotifyEventHandle() override { return nullptr; }
  HRESULT STDMETHODCALLTYPE SetInterest(ULONGLONG, ULONGLONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetEvents(ULONG, SPEVENT*, ULONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetInfo(SPEVENTSOURCEINFO*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetOutput(IUnknown*, WINBOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetOutputObjectToken(ISpObjectToken**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Pause() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Resume() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetVoice(ISpObjectToken*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetVoice(ISpObjectToken**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Speak(LPCWSTR, DWORD, ULONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SpeakStream(IStream*, DWORD, ULONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetStatus(SPVOICESTATUS*, LPWSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Skip(LPCWSTR, LONG, ULONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetPriority(SPVPRIORITY) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetPriority(SPVPRIORITY*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetAlertBoundary(SPEVENTENUM) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetAlertBoundary(SPEVENTENUM*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetRate(LONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetRate(LONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetVolume(USHORT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetVolume(USHORT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE WaitUntilDone(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetSyncSpeakTimeout(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetSyncSpeakTimeout(ULONG*) override { return E_NOTIMPL; }
  HANDLE STDMETHODCALLTYPE SpeakCompleteEvent() override { return nullptr; }
  HRESULT STDMETHODCALLTYPE IsUISupported(LPCWSTR, void*, ULONG, WINBOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DisplayUI(HWND, LPCWSTR, LPCWSTR, void*, ULONG) override { return E_NOTIMPL; }

 private:
  ~Voice() = default;

  std::atomic<ULONG> references_ = 1;
};

}  // namespace

ISpVoice* VoiceByInterface() { return Behaviour().empty() ? nullptr : new Voice; }

}  // namespace pointalk::wine
