// Finds what lies under a point by asking the program that it belongs to.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "linux/bus.h"
#include "linux/found_object.h"
#include "linux/object_facts.h"
#include "linux/programs.h"

namespace pointalk::linux {

class ObjectFinder {
 public:
  // Listens on the bus, and has to live as long as that handles messages.
  explicit ObjectFinder(Bus& bus);
  ObjectFinder(const ObjectFinder&) = delete;
  ObjectFinder& operator=(const ObjectFinder&) = delete;

  // No value where no object is there, or none was told of before the limit.
  std::optional<FoundObject> Find(const ObjectQuestion& question, Moment limit);

  // A question to that process is still out.
  bool IsSilent(ProcessId process) { return programs_.IsSilent(process); }

 private:
  // Through a window of an old GTK 4, level by level.
  struct Walk {
    std::vector<BusObject> open;  // whose children were not yet asked for
    std::size_t seen = 0;
  };

  static int OnNameChange(sd_bus_message* signal, void* self, sd_bus_error* error);
  static int OnFocus(sd_bus_message* signal, void* self, sd_bus_error* error);

  void AskForFocus();
  std::optional<FoundObject> FindInWindow(Program& program, const Frame& frame,
                                          const ObjectQuestion& question, Moment limit);
  std::optional<FoundObject> FindInPopUp(const Program& program, const ObjectQuestion& question,
                                         Moment limit);
  std::optional<FoundObject> FindByFocus(const Program& program, const ObjectQuestion& question,
                                         const Measure& measure, Moment limit);
  bool IsInPopUp(const Facts& item, const Program& program, const ObjectQuestion& question,
                 const Measure& measure, Moment limit);
  std::vector<BusObject> Descend(const BusObject& frame, Toolkit toolkit, const Measure& measure,
                                 Moment limit);
  bool GoIntoSelectedPage(std::vector<BusObject>& way, const Measure& measure, Moment limit);
  void GoDown(std::vector<BusObject>& way, const Measure& measure, Moment limit);
  BusObject ChildAt(const BusObject& object, const Measure& measure, Moment limit);
  bool WalkOn(const BusObject& frame, Moment limit);
  FoundObject Climb(Facts facts, const Measure& measure, Toolkit toolkit, Moment limit);

  Bus& bus_;
  Programs programs_;
  FactsReader facts_;
  std::map<std::string, BusObject, std::less<>> focus_;  // what had the focus last, by program
  std::map<BusObject, Walk> walks_;                      // by the frame
};

}  // namespace pointalk::linux
