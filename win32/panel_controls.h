// What stands inside the control panel's window: its buttons, its label and its picture.
#pragma once

#include <windows.h>

#include <vector>

#include "win32/handles.h"

namespace pointalk::win32 {

// Everything takes its size from the font, so that it can be read at every scale and with every size of text
// that the user chose, and its colours from the system.
class PanelControls {
 public:
  explicit PanelControls(HWND panel);

  // Lays everything out for a scale in dots per inch and a screen of so many pixels from left to right, and
  // gives the size of the window's inside.
  SIZE Arrange(UINT dpi, LONG screenWidth);

  HWND FirstButton() const { return buttons_.front(); }

 private:
  struct Grid {
    LONG margin;
    LONG buttonWidth;
    LONG buttonHeight;
    LONG width;  // of three buttons beside each other
  };

  void SetFonts(UINT dpi);
  void ShowPicture(const RECT& place);
  Grid Measure(LONG screenWidth) const;
  void PlaceButtons(const Grid& grid) const;

  HWND panel_;
  std::vector<HWND> buttons_;
  HWND label_;
  HWND picture_;
  OwnedFont buttonFont_;
  OwnedFont labelFont_;
  OwnedIcon icon_;
};

}  // namespace pointalk::win32
