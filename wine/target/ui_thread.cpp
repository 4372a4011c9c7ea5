#include "wine/target/ui_thread.h"

#include <objbase.h>

#include <chrono>
#include <memory>
#include <tuple>
#include <utility>

#include "wine/target/text.h"

namespace pointalk::target {
namespace {

constexpr UINT kTaskMessage = WM_APP + 1;
constexpr auto kTaskLimit = std::chrono::seconds(5);

LRESULT CALLBACK InboxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kTaskMessage) return DefWindowProcW(window, message, wParam, lParam);
  const std::unique_ptr<std::packaged_task<std::string()>> task(
      reinterpret_cast<std::packaged_task<std::string()>*>(lParam));
  (*task)();
  return 0;
}

}  // namespace

UiThread::UiThread(bool unaware) {
  std::promise<HWND> ready;
  auto inbox = ready.get_future();
  thread_ = std::thread([this, unaware, &ready] { Loop(unaware, ready); });
  thread_.detach();
  inbox_ = inbox.get();
  id_ = GetWindowThreadProcessId(inbox_, nullptr);
}

void UiThread::Loop(bool unaware, std::promise<HWND>& ready) {
  if (unaware) SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_UNAWARE);
  std::ignore = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  WNDCLASSEXW inbox{};
  inbox.cbSize = sizeof inbox;
  inbox.lpfnWndProc = InboxProcedure;
  inbox.hInstance = GetModuleHandleW(nullptr);
  inbox.lpszClassName = L"TargetInbox";
  RegisterClassExW(&inbox);  // fails for every thread but the first, whose class serves all
  ready.set_value(CreateWindowExW(0, L"TargetInbox", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  inbox.hInstance, nullptr));
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

std::future<std::string> UiThread::Post(std::function<std::string()> task) {
  auto packaged = std::make_unique<Task>(std::move(task));
  auto reply = packaged->get_future();
  if (!PostMessageW(inbox_, kTaskMessage, 0, reinterpret_cast<LPARAM>(packaged.get()))) {
    throw CommandError("the window's thread takes no tasks");
  }
  std::ignore = packaged.release();  // the inbox owns it now
  return reply;
}

std::string UiThread::Run(std::function<std::string()> task) {
  if (GetCurrentThreadId() == id_) return task();
  auto reply = Post(std::move(task));
  if (reply.wait_for(kTaskLimit) != std::future_status::ready)
    throw CommandError("the window's thread is busy");
  return reply.get();
}

void UiThread::Hang() {
  if (hangs_) throw CommandError("the window's thread hangs already");
  auto started = std::make_shared<std::promise<void>>();
  auto hanging = started->get_future();
  Post([this, started] {
    started->set_value();
    mayGoOn_.acquire();
    return std::string();
  });
  if (hanging.wait_for(kTaskLimit) != std::future_status::ready)
    throw CommandError("the window's thread is busy");
  hangs_ = true;
}

void UiThread::Wake() {
  if (!hangs_) throw CommandError("the window's thread does not hang");
  hangs_ = false;
  mayGoOn_.release();
}

}  // namespace pointalk::target
