// The general reader, its thin callers, and the buttons.
#include "reader/control_readers.h"

#include "text/letters.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

// Parts of a scroll bar by what their names hold.
struct ScrollPart {
  TextView name;
  TextView earcon;
};

constexpr ScrollPart kScrollParts[] = {
    {u"page up", u"ScrollUp"},
    {u"line up", u"ScrollUp"},
    {u"page down", u"ScrollDown"},
    {u"line down", u"ScrollDown"},
};

// What is said after the text of an object, by what its role holds.
TextView RoleWord(TextView role) {
  if (ContainsInLowerCase(role, u"client")) return u", client area";
  if (ContainsInLowerCase(role, u"menu")) return u" menu";
  if (ContainsInLowerCase(role, u"button")) return u" button";
  return {};
}

}  // namespace

bool ControlReaders::ReadAccessibleControl(WindowHandle window) {
  if (!input.mButtonDown) keptThumbPosition = kNoThumb;
  if (ReadScrollBar()) return false;
  keptThumbPosition = kNoThumb;
  if (!IsBlank(description.maccText)) {
    speech.SpeakObjectText(Text(description.maccText).append(RoleWord(description.maccRole)));
    return true;
  }
  const Text title = titles.GetWindowTitle(window);
  if (IsBlank(title)) {
    speech.SpeakObjectText(description.maccText);
    return false;
  }
  const bool menuBar = ToLower(Trimmed(title)) == u"menu bar";
  speech.SpeakObjectText(menuBar ? TextView(description.maccText) : TextView(title));
  return true;
}

// True when the object is part of a scroll bar; then it was said.
bool ControlReaders::ReadScrollBar() {
  if (ContainsInLowerCase(description.maccName, u"position")) {
    // Moves whichever way a thumb is dragged.
    const std::int64_t position = std::int64_t{input.mCursorX} - input.mCursorY;
    if (input.mButtonDown) PlayThumb(position);
    speech.SpeakObjectText(u"scroll bar");
    keptThumbPosition = position;
    return true;
  }
  for (const ScrollPart& part : kScrollParts) {
    if (!ContainsInLowerCase(description.maccName, part.name)) continue;
    if (input.mButtonDown) sounds.PlayEarcon(part.earcon);
    speech.SpeakObjectText(description.maccName);
    keptThumbPosition = kNoThumb;
    return true;
  }
  return false;
}

void ControlReaders::PlayThumb(std::int64_t position) {
  if (keptThumbPosition == kNoThumb || position == keptThumbPosition) return;
  sounds.PlayEarcon(position > keptThumbPosition ? u"ScrollUp" : u"ScrollDown");
}

bool ControlReaders::ReadButton(const Spot& spot) {
  if (!IsBlank(description.maccText)) {
    speech.SpeakObjectText(description.maccText + u" button");
    return true;
  }
  const Text title = Replaced(titles.GetWindowTitle(spot.window), u"&", u"");
  if (IsBlank(title)) return false;
  speech.SpeakObjectText(title);
  return true;
}

}  // namespace pointalk
