// What the control panel's window tells the form.
#pragma once

#include <cstdint>

#include "app/panel_table.h"

namespace pointalk::win32 {

class PanelEvents {
 public:
  virtual ~PanelEvents() = default;

  virtual void OnTick() = 0;
  virtual void OnMouse(std::int32_t message) = 0;
  virtual void OnClick() = 0;
  virtual void OnCommand(Handler handler) = 0;

  // Devices came or went a second ago, or the machine woke up. False when nothing could be done about it yet:
  // it is told again soon.
  virtual bool OnDevices() = 0;

  virtual void OnUnload() = 0;      // the window closes
  virtual void OnSessionEnd() = 0;  // of the user's session; the program has to end at once
};

}  // namespace pointalk::win32
