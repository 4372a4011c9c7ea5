#include "linux/object_facts.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "linux/atspi_names.h"
#include "linux/roles.h"
#include "linux/utf8.h"
#include "text/numbers.h"
#include "text/text_rules.h"

namespace pointalk::linux {
namespace {

constexpr std::int32_t kMostOfText = 1000;         // characters of a field that are read
constexpr std::size_t kLongestDescription = 2000;  // characters: it is waited for until it has been said
constexpr std::size_t kMostParts = 8;              // of an entry of a list that are asked for their names
constexpr double kLargestValue = 1e12;
constexpr std::int32_t kListBorder = 8;       // that a list may count as its own beside what its window shows
constexpr std::int32_t kLineNumbers = 32749;  // a prime that a line number stays below

// Dial, progress bar, scroll bar, slider, spin button, level bar, rating: what they show is a number.
constexpr std::uint32_t kWithNumbers[] = {15, kRoleProgressBar, 48, 51, 52, kRoleLevelBar, 114};

// What is shown fills it up.
bool IsBar(std::uint32_t role) { return role == kRoleProgressBar || role == kRoleLevelBar; }

bool Is(const std::vector<std::uint32_t>& states, int bit) {
  return !states.empty() && (states.front() >> bit & 1U) != 0;
}

bool Has(const std::vector<std::string>& interfaces, const char* name) {
  return std::find(interfaces.begin(), interfaces.end(), name) != interfaces.end();
}

bool IsField(std::uint32_t role) {
  return role == kRoleText || role == kRoleEntry || role == kRoleSpinButton;
}

// Whether a text is read by the line under the point. A field of one line is said whole.
bool IsReadByLine(std::uint32_t role, const std::vector<std::uint32_t>& states, Toolkit toolkit) {
  if (role == kRoleText) {
    if (Is(states, kStateMultiLine)) return true;
    return toolkit != Toolkit::kQt && !Is(states, kStateSingleLine);
  }
  if (role == kRoleEntry) return Is(states, kStateMultiLine);
  return role == kRoleParagraph || role == kRoleTerminal || role == kRoleDocumentFrame ||
         role == kRoleSection || role == kRoleStatic ||
         (role >= kRoleFirstDocument && role <= kRoleLastDocument);
}

// Some programs give such things no name but their text.
bool IsReadByLineWithoutName(std::uint32_t role) {
  return role == kRoleLabel || role == kRoleHeading || role == kRoleLink;
}

// Some toolkits make the text of a field an object within it, of which text or name are what was typed.
bool MayBePassword(const Facts& facts, bool hasText) {
  return !facts.parent.IsNull() && (hasText || facts.found.role == kRoleStatic || IsField(facts.found.role));
}

// Text comes with its characters counted; one beyond U+FFFF is two of ours.
std::int32_t UnitsOf(const Text& text, std::int32_t characters) {
  std::size_t units = 0;
  for (std::int32_t i = 0; i < characters && units < text.size(); ++i) {
    units += text[units] >= 0xD800 && text[units] <= 0xDBFF && units + 1 < text.size() ? 2 : 1;
  }
  return static_cast<std::int32_t>(units);
}

// Of a property; no value for what is too large for a number that is told.
std::optional<double> RealOf(const BusMessage& answer) {
  BusReader reader(answer);
  if (!reader.EnterVariant("d")) return std::nullopt;
  const double value = reader.ReadReal();
  return reader.IsGood() && std::abs(value) <= kLargestValue ? std::optional(value) : std::nullopt;
}

}  // namespace

Measure Measure::Of(const ObjectQuestion& question, Toolkit toolkit, std::int32_t scale) {
  const Point origin = question.spot.place.origin;
  if (toolkit == Toolkit::kGtk4 || toolkit == Toolkit::kOldGtk4)
    return {kInWindow, (question.point.x - origin.x) / scale, (question.point.y - origin.y) / scale, scale,
            origin};
  return {kOnScreen, question.point.x / scale, question.point.y / scale, scale, origin};
}

Point Measure::OnScreen(Point counted) const {
  const Point base = coordinates == kInWindow ? windowOrigin : Point{};
  return {static_cast<std::int32_t>(base.x + std::int64_t{counted.x} * scale),
          static_cast<std::int32_t>(base.y + std::int64_t{counted.y} * scale)};
}

bool Facts::HasText() const {
  return !IsBlank(found.name) || (found.value && !IsBlank(*found.value)) ||
         (found.line && !IsBlank(found.line->line));
}

bool Facts::Holds(const Measure& measure) const {
  return measure.x >= counted.x && measure.y >= counted.y && measure.x - std::int64_t{counted.x} < width &&
         measure.y - std::int64_t{counted.y} < height;
}

bool Facts::LiesIn(const XDisplay::Place& place, const Measure& measure) const {
  const std::int64_t tolerance = std::int64_t{kListBorder} * measure.scale;
  const std::int64_t left = std::int64_t{found.origin.x} - place.origin.x;
  const std::int64_t top = std::int64_t{found.origin.y} - place.origin.y;
  return width > 0 && height > 0 && left >= -tolerance && top >= -tolerance &&
         left + std::int64_t{width} * measure.scale <= place.width + tolerance &&
         top + std::int64_t{height} * measure.scale <= place.height + tolerance;
}

BusMessage FactsReader::Property(const BusObject& object, const char* interface, const char* name) {
  BusMessage call = bus_.Call(object, kProperties, "Get");
  if (call) sd_bus_message_append(call.get(), "ss", interface, name);
  return call;
}

// Properties are asked for one by one: the question for all of them at once brings some programs down.
std::optional<Facts> FactsReader::Read(const BusObject& object, const Measure& measure, Toolkit toolkit,
                                       Moment limit) {
  std::vector<BusMessage> calls;
  calls.push_back(bus_.Call(object, kAccessible, "GetRole"));
  calls.push_back(bus_.Call(object, kAccessible, "GetState"));
  calls.push_back(bus_.Call(object, kAccessible, "GetInterfaces"));
  calls.push_back(Property(object, kAccessible, "Name"));
  calls.push_back(Property(object, kAccessible, "Description"));
  calls.push_back(Property(object, kAccessible, "Parent"));
  calls.push_back(bus_.Call(object, kComponent, "GetExtents"));
  if (calls.back()) sd_bus_message_append(calls.back().get(), "u", measure.coordinates);
  const std::vector<BusMessage> answers = bus_.Ask(std::move(calls), limit);

  Facts facts;
  facts.found.object = object;
  BusReader role(answers[0]);
  facts.found.role = role.ReadUnsigned();
  if (!role.IsGood()) return std::nullopt;
  const auto states = BusReader(answers[1]).ReadUnsignedArray();
  const auto interfaces = BusReader(answers[2]).ReadStrings();
  if (BusReader name(answers[3]); name.EnterVariant("s")) facts.found.name = name.ReadText();
  if (BusReader text(answers[4]); text.EnterVariant("s"))
    facts.found.description = text.ReadText(kLongestDescription);
  if (BusReader parent(answers[5]); parent.EnterVariant("(so)")) facts.parent = parent.ReadObject();
  const BusReader::Four extents = BusReader(answers[6]).ReadFour();
  facts.counted = {extents.first, extents.second};
  facts.width = extents.third;
  facts.height = extents.fourth;
  facts.found.origin = measure.OnScreen(facts.counted);

  const std::uint32_t kind = facts.found.role;
  if (kind == kRolePassword) return facts;  // its text is nobody's business
  const bool hasText = Has(interfaces, kTextInterface);
  if (MayBePassword(facts, hasText) && RoleOf(facts.parent, limit) == kRolePassword)
    return Read(facts.parent, measure, toolkit, limit);
  facts.found.readByLine = hasText && (IsReadByLine(kind, states, toolkit) ||
                                       (IsBlank(facts.found.name) && IsReadByLineWithoutName(kind)));
  if (facts.found.readByLine) {
    facts.found.line = ReadLine(object, measure, toolkit, limit);
    if (!facts.found.line && toolkit == Toolkit::kQt) facts.found.value = ReadBeginning(object, limit);
  } else if (hasText && IsField(kind)) {
    facts.found.value = ReadBeginning(object, limit);
  } else if (hasText && (kind == kRoleTableCell || (kind == kRoleIcon && IsBlank(facts.found.name)))) {
    AddText(facts.found, limit);
  } else if (Has(interfaces, kValueInterface) &&
             std::find(std::begin(kWithNumbers), std::end(kWithNumbers), kind) != std::end(kWithNumbers)) {
    facts.found.value = ReadValue(object, kind, limit);
  }
  return facts;
}

BusObject FactsReader::SelectedChild(const BusObject& object, Moment limit) {
  BusMessage call = bus_.Call(object, kSelection, "GetSelectedChild");
  if (call) sd_bus_message_append(call.get(), "i", 0);
  return BusReader(bus_.Ask(std::move(call), limit)).ReadObject();
}

bool FactsReader::MissesTab(const Facts& facts, const Measure& measure, Moment limit) {
  if (measure.coordinates == kInWindow || facts.width <= 0 || facts.Holds(measure)) return false;
  return facts.found.role == kRolePageTab ||
         (!facts.parent.IsNull() && RoleOf(facts.parent, limit) == kRolePageTab);
}

Text FactsReader::NameOf(const BusObject& object, Moment limit) {
  BusReader name(bus_.Ask(Property(object, kAccessible, "Name"), limit));
  return name.EnterVariant("s") ? name.ReadText() : Text();
}

// Where GTK 3 draws an entry of a list in several parts, each is a cell, and so is what holds them; a picture
// and the holder have no name.
Text FactsReader::NameOfEntry(const Facts& cell, Moment limit) {
  const bool isPart = !cell.parent.IsNull() && RoleOf(cell.parent, limit) == kRoleTableCell;
  const BusObject& entry = isPart ? cell.parent : cell.found.object;
  std::vector<BusObject> parts =
      BusReader(bus_.Ask(bus_.Call(entry, kAccessible, "GetChildren"), limit)).ReadObjects();
  if (parts.size() > kMostParts) parts.resize(kMostParts);
  std::vector<BusMessage> calls;
  calls.reserve(parts.size());
  for (const BusObject& part : parts) calls.push_back(Property(part, kAccessible, "Name"));
  for (const BusMessage& answer : bus_.Ask(std::move(calls), limit)) {
    BusReader reader(answer);
    Text name = reader.EnterVariant("s") ? reader.ReadText() : Text();
    if (!IsBlank(name)) return name;
  }
  return {};
}

// Cells of a spreadsheet have their place for a name; what stands in them is the more important. Icons of GTK
// 3 have no name but their text.
void FactsReader::AddText(FoundObject& object, Moment limit) {
  const auto text = ReadBeginning(object.object, limit);
  if (!text || IsBlank(*text) || *text == object.name) return;
  object.name = IsBlank(object.name) ? *text : *text + u", " + object.name;
}

std::uint32_t FactsReader::RoleOf(const BusObject& object, Moment limit) {
  return BusReader(bus_.Ask(bus_.Call(object, kAccessible, "GetRole"), limit)).ReadUnsigned();
}

std::int32_t FactsReader::CharacterCount(const BusObject& object, Moment limit) {
  BusReader count(bus_.Ask(Property(object, kTextInterface, "CharacterCount"), limit));
  return count.EnterVariant("i") ? count.ReadNumber() : 0;
}

// Below the last line it is the last character, as text fields elsewhere have it. -1 where there is none. The
// old GTK 4 never answers this question.
std::int32_t FactsReader::OffsetAt(const BusObject& object, const Measure& measure, Moment limit) {
  BusMessage call = bus_.Call(object, kTextInterface, "GetOffsetAtPoint");
  if (call) sd_bus_message_append(call.get(), "iiu", measure.x, measure.y, measure.coordinates);
  BusReader answer(bus_.Ask(std::move(call), limit));
  const std::int32_t offset = answer.ReadNumber();
  return answer.IsGood() ? offset : -1;
}

std::optional<LineHit> FactsReader::ReadLine(const BusObject& object, const Measure& measure, Toolkit toolkit,
                                             Moment limit) {
  if (toolkit == Toolkit::kOldGtk4) return std::nullopt;
  std::int32_t offset = OffsetAt(object, measure, limit);
  if (offset < 0) offset = toolkit == Toolkit::kQt ? -1 : CharacterCount(object, limit) - 1;
  if (offset < 0) return std::nullopt;
  std::vector<BusMessage> calls;
  calls.push_back(bus_.Call(object, kTextInterface, "GetStringAtOffset"));
  if (calls.back()) sd_bus_message_append(calls.back().get(), "iu", offset, kLineGranularity);
  calls.push_back(bus_.Call(object, kTextInterface, "GetTextAtOffset"));
  if (calls.back()) sd_bus_message_append(calls.back().get(), "iu", offset, kLineBoundary);
  for (const BusMessage& answer : bus_.Ask(std::move(calls), limit)) {
    BusReader reader(answer);
    LineHit hit;
    hit.line = reader.ReadText();
    const std::int32_t start = reader.ReadNumber();
    const std::int32_t end = reader.ReadNumber();
    if (!reader.IsGood() || start < 0 || end < start || (hit.line.empty() && end == start)) continue;
    hit.position = UnitsOf(hit.line, std::clamp(offset - start, 0, std::max(end - start, 0)));
    hit.number = start % kLineNumbers;
    return hit;
  }
  return std::nullopt;
}

std::optional<Text> FactsReader::ReadBeginning(const BusObject& object, Moment limit) {
  const std::int32_t count = CharacterCount(object, limit);
  if (count <= 0) return std::nullopt;
  BusMessage call = bus_.Call(object, kTextInterface, "GetText");
  if (call) sd_bus_message_append(call.get(), "ii", 0, std::min(count, kMostOfText));
  BusReader answer(bus_.Ask(std::move(call), limit));
  Text text = answer.ReadText();
  if (!answer.IsGood()) return std::nullopt;
  return text;
}

// With two places behind the point at most. A bar that is full at 1, as those of GTK 3 are, is told in
// percent.
std::optional<Text> FactsReader::ReadValue(const BusObject& object, std::uint32_t role, Moment limit) {
  std::vector<BusMessage> calls;
  calls.push_back(Property(object, kValueInterface, "CurrentValue"));
  calls.push_back(Property(object, kValueInterface, "MaximumValue"));
  const auto answers = bus_.Ask(std::move(calls), limit);
  const auto value = RealOf(answers.front());
  if (!value) return std::nullopt;
  const bool isShare = IsBar(role) && RealOf(answers.back()) == 1.0;
  return NumberText(Rounded(*value * 100) / (isShare ? 1 : 100));
}

}  // namespace pointalk::linux
