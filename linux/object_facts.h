// Asks an object for everything that is said of it.
#pragma once

#include <optional>

#include "linux/bus.h"
#include "linux/found_object.h"
#include "linux/programs.h"

namespace pointalk::linux {

// A point as a program counts, and the way back.
struct Measure {
  std::uint32_t coordinates = 0;  // on the screen or in the window
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t scale = 1;
  Point windowOrigin;  // in pixels of the screen

  static Measure Of(const ObjectQuestion& question, Toolkit toolkit, std::int32_t scale);
  Point OnScreen(Point counted) const;
};

struct Facts {
  FoundObject found;
  BusObject parent;
  std::int32_t width = 0;  // as the program counts; 0 where it does not tell
  std::int32_t height = 0;
  Point counted;  // the object's origin, as the program counts

  // There is something in it to be said.
  bool HasText() const;
  bool Holds(const Measure& measure) const;
  // The object does not stick out of that place of the screen.
  bool LiesIn(const XDisplay::Place& place, const Measure& measure) const;
};

class FactsReader {
 public:
  explicit FactsReader(Bus& bus) : bus_(bus) {}

  // No value for an object that is gone or did not answer. What lies within a password field is answered by
  // the field itself.
  std::optional<Facts> Read(const BusObject& object, const Measure& measure, Toolkit toolkit, Moment limit);

  // The first of the objects in it that are selected; null where there is none.
  BusObject SelectedChild(const BusObject& object, Moment limit);
  Text NameOf(const BusObject& object, Moment limit);
  // It is a tab, or what belongs to one, and lies elsewhere.
  bool MissesTab(const Facts& facts, const Measure& measure, Moment limit);
  // What a cell without a name is called by another part of its entry; empty where there is none.
  Text NameOfEntry(const Facts& cell, Moment limit);

 private:
  std::optional<LineHit> ReadLine(const BusObject& object, const Measure& measure, Toolkit toolkit,
                                  Moment limit);
  void AddText(FoundObject& object, Moment limit);
  std::int32_t CharacterCount(const BusObject& object, Moment limit);
  std::int32_t OffsetAt(const BusObject& object, const Measure& measure, Moment limit);
  std::optional<Text> ReadBeginning(const BusObject& object, Moment limit);
  std::optional<Text> ReadValue(const BusObject& object, std::uint32_t role, Moment limit);
  std::uint32_t RoleOf(const BusObject& object, Moment limit);
  BusMessage Property(const BusObject& object, const char* interface, const char* name);

  Bus& bus_;
};

}  // namespace pointalk::linux
