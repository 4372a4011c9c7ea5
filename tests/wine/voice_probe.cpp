// A client of the voice for the tests: calls it by member name, as a script says, and tells what came of it.
//
//   voice_probe SCRIPT
//
// The script is UTF-8 with one command a line, words separated by tabs. OBJECT is a name of the script's own.
//   create OBJECT CLASS INTERFACE         both as {...}
//   call OBJECT MEMBER ARGUMENT...        call or get
//   into NEW OBJECT MEMBER ARGUMENT...    the same, keeping the object that comes back
//   put OBJECT MEMBER ARGUMENT            putref likewise
//   ids OBJECT MEMBER                     GetIDsOfNames alone
//   output OBJECT STATE                   by interface: sets the state of its output; gives what failed, or
//   "none" leaves OBJECT MEMBER VALUE            gets it until it has another value, written as it is printed
//   await WHAT COUNT                      until POINTALK_HEARD holds so many lines of that kind
//   until FILE                            until it is there
//   release OBJECT, leave (COM, releasing nothing)
// An argument is i:NUMBER, d:NUMBER, s:TEXT, o:OBJECT, x: (left out) or r:COUNT:TEXT (the text COUNT times).
// Each command prints one line: the HRESULT in hexadecimal and the value given back. A wait that is in vain
// fails after 100 seconds.
#include <windows.h>

#include <oaidl.h>
#include <objbase.h>
#include <sapi.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace {

using Words = std::vector<std::string>;

constexpr ULONGLONG kPatience = 100'000;  // milliseconds

std::wstring Wide(const std::string& text) {
  std::wstring wide(text.size() + 1, L'\0');
  const int units = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                                        static_cast<int>(wide.size()));
  wide.resize(static_cast<std::size_t>(units));
  return wide;
}

std::string Narrow(const wchar_t* text, UINT units) {
  std::string bytes(units * 3 + 1, '\0');
  const int count = WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(units), bytes.data(),
                                        static_cast<int>(bytes.size()), nullptr, nullptr);
  bytes.resize(static_cast<std::size_t>(count));
  return bytes;
}

Words Split(const std::string& line) {
  Words words(1);
  for (const char c : line) {
    if (c == '\t') {
      words.emplace_back();
    } else {
      words.back() += c;
    }
  }
  return words;
}

std::string Shown(VARIANT& value) {
  if (value.vt == VT_I4) return "whole " + std::to_string(value.lVal);
  if (value.vt == VT_BOOL) return value.boolVal != VARIANT_FALSE ? "true" : "false";
  if (value.vt == VT_R8) return "real " + std::to_string(value.dblVal);
  if (value.vt == VT_DISPATCH) return "object";
  if (value.vt == VT_EMPTY) return "empty";
  if (value.vt != VT_BSTR) return "type " + std::to_string(value.vt);
  return "text " + Narrow(value.bstrVal, SysStringLen(value.bstrVal));
}

template <typename Condition> HRESULT Poll(Condition condition) {
  for (const ULONGLONG end = GetTickCount64() + kPatience; !condition(); Sleep(10))
    if (GetTickCount64() >= end) return E_FAIL;
  return S_OK;
}

class Probe {
 public:
  HRESULT Run(const Words& words, std::string& shown) {
    const std::string& verb = words[0];
    if (verb == "create") return Create(words);
    if (verb == "ids") return Ids(words);
    if (verb == "call") return Call(words, 1, DISPATCH_METHOD | DISPATCH_PROPERTYGET, "", shown);
    if (verb == "into") return Call(words, 2, DISPATCH_METHOD | DISPATCH_PROPERTYGET, words[1], shown);
    if (verb == "put") return Call(words, 1, DISPATCH_PROPERTYPUT, "", shown);
    if (verb == "putref") return Call(words, 1, DISPATCH_PROPERTYPUTREF, "", shown);
    if (verb == "output") return Output(words, shown);
    if (verb == "leaves") return Leaves(words, shown);
    if (verb == "await") return Await(words);
    if (verb == "until") {
      const std::wstring path = L"Z:" + Wide(words[1]);
      return Poll([&] { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; });
    }
    if (verb == "release") return Release(words[1]);
    if (verb == "leave") return CoUninitialize(), S_OK;
    return E_NOTIMPL;
  }

