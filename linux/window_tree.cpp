#include "linux/window_tree.h"

#include "linux/buffers.h"

namespace pointalk::linux {

WindowHandle LinuxWindowTree::WindowAt(Point screen) { return things_.At(screen).handle; }

std::optional<Text> LinuxWindowTree::ClassOf(WindowHandle window, int limit) {
  const Thing* const thing = things_.Find(window);
  if (thing == nullptr) return std::nullopt;
  return FittingBuffer(thing->className, limit);
}

WindowHandle LinuxWindowTree::ParentOf(WindowHandle window) {
  const Thing* const thing = things_.Find(window);
  return thing == nullptr ? 0 : thing->parent;
}

// Objects are not asked for what they hold.
WindowHandle LinuxWindowTree::FirstChildOf(WindowHandle /*window*/) { return 0; }

std::optional<ProcessId> LinuxWindowTree::ProcessOf(WindowHandle window) {
  const Thing* const thing = things_.Find(window);
  if (thing == nullptr || thing->process == 0) return std::nullopt;
  return thing->process;
}

std::optional<Point> LinuxWindowTree::ToClient(WindowHandle window, Point screen) {
  const Thing* const thing = things_.Find(window);
  if (thing == nullptr) return std::nullopt;
  return Point{screen.x - thing->origin.x, screen.y - thing->origin.y};
}

Text LinuxWindowTree::CaptionOf(WindowHandle window, int capacity) {
  const Thing* const thing = things_.Find(window);
  return thing == nullptr || thing->frame != window ? Text()
                                                    : FittingBuffer(things_.TitleOf(*thing), capacity);
}

}  // namespace pointalk::linux
