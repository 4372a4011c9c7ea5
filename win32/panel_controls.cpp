#include "win32/panel_controls.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <string>
#include <utility>

#include "app/panel_table.h"
#include "app/texts.h"
#include "win32/late_procedure.h"
#include "win32/panel_commands.h"
#include "win32/wide_text.h"

namespace pointalk::win32 {
namespace {

constexpr wchar_t kButtonFont[] = L"MS Sans Serif";
constexpr wchar_t kLabelFont[] = L"MS Serif";
constexpr int kIconResource = 1;
constexpr std::size_t kColumns = 3;

struct Cell {
  LONG column;
  LONG row;
};

// Of the buttons in their order; the picture has the rest of the last two rows.
constexpr std::array<Cell, 7> kCells = {{{0, 0}, {1, 0}, {2, 0}, {0, 1}, {1, 1}, {0, 2}, {1, 2}}};
constexpr LONG kRows = 3;
constexpr Cell kPictureCell = {2, 1};

HWND MakeControl(HWND panel, const wchar_t* kind, const std::wstring& text, DWORD style, UINT id) {
  return CreateWindowExW(0, kind, text.c_str(), style | WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, panel,
                         reinterpret_cast<HMENU>(UINT_PTR{id}), GetModuleHandleW(nullptr), nullptr);
}

// The height of the system's message font, which follows the user's size of text. Older systems know one
// scale.
LONG FontHeight(UINT dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  const auto forScale =
      LateProcedure<decltype(&SystemParametersInfoForDpi)>(L"user32.dll", "SystemParametersInfoForDpi");
  const BOOL known = forScale != nullptr
                         ? forScale(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, dpi)
                         : SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  return known ? metrics.lfMessageFont.lfHeight : -MulDiv(9, static_cast<int>(dpi), 72);
}

OwnedFont MakeFont(const wchar_t* face, LONG height) {
  LOGFONTW font{};
  font.lfHeight = height;
  font.lfCharSet = DEFAULT_CHARSET;
  std::wcsncpy(font.lfFaceName, face, LF_FACESIZE - 1);
  return OwnedFont(CreateFontIndirectW(&font));
}

// The size of a text in a font, wrapped at a width.
SIZE SizeOf(HWND window, HFONT font, const std::wstring& text, LONG width) {
  const HDC screen = GetDC(window);
  const HGDIOBJ before = SelectObject(screen, font);
  RECT place{0, 0, width, 0};
  DrawTextW(screen, text.c_str(), -1, &place, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(screen, before);
  ReleaseDC(window, screen);
  return {place.right, place.bottom};
}

}  // namespace

PanelControls::PanelControls(HWND panel) : panel_(panel) {
  std::size_t index = 0;
  for (const PanelButton& button : PanelButtons()) {
    const DWORD kind = index == 0 ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
    buttons_.push_back(
        MakeControl(panel, L"BUTTON", Wide(button.caption), kind | WS_TABSTOP, ButtonCommand(index)));
    ++index;
  }
  label_ = MakeControl(panel, L"STATIC", Wide(kRightsStatement), SS_NOPREFIX, 0);
  picture_ = MakeControl(panel, L"STATIC", L"", SS_ICON | SS_REALSIZECONTROL, 0);
}

SIZE PanelControls::Arrange(UINT dpi, LONG screenWidth) {
  SetFonts(dpi);
  const Grid grid = Measure(screenWidth);
  PlaceButtons(grid);

  const LONG stepX = grid.buttonWidth + grid.margin;
  const LONG stepY = grid.buttonHeight + grid.margin;
  const LONG pictureLeft = grid.margin + kPictureCell.column * stepX;
  const LONG pictureTop = grid.margin + kPictureCell.row * stepY;
  const LONG pictureSize = kRows * stepY - pictureTop;
  ShowPicture({pictureLeft, pictureTop, pictureLeft + pictureSize, pictureTop + pictureSize});

  const LONG widest = screenWidth - 4 * grid.margin;
  const SIZE label = SizeOf(label_, labelFont_.get(), Wide(kRightsStatement), widest);
  const LONG labelTop = grid.margin + kRows * stepY;
  SetWindowPos(label_, nullptr, grid.margin, labelTop, label.cx, label.cy, SWP_NOZORDER | SWP_NOACTIVATE);
  return {std::max(grid.width, label.cx) + 2 * grid.margin, labelTop + label.cy + grid.margin};
}

void PanelControls::SetFonts(UINT dpi) {
  const LONG height = FontHeight(dpi);
  OwnedFont buttonFont = MakeFont(kButtonFont, height);
  OwnedFont labelFont = MakeFont(kLabelFont, height);
  for (const HWND button : buttons_)
    SendMessageW(button, WM_SETFONT, reinterpret_cast<WPARAM>(buttonFont.get()), TRUE);
  SendMessageW(label_, WM_SETFONT, reinterpret_cast<WPARAM>(labelFont.get()), TRUE);
  buttonFont_ = std::move(buttonFont);
  labelFont_ = std::move(labelFont);
}

PanelControls::Grid PanelControls::Measure(LONG screenWidth) const {
  Grid grid{};
  for (const PanelButton& button : PanelButtons()) {
    const SIZE size = SizeOf(panel_, buttonFont_.get(), Wide(button.caption), screenWidth);
    grid.buttonWidth = std::max(grid.buttonWidth, size.cx);
    grid.buttonHeight = std::max(grid.buttonHeight, size.cy);
  }
  grid.margin = grid.buttonHeight / 2;
  grid.buttonWidth += 2 * grid.buttonHeight;
  grid.buttonHeight += grid.margin * 3 / 2;
  grid.width = static_cast<LONG>(kColumns) * (grid.buttonWidth + grid.margin) - grid.margin;
  return grid;
}

void PanelControls::PlaceButtons(const Grid& grid) const {
  const std::size_t count = std::min(buttons_.size(), kCells.size());
  for (std::size_t i = 0; i < count; ++i) {
    SetWindowPos(buttons_[i], nullptr, grid.margin + kCells[i].column * (grid.buttonWidth + grid.margin),
                 grid.margin + kCells[i].row * (grid.buttonHeight + grid.margin), grid.buttonWidth,
                 grid.buttonHeight, SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

void PanelControls::ShowPicture(const RECT& place) {
  const int size = place.right - place.left;
  OwnedIcon icon(static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kIconResource),
                                               IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
  SendMessageW(picture_, STM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.get()));
  SetWindowPos(picture_, nullptr, place.left, place.top, size, size, SWP_NOZORDER | SWP_NOACTIVATE);
  icon_ = std::move(icon);
}

}  // namespace pointalk::win32
