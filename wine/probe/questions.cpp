#include "wine/probe/questions.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "wine/probe/remote_record.h"
#include "wine/target/messages.h"

namespace pointalk::probe {
namespace {

using target::CommandLine;
using target::JsonObject;
using target::ParseNumber;

constexpr std::int64_t kLimit = 2000;

std::int64_t Number(const CommandLine& line, std::size_t index) { return ParseNumber(line.Word(index)); }

HWND Window(const CommandLine& line) { return reinterpret_cast<HWND>(Number(line, 1)); }

POINT ScreenPoint(const CommandLine& line, std::size_t index) {
  return {static_cast<LONG>(Number(line, index)), static_cast<LONG>(Number(line, index + 1))};
}

struct Reply {
  bool answered = false;
  LONG_PTR result = 0;

  JsonObject Json() const { return JsonObject().Flag("answered", answered).Number("result", result); }
};

Reply Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam, std::int64_t limit = kLimit) {
  DWORD_PTR result = 0;
  Reply reply;
  reply.answered = SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG | SMTO_BLOCK,
                                       static_cast<UINT>(limit), &result) != 0;
  reply.result = static_cast<LONG_PTR>(result);
  return reply;
}

// A message that fills a buffer of ours; what the reply counts beyond the buffer is not shown.
std::string AskForText(HWND window, UINT message, WPARAM wParam, std::vector<wchar_t> buffer) {
  const Reply reply = Send(window, message, wParam, reinterpret_cast<LPARAM>(buffer.data()));
  const std::int64_t capacity = static_cast<std::int64_t>(buffer.size());
  const auto shown = static_cast<std::size_t>(std::clamp<std::int64_t>(reply.result, 0, capacity));
  return reply.Json().Text("text", {buffer.data(), reply.answered ? shown : 0}).Line();
}

std::string AnswerAt(const CommandLine& line) {
  const HWND window = WindowFromPoint(ScreenPoint(line, 1));
  std::array<wchar_t, 256> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return JsonObject()
      .Number("hwnd", reinterpret_cast<LONG_PTR>(window))
      .Text("class", name.data())
      .Number("process", process)
      .Number("parent", reinterpret_cast<LONG_PTR>(GetParent(window)))
      .Line();
}

std::string AnswerPointer(const CommandLine&) {
  POINT point{};
  GetCursorPos(&point);
  return JsonObject().Number("x", point.x).Number("y", point.y).Line();
}

std::string AnswerKey(const CommandLine& line) {
  return JsonObject().Flag("down", GetAsyncKeyState(static_cast<int>(Number(line, 1))) < 0).Line();
}

std::string AnswerFind(const CommandLine& line) {
  const HWND window = FindWindowW(line.Word(1).c_str(), line.Word(2).c_str());
  return JsonObject()
      .Number("hwnd", reinterpret_cast<LONG_PTR>(window))
      .Number("child", reinterpret_cast<LONG_PTR>(GetWindow(window, GW_CHILD)))
      .Line();
}

std::string AnswerSend(const CommandLine& line) {
  return Send(Window(line), target::MessageNumber(line.Word(2)), static_cast<WPARAM>(Number(line, 3)),
              static_cast<LPARAM>(Number(line, 4)), line.Count() > 5 ? Number(line, 5) : kLimit)
      .Json()
      .Line();
}

std::string AnswerText(const CommandLine& line) {
  const auto capacity = static_cast<std::size_t>(Number(line, 2));
  return AskForText(Window(line), WM_GETTEXT, capacity, std::vector<wchar_t>(capacity));
}

std::string AnswerLine(const CommandLine& line) {
  std::vector<wchar_t> buffer(static_cast<std::size_t>(Number(line, 3)) + 1);
  buffer[0] = static_cast<wchar_t>(buffer.size() - 1);
  return AskForText(Window(line), EM_GETLINE, static_cast<WPARAM>(Number(line, 2)), std::move(buffer));
}

std::string AnswerListText(const CommandLine& line) {
  return AskForText(Window(line), LB_GETTEXT, static_cast<WPARAM>(Number(line, 2)),
                    std::vector<wchar_t>(static_cast<std::size_t>(Number(line, 3))));
}

std::string AnswerHit(const CommandLine& line) {
  const HWND window = Window(line);
  LVHITTESTINFO hit{};
  hit.pt = ScreenPoint(line, 2);
  ScreenToClient(window, &hit.pt);
  RemoteBlock block(window, sizeof hit);
  block.Put(hit);
  const Reply reply = Send(window, LVM_SUBITEMHITTEST, 0, block.Address());
  if (reply.answered) block.Get(hit);
  if (line.NumberOr(L"keep", 0) != 0) block.Abandon();
  return reply.Json().Number("item", hit.iItem).Number("flags", hit.flags).Line();
}

std::string AnswerLabel(const CommandLine& line) {
  const HWND window = Window(line);
  const auto capacity = static_cast<std::size_t>(line.NumberOr(L"capacity", 255));
  RemoteBlock text(window, capacity);
  RemoteBlock record(window, sizeof(LVITEMA));
  LVITEMA item{};
  item.mask = LVIF_TEXT;
  item.iItem = static_cast<int>(Number(line, 2));
  item.pszText = reinterpret_cast<char*>(text.Address());
  item.cchTextMax = static_cast<int>(capacity);
  record.Put(item);
  const Reply reply = Send(window, LVM_GETITEMA, 0, record.Address());
  std::string label(capacity, '\0');
  if (reply.answered) text.Read(label.data(), capacity);
  label.resize(std::min(label.find('\0'), label.size()));
  return reply.Json().Text("text", target::FromAnsi(label)).Line();
}

std::string AnswerCharacter(const CommandLine& line) {
  const HWND window = Window(line);
  POINT point = ScreenPoint(line, 2);
  ScreenToClient(window, &point);
  RemoteBlock block(window, sizeof point);
  block.Put(point);
  return Send(window, EM_CHARFROMPOS, 0, block.Address()).Json().Line();
}

}  // namespace

std::string Answer(const CommandLine& line) {
  static const std::map<std::wstring, std::function<std::string(const CommandLine&)>> kQuestions = {
      {L"at", AnswerAt},
      {L"pointer", AnswerPointer},
      {L"key", AnswerKey},
      {L"find", AnswerFind},
      {L"windows",
       [](const CommandLine& asked) { return AnswerWindows(asked.Count() > 1 ? Window(asked) : nullptr); }},
      {L"focus", [](const CommandLine&) { return AnswerFocus(); }},
      {L"resources", [](const CommandLine& asked) { return AnswerResources(Window(asked)); }},
      {L"clipboard", [](const CommandLine&) { return AnswerClipboard(); }},
      {L"place",
       [](const CommandLine& asked) { return AnswerPlace(Window(asked), target::ParseRect(asked.Word(2))); }},
      {L"object",
       [](const CommandLine& asked) {
         const POINT point = ScreenPoint(asked, 1);
         return AnswerObject(point.x, point.y);
       }},
      {L"send", AnswerSend},
      {L"text", AnswerText},
      {L"line", AnswerLine},
      {L"listtext", AnswerListText},
      {L"hit", AnswerHit},
      {L"label", AnswerLabel},
      {L"character", AnswerCharacter},
  };
  const auto question = kQuestions.find(line.Word(0));
  if (question == kQuestions.end()) throw target::CommandError("unknown question");
  return question->second(line);
}

}  // namespace pointalk::probe
