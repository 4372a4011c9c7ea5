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

void ControlReaders::ReadAccessibleControl(const Spot& spot) {
  if (!clicks_.ButtonDown()) keptThumbPosition_ = kNoThumb;
  if (ReadScrollBar(spot)) return;
  keptThumbPosition_ = kNoThumb;
  const Text& text = spot.texts.maccText;
  if (!IsBlank(text)) {
    return objectSpeech_.SpeakObjectText(Text(text).append(RoleWord(spot.texts.maccRole)), spot);
  }
  const Text title = windowTitle_.GetWindowTitle(spot.window);
  const bool noTitle = IsBlank(title) || ToLower(Trimmed(title)) == u"menu bar";
  objectSpeech_.SpeakObjectText(noTitle ? text : title, spot);
}

// True when the object is part of a scroll bar; then it was said.
bool ControlReaders::ReadScrollBar(const Spot& spot) {
  const Text& name = spot.texts.maccName;
  if (ContainsInLowerCase(name, u"position")) {
    // Moves whichever way a thumb is dragged.
    const std::int64_t position = std::int64_t{spot.point.x} - spot.point.y;
    if (clicks_.ButtonDown()) PlayThumb(position);
    objectSpeech_.SpeakObjectText(u"scroll bar", spot);
    keptThumbPosition_ = position;
    return true;
  }
  for (const ScrollPart& part : kScrollParts) {
    if (!ContainsInLowerCase(name, part.name)) continue;
    if (clicks_.ButtonDown()) eventSounds_.PlayEarcon(part.earcon);
    objectSpeech_.SpeakObjectText(name, spot);
    keptThumbPosition_ = kNoThumb;
    return true;
  }
  return false;
}

void ControlReaders::PlayThumb(std::int64_t position) {
  if (keptThumbPosition_ == kNoThumb || position == keptThumbPosition_) return;
  eventSounds_.PlayEarcon(position > keptThumbPosition_ ? u"ScrollUp" : u"ScrollDown");
}

void ControlReaders::ReadButton(const Spot& spot) {
  if (!IsBlank(spot.texts.maccText)) {
    return objectSpeech_.SpeakObjectText(spot.texts.maccText + u" button", spot);
  }
  const Text title = Replaced(windowTitle_.GetWindowTitle(spot.window), u"&", u"");
  if (!IsBlank(title)) objectSpeech_.SpeakObjectText(title, spot);
}

}  // namespace pointalk