 private:
  HRESULT Create(const Words& words) {
    CLSID classId;
    IID interfaceId;
    if (FAILED(CLSIDFromString(Wide(words[2]).c_str(), &classId))) return E_INVALIDARG;
    if (FAILED(IIDFromString(Wide(words[3]).c_str(), &interfaceId))) return E_INVALIDARG;
    void* made = nullptr;
    const HRESULT outcome = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, interfaceId, &made);
    if (FAILED(outcome)) return outcome;
    auto* const unknown = static_cast<IUnknown*>(made);
    void* dispatch = nullptr;
    const HRESULT asked = unknown->QueryInterface(IID_IDispatch, &dispatch);
    unknown->Release();
    if (SUCCEEDED(asked)) objects_[words[1]] = static_cast<IDispatch*>(dispatch);
    return asked;
  }

  HRESULT Release(const std::string& name) {
    objects_.at(name)->Release();
    objects_.erase(name);
    return S_OK;
  }

  HRESULT IdOf(IDispatch& object, const std::string& member, DISPID& id) {
    std::wstring name = Wide(member);
    LPOLESTR names[] = {name.data()};
    return object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  }

  HRESULT Ids(const Words& words) {
    DISPID id = DISPID_UNKNOWN;
    return IdOf(*objects_.at(words[1]), words[2], id);
  }

  VARIANT Argument(const std::string& word) {
    VARIANT value;
    VariantInit(&value);
    const std::string text = word.substr(2);
    switch (word[0]) {
      case 'i':
        value.vt = VT_I4;
        value.lVal = std::stol(text);
        break;
      case 'd':
        value.vt = VT_R8;
        value.dblVal = std::stod(text);
        break;
      case 'o':
        value.vt = VT_DISPATCH;
        value.pdispVal = objects_.at(text);
        value.pdispVal->AddRef();
        break;
      case 'x':
        value.vt = VT_ERROR;
        value.scode = DISP_E_PARAMNOTFOUND;
        break;
      case 'r': value = Repeated(text); break;
      default: value = Text(text);
    }
    return value;
  }

  static VARIANT Text(const std::string& text) {
    const std::wstring wide = Wide(text);
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    return value;
  }

  static VARIANT Repeated(const std::string& countAndText) {
    const std::size_t colon = countAndText.find(':');
    std::string text;
    for (int left = std::stoi(countAndText); left > 0; --left) text += countAndText.substr(colon + 1);
    return Text(text);
  }

  HRESULT Call(const Words& words, std::size_t first, WORD flags, const std::string& keepAs,
               std::string& shown) {
    IDispatch& object = *objects_.at(words[first]);
    DISPID id = DISPID_UNKNOWN;
    const HRESULT named = IdOf(object, words[first + 1], id);
    if (FAILED(named)) return named;
    std::vector<VARIANT> arguments;
    for (std::size_t i = words.size(); i-- > first + 2;) arguments.push_back(Argument(words[i]));
    DISPID newValue = DISPID_PROPERTYPUT;
    const bool putting = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{arguments.data(), putting ? &newValue : nullptr,
                          static_cast<UINT>(arguments.size()), putting ? 1U : 0U};
    VARIANT result;
    VariantInit(&result);
    const HRESULT outcome = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                          putting ? nullptr : &result, nullptr, nullptr);
    for (VARIANT& argument : arguments) VariantClear(&argument);
    shown = Shown(result);
    if (!keepAs.empty() && SUCCEEDED(outcome)) {
      objects_[keepAs] = result.pdispVal;
    } else {
      VariantClear(&result);
    }
    return outcome;
  }

  HRESULT Output(const Words& words, std::string& shown) {
    ISpVoice* voice = nullptr;
    shown = "voice";
    HRESULT outcome =
        objects_.at(words[1])->QueryInterface(__uuidof(ISpVoice), reinterpret_cast<void**>(&voice));
    if (FAILED(outcome)) return outcome;
    ISpStreamFormat* stream = nullptr;
    shown = "stream";
    outcome = voice->GetOutputStream(&stream);
    voice->Release();
    if (FAILED(outcome)) return outcome;
    ISpAudio* audio = nullptr;
    shown = "audio";
    outcome = stream->QueryInterface(__uuidof(ISpAudio), reinterpret_cast<void**>(&audio));
    stream->Release();
    if (FAILED(outcome)) return outcome;
    outcome = audio->SetState(static_cast<SPAUDIOSTATE>(std::stoi(words[2])), 0);
    audio->Release();
    shown = SUCCEEDED(outcome) ? "none" : "state";
    return outcome;
  }

  HRESULT Leaves(const Words& words, std::string& shown) {
    const Words get(words.begin(), words.end() - 1);
    return Poll([&] {
      return FAILED(Call(get, 1, DISPATCH_METHOD | DISPATCH_PROPERTYGET, "", shown)) || shown != words.back();
    });
  }

  static HRESULT Await(const Words& words) {
    const char* const path = std::getenv("POINTALK_HEARD");
    if (path == nullptr) return E_INVALIDARG;
    const std::string field = "\"what\":\"" + words[1] + "\"";
    return Poll([&] {
      std::ifstream file("Z:" + std::string(path), std::ios::binary);
      int found = 0;
      for (std::string line; std::getline(file, line);) found += line.find(field) != std::string::npos;
      return found >= std::stoi(words[2]);
    });
  }

  std::map<std::string, IDispatch*> objects_;
};

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  std::ifstream script(arguments[1], std::ios::binary);
  if (!script) return 2;
  if (FAILED(CoInitialize(nullptr))) return 2;
  Probe probe;
  for (std::string line; std::getline(script, line);) {
    std::string shown = "no value";
    const HRESULT outcome = probe.Run(Split(line), shown);
    std::printf("%08lx\t%s\n", static_cast<unsigned long>(outcome), shown.c_str());
    std::fflush(stdout);
  }
  return 0;
}
