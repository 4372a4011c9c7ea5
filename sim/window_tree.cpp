#include "sim/window_tree.h"

#include "sim/code_page.h"

namespace pointalk::sim {

Text FittingBuffer(const Text& text, std::int64_t capacity) {
  return capacity > 1 ? text.substr(0, static_cast<std::size_t>(capacity - 1)) : Text();
}

WindowHandle SimWindowTree::WindowAt(Point screen) {
  const Window* const window = desktop_.VisibleAt(screen);
  return window == nullptr ? 0 : window->id;
}

std::optional<Text> SimWindowTree::ClassOf(WindowHandle handle, int limit) {
  const Window* const window = desktop_.Find(handle);
  if (window == nullptr) return std::nullopt;
  return FittingBuffer(window->className, limit);
}

WindowHandle SimWindowTree::ParentOf(WindowHandle handle) {
  const Window* const window = desktop_.Find(handle);
  return window == nullptr ? 0 : window->parent;
}

WindowHandle SimWindowTree::FirstChildOf(WindowHandle handle) {
  if (desktop_.Find(handle) == nullptr) return 0;
  for (const Window& window : desktop_.Windows()) {
    if (window.parent == handle) return window.id;
  }
  return 0;
}

WindowHandle SimWindowTree::FindTopLevel(TextView className, TextView title) {
  const Text wantedClass = ThroughAnsi(className);
  const Text wantedTitle = ThroughAnsi(title);
  for (const Window& window : desktop_.Windows()) {
    if (window.parent == 0 && window.className == wantedClass && window.title == wantedTitle)
      return window.id;
  }
  return 0;
}

std::optional<ProcessId> SimWindowTree::ProcessOf(WindowHandle handle) {
  const Window* const window = desktop_.Find(handle);
  if (window == nullptr || window->process == 0) return std::nullopt;
  return window->process;
}

std::optional<Point> SimWindowTree::ToClient(WindowHandle handle, Point screen) {
  const Window* const window = desktop_.Find(handle);
  if (window == nullptr) return std::nullopt;
  return window->ToClient(screen);
}

Text SimWindowTree::CaptionOf(WindowHandle handle, int capacity) {
  const Window* const window = desktop_.Find(handle);
  return window == nullptr ? Text() : FittingBuffer(window->title, capacity);
}

}  // namespace pointalk::sim
