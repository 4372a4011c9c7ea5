// What a tick that describes costs beside the bare platform calls that it cannot do without.
//
//   describing_cost button|list|edit X Y ...
//
// Over each place the pointer moves by a pixel to and fro; the form's tick and the bare calls take turns. One
// JSON line a place, medians, times in microseconds, the ratio that of neighbours, which other work on the
// machine disturbs least:
// {"over":"edit","tick":4100.5,"calls":4020.1,"ratio":1.019}.
#include <windows.h>

#include <commctrl.h>
#include <oleacc.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "app/mouse.h"
#include "win32/com.h"
#include "win32/object_question.h"
#include "win32/win_platform.h"

namespace {

constexpr int kWarming = 20;
constexpr int kRounds = 600;
constexpr UINT kLimit = 100;    // milliseconds
constexpr int kLineScan = 256;  // pixels downwards
constexpr int kLineScanStep = 4;

DWORD_PTR Ask(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  DWORD_PTR result = 0;
  SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL | SMTO_ABORTIFHUNG, kLimit, &result);
  return result;
}

template <class Number> LPARAM Address(Number* place) { return reinterpret_cast<LPARAM>(place); }

// A block in the other process with a record in it.
class Block {
 public:
  Block(HANDLE process, SIZE_T size)
      : process_(process),
        block_(VirtualAllocEx(process, nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE)) {}
  ~Block() { VirtualFreeEx(process_, block_, 0, MEM_RELEASE); }
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;

  void Put(const void* from, SIZE_T size) { WriteProcessMemory(process_, block_, from, size, nullptr); }
  void Get(void* to, SIZE_T size) { ReadProcessMemory(process_, block_, to, size, nullptr); }
  LPARAM Where() const { return reinterpret_cast<LPARAM>(block_); }

 private:
  HANDLE process_;
  void* block_;
};

void ReadList(HWND window, POINT pointer, HANDLE process) {
  ScreenToClient(window, &pointer);
  Ask(window, LVM_GETITEMCOUNT);
  LVHITTESTINFO hit{};
  hit.pt = pointer;
  Block record(process, sizeof hit);
  record.Put(&hit, sizeof hit);
  Ask(window, LVM_SUBITEMHITTEST, 0, record.Where());
  record.Get(&hit, sizeof hit);
  std::array<char, 255> label{};
  Block text(process, label.size());
  LVITEMA item{};
  item.mask = LVIF_TEXT;
  item.iItem = hit.iItem;
  item.pszText = reinterpret_cast<char*>(text.Where());
  item.cchTextMax = static_cast<int>(label.size());
  Block itemRecord(process, sizeof item);
  itemRecord.Put(&item, sizeof item);
  Ask(window, LVM_GETITEMA, 0, itemRecord.Where());
  text.Get(label.data(), label.size());
}

void ReadEdit(HWND window, POINT pointer) {
  ScreenToClient(window, &pointer);
  const auto at = [&](LONG x, LONG y) { return Ask(window, EM_CHARFROMPOS, 0, MAKELPARAM(x, y)); };
  const DWORD_PTR start = at(3, pointer.y);
  for (LONG down = kLineScanStep; down <= kLineScan && at(3, pointer.y + down) == start;
       down += kLineScanStep) {
  }
  at(pointer.x, pointer.y);
  Ask(window, EM_LINELENGTH, LOWORD(start));
  static std::array<wchar_t, 65'536> line{};
  line[0] = 65'535;
  Ask(window, EM_GETLINE, HIWORD(start), Address(line.data()));
}

// Everything of a tick and its description but the reader.
HWND AskTick(POINT& pointer, pointalk::win32::AutomationQuestion& automation) {
  for (const int key : {VK_CONTROL, VK_MENU, VK_SHIFT}) GetAsyncKeyState(key);
  GetCursorPos(&pointer);
  GetAsyncKeyState(VK_LBUTTON);
  const HWND window = WindowFromPoint(pointer);
  std::array<wchar_t, 256> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  for (const int key : {VK_CONTROL, VK_MENU}) GetAsyncKeyState(key);
  const auto facts =
      pointalk::win32::AskObjectAt({pointer.x, pointer.y}, automation, [](const auto&) {}).facts;
  std::array<char, 128> role{};
  GetRoleTextA(static_cast<DWORD>(facts ? facts->role.value_or(0) : 0), role.data(), 128);
  HWND top = window;
  while (const HWND parent = GetParent(top)) top = parent;
  GetClassNameW(top, name.data(), static_cast<int>(name.size()));
  GetMenu(window);
  return window;
}

void MakeBareCalls(const std::string& kind, HANDLE process) {
  pointalk::win32::AutomationQuestion automation;  // not asked over these controls
  POINT pointer{};
  const HWND window = AskTick(pointer, automation);
  DWORD owner = 0;
  if (kind != "button") GetWindowThreadProcessId(window, &owner);
  if (kind == "list") ReadList(window, pointer, process);
  if (kind == "edit") ReadEdit(window, pointer);
  GetAsyncKeyState(VK_SHIFT);  // before anything is said
}

template <class Work> double Microseconds(const Work& work) {
  LARGE_INTEGER begin;
  LARGE_INTEGER end;
  LARGE_INTEGER perSecond;
  QueryPerformanceFrequency(&perSecond);
  QueryPerformanceCounter(&begin);
  work();
  QueryPerformanceCounter(&end);
  return static_cast<double>(end.QuadPart - begin.QuadPart) * 1e6 / static_cast<double>(perSecond.QuadPart);
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void Measure(pointalk::Mouse& form, const std::string& kind, int x, int y) {
  DWORD owner = 0;
  GetWindowThreadProcessId(WindowFromPoint({x, y}), &owner);
  const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, owner);
  std::vector<double> ticks;
  std::vector<double> calls;
  for (int round = 0; round < kWarming + kRounds; ++round) {
    SetCursorPos(x + round % 2, y);
    const auto takeTick = [&] { ticks.push_back(Microseconds([&] { form.Timer1_Timer(); })); };
    const auto makeCalls = [&] { calls.push_back(Microseconds([&] { MakeBareCalls(kind, process); })); };
    if (round % 4 < 2) takeTick();
    makeCalls();
    if (round % 4 >= 2) takeTick();
  }
  CloseHandle(process);
  std::vector<double> ratios;
  for (std::size_t round = kWarming; round < ticks.size(); ++round)
    ratios.push_back(ticks[round] / calls[round]);
  std::printf("{\"over\":\"%s\",\"tick\":%.1f,\"calls\":%.1f,\"ratio\":%.3f}\n", kind.c_str(),
              Median(std::move(ticks)), Median(std::move(calls)), Median(std::move(ratios)));
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4 || (argc - 1) % 3 != 0) {
    std::fputs("describing_cost button|list|edit X Y ...\n", stderr);
    return 2;
  }
  const pointalk::win32::ComThread com(COINIT_APARTMENTTHREADED);
  pointalk::win32::WinPlatform base;
  pointalk::Mouse form(base.Seam());
  form.Form_Load();
  base.panel.SetTimerEnabled(false);
  for (int index = 1; index < argc; index += 3)
    Measure(form, argv[index], std::atoi(argv[index + 1]), std::atoi(argv[index + 2]));
  form.Form_Terminate();
  return 0;
}
