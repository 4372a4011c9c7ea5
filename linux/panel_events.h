// What the control panel's window tells the form.
#pragma once

#include <cstdint>

#include "app/panel_table.h"

namespace pointalk::linux {

class PanelEvents {
 public:
  virtual ~PanelEvents() = default;

  virtual void OnTick() = 0;
  virtual void OnMouse(std::int32_t message) = 0;
  virtual void OnClick() = 0;
  virtual void OnCommand(Handler handler) = 0;

  // The window closes, or the user's session ends.
  virtual void OnUnload() = 0;
};

}  // namespace pointalk::linux
