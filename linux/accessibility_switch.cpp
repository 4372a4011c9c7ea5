#include "linux/accessibility_switch.h"

#include <systemd/sd-bus.h>

#include <cstdint>
#include <cstdlib>
#include <tuple>

#include "linux/owned.h"

namespace pointalk::linux {
namespace {

constexpr char kService[] = "org.a11y.Bus";
constexpr char kPath[] = "/org/a11y/bus";
constexpr char kStatus[] = "org.a11y.Status";
constexpr char kEnabled[] = "IsEnabled";
constexpr char kScreenReader[] = "ScreenReaderEnabled";
constexpr std::uint64_t kCallLimit = 5'000'000;  // microseconds; the service may have to be started first

using Session = Owned<sd_bus, sd_bus_flush_close_unref>;

Session OpenSession() {
  sd_bus* bus = nullptr;
  if (sd_bus_open_user(&bus) < 0) return nullptr;
  Session session(bus);
  sd_bus_set_method_call_timeout(bus, kCallLimit);
  return session;
}

// False where the desktop does not tell.
bool IsOn(const Session& session, const char* property) {
  int on = 0;
  return session &&
         sd_bus_get_property_trivial(session.get(), kService, kPath, kStatus, property, nullptr, 'b', &on) >=
             0 &&
         on != 0;
}

void Set(bool enabled) {
  if (const Session session = OpenSession()) {
    // A desktop that refuses is used as it is.
    std::ignore = sd_bus_set_property(session.get(), kService, kPath, kStatus, kEnabled, nullptr, "b",
                                      static_cast<int>(enabled));
  }
}

}  // namespace

void AccessibilitySwitch::TurnOn() {
  const Session session = OpenSession();
  int enabled = 0;
  if (!session || sd_bus_get_property_trivial(session.get(), kService, kPath, kStatus, kEnabled, nullptr, 'b',
                                              &enabled) < 0)
    return;
  if (enabled != 0) return;
  wasOff_ = true;
  Set(true);
}

void AccessibilitySwitch::PutBack() {
  if (wasOff_ && !IsOn(OpenSession(), kScreenReader)) Set(false);
  wasOff_ = false;
}

std::string AccessibilitySwitch::BusAddress() {
  if (const char* const named = std::getenv("AT_SPI_BUS_ADDRESS")) return named;
  const Session session = OpenSession();
  missing_ = session || hadSession_ ? MissingBus::kNone : MissingBus::kSession;
  if (!session) return {};
  hadSession_ = true;
  sd_bus_message* message = nullptr;
  sd_bus_error error{};
  const int outcome =
      sd_bus_call_method(session.get(), kService, kPath, kService, "GetAddress", &error, &message, "");
  if (sd_bus_error_has_name(&error, SD_BUS_ERROR_SERVICE_UNKNOWN) != 0) missing_ = MissingBus::kObjects;
  sd_bus_error_free(&error);
  if (outcome < 0) return {};
  const Owned<sd_bus_message, sd_bus_message_unref> answer(message);
  const char* address = nullptr;
  return sd_bus_message_read(answer.get(), "s", &address) > 0 ? address : "";
}

}  // namespace pointalk::linux
