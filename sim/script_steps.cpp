// The key `steps` of a script.
#include <array>
#include <limits>
#include <utility>

#include "app/panel_table.h"
#include "platform/dialogs.h"
#include "platform/input.h"
#include "sim/code_page.h"
#include "sim/script_reader.h"
#include "sim/utf8.h"

namespace pointalk::sim {
namespace {

using Action = decltype(Step::action);

struct KeyName {
  std::string_view name;
  int key;
};
constexpr KeyName kKeys[] = {{"shift", kKeyShift}, {"control", kKeyControl}, {"alt", kKeyAlt}};

// The mouse's buttons as keys, with the messages that the hook reports for them.
struct ButtonName {
  std::string_view name;
  int key;
  std::int32_t downMessage;
  std::int32_t upMessage;
};
constexpr ButtonName kButtons[] = {
    {"left", kKeyLeftButton, 513, 514}, {"right", 2, 516, 517}, {"middle", 4, 519, 520}};

struct AnswerName {
  std::string_view name;
  int answer;
};
constexpr AnswerName kAnswers[] = {
    {"yes", kAnswerYes}, {"no", kAnswerNo}, {"ok", kAnswerOk}, {"cancel", kAnswerCancel}};

struct ShownName {
  std::string_view name;
  Shown shown;
};
constexpr ShownName kShown[] = {{"files", Shown::kFiles},
                                {"registry", Shown::kRegistry},
                                {"clipboard", Shown::kClipboard},
                                {"memory", Shown::kMemory}};

// The entry whose name the node holds.
template <typename Entry, std::size_t count>
const Entry& Named(const ScriptNode& node, const Entry (&entries)[count]) {
  const std::string_view word = node.Word();
  for (const Entry& entry : entries) {
    if (entry.name == word) return entry;
  }
  std::string names;
  for (const Entry& entry : entries) names.append(names.empty() ? "" : ", ").append(entry.name);
  node.Fail("must be one of " + names);
}

// The value of a step, and its second key for those that have one.
struct StepNodes {
  const ScriptNode& value;
  const ScriptNode* down;
  const std::set<WindowHandle>& windows;
};

bool ReadDown(const StepNodes& nodes) {
  if (nodes.down == nullptr) nodes.value.Fail("needs the key down beside it");
  return nodes.down->Boolean();
}

Action ReadStart(const StepNodes& nodes) {
  nodes.value.BeTrue();
  return StartStep{};
}

Action ReadTick(const StepNodes& nodes) {
  return TickStep{nodes.value.Whole(0, std::numeric_limits<std::int32_t>::max())};
}

Action ReadWait(const StepNodes& nodes) { return WaitStep{DayMicroseconds(nodes.value.NotNegative() * 1e6)}; }

Action ReadPointer(const StepNodes& nodes) { return PointerStep{ReadPoint(nodes.value)}; }

Action ReadKey(const StepNodes& nodes) { return KeyStep{Named(nodes.value, kKeys).key, ReadDown(nodes)}; }

Action ReadTapKey(const StepNodes& nodes) { return TapKeyStep{Named(nodes.value, kKeys).key}; }

Action ReadButton(const StepNodes& nodes) {
  const ButtonName& button = Named(nodes.value, kButtons);
  const bool down = ReadDown(nodes);
  return ButtonStep{button.key, down, down ? button.downMessage : button.upMessage};
}

Action ReadHook(const StepNodes& nodes) { return HookStep{nodes.value.Whole<std::int32_t>()}; }

Action ReadChoose(const StepNodes& nodes) {
  Text control = nodes.value.Unicode();
  if (FindHandler(control) == nullptr) nodes.value.Fail("names no menu entry or button that can be chosen");
  return ChooseStep{std::move(control)};
}

Action ReadClick(const StepNodes& nodes) {
  if (nodes.value.Word() != "form") nodes.value.Fail("must be form");
  return ClickStep{};
}

Answer ReadAnswer(const ScriptNode& node) {
  const std::string_view word = node.Word();
  if (word.starts_with('=')) return node.Ansi().substr(1);
  for (const AnswerName& entry : kAnswers) {
    if (entry.name == word) return entry.answer;
  }
  node.Fail("must be yes, no, ok, cancel, or = and a text");
}

Action ReadAnswers(const StepNodes& nodes) { return AnswersStep{nodes.value.Items(ReadAnswer)}; }

Action ReadChange(const StepNodes& nodes) {
  ChangeStep step{ReadWindowFields(nodes.value)};
  if (!nodes.windows.contains(step.fields.id)) nodes.value.Fail("there is no window with this id");
  return step;
}

Action ReadObjectsStep(const StepNodes& nodes) { return ObjectsStep{ReadObjects(nodes.value)}; }

Action ReadFilesStep(const StepNodes& nodes) {
  FilesStep step;
  const std::size_t count = nodes.value.MemberCount();
  for (std::size_t i = 0; i < count; ++i) {
    const ScriptNode file = nodes.value.Member(i);
    step.files.emplace_back(file.Key(), file.IsNull() ? std::nullopt : std::optional(file.Unicode()));
  }
  return step;
}

Action ReadClose(const StepNodes& nodes) {
  nodes.value.BeTrue();
  return CloseStep{};
}

Action ReadKill(const StepNodes& nodes) {
  nodes.value.BeTrue();
  return KillStep{};
}

Action ReadShow(const StepNodes& nodes) {
  return ShowStep{nodes.value.Items([](const ScriptNode& part) { return Named(part, kShown).shown; })};
}

struct StepReader {
  std::string_view key;
  Action (*read)(const StepNodes& nodes);
  bool takesDown = false;
};

constexpr StepReader kSteps[] = {
    {"start", ReadStart},         {"tick", ReadTick},       {"wait", ReadWait},
    {"pointer", ReadPointer},     {"key", ReadKey, true},   {"tapKey", ReadTapKey},
    {"button", ReadButton, true}, {"hook", ReadHook},       {"choose", ReadChoose},
    {"click", ReadClick},         {"answers", ReadAnswers}, {"change", ReadChange},
    {"objects", ReadObjectsStep}, {"files", ReadFilesStep}, {"close", ReadClose},
    {"kill", ReadKill},           {"show", ReadShow},
};

Step ReadStep(const ScriptNode& node, const std::set<WindowHandle>& windows) {
  const std::size_t members = node.MemberCount();
  std::optional<ScriptNode> value;
  std::optional<ScriptNode> down;
  const StepReader* reader = nullptr;
  for (std::size_t i = 0; i < members; ++i) {
    const ScriptNode member = node.Member(i);
    if (member.KeyWord() == "down") {
      down = member;
      continue;
    }
    const auto* const found =
        std::find_if(std::begin(kSteps), std::end(kSteps),
                     [&](const StepReader& entry) { return entry.key == member.KeyWord(); });
    if (found == std::end(kSteps)) member.Fail("unknown step");
    if (reader != nullptr) node.Fail("must be one step");
    reader = found;
    value = member;
  }
  if (reader == nullptr) node.Fail("must be one step");
  if (down && !reader->takesDown) down->Fail("unknown key");
  Step step{reader->key, {}, reader->read({*value, down ? &*down : nullptr, windows})};
  AppendCompact(node.Value(), step.echo);
  return step;
}

}  // namespace

std::vector<Step> ReadSteps(const ScriptNode& node, const std::set<WindowHandle>& windows) {
  return node.Items([&](const ScriptNode& stepNode) { return ReadStep(stepNode, windows); });
}

}  // namespace pointalk::sim
