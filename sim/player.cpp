#include "sim/player.h"

#include <utility>

#include "app/mouse.h"
#include "app/panel_table.h"
#include "sim/script_error.h"

namespace pointalk::sim {

Player::Player(Script script, Front front)
    : steps_(std::move(script.steps)), front_(std::move(front)), machine_(std::move(script)) {}

Player::~Player() { machine_.programRuns = false; }

const std::string& Player::Play() {
  for (std::size_t i = 0; i < steps_.size(); ++i) {
    try {
      CarryOut(steps_[i]);
    } catch (ScriptError& error) {
      error.message.insert(0, "steps[" + std::to_string(i) + "]." + std::string(steps_[i].name) + ": ");
      throw;
    }
  }
  return machine_.transcript.Lines();
}

void Player::CarryOut(const Step& step) {
  machine_.transcript.Add(">", std::string_view(step.echo));
  machine_.unansweredQuestions = 0;
  std::visit(
      [this](const auto& action) {
        if (mouse_ != nullptr || !action.kNeedsProgram) Do(action);
      },
      step.action);
}

template <typename Action> void Player::RunProgram(Action action) {
  try {
    action();
  } catch (const ProgramGone& gone) {
    EndRun(gone.killed);
  }
}

void Player::EndRun(bool killed) {
  machine_.programRuns = false;
  mouse_.reset();
  machine_.transcript.Add(killed ? "killed" : "end");
}

void Player::Do(const StartStep&) {
  if (mouse_ != nullptr) throw ScriptError{"starts the program while it runs"};
  platform_ = std::make_unique<SimPlatform>(machine_);
  RunProgram([this] {
    mouse_ = std::make_unique<Mouse>(front_(platform_->Seam()));
    mouse_->Form_Load();
  });
}

void Player::Do(const TickStep& step) {
  constexpr std::int64_t kTickMicroseconds = 30'000;
  for (std::int64_t i = 0; i < step.times && mouse_ != nullptr; ++i) {
    machine_.Pass(kTickMicroseconds);
    if (platform_->panel.TimerEnabled()) RunProgram([this] { mouse_->Timer1_Timer(); });
  }
}

void Player::Do(const WaitStep& step) { machine_.Pass(step.microseconds); }

void Player::Do(const PointerStep& step) { machine_.pointer = step.place; }

void Player::Do(const KeyStep& step) { machine_.keys[static_cast<std::size_t>(step.key)].down = step.down; }

void Player::Do(const TapKeyStep& step) { machine_.keys[static_cast<std::size_t>(step.key)].tapped = true; }

void Player::Do(const ButtonStep& step) {
  machine_.keys[static_cast<std::size_t>(step.key)].down = step.down;
  ReportMessage(step.message);
}

void Player::Do(const HookStep& step) { ReportMessage(step.message); }

void Player::ReportMessage(std::int32_t message) {
  if (platform_->input.ReportsMouse()) RunProgram([&] { mouse_->WinHook1_Message(message); });
}

void Player::Do(const ChooseStep& step) {
  RunProgram([&] { (*mouse_.*FindHandler(step.control))(); });
}

void Player::Do(const ClickStep&) {
  RunProgram([this] { mouse_->Form_Click(); });
}

void Player::Do(const AnswersStep& step) {
  machine_.answers.insert(machine_.answers.end(), step.answers.begin(), step.answers.end());
}

void Player::Do(const ChangeStep& step) { machine_.desktop.Change(step.fields); }

void Player::Do(const ObjectsStep& step) { machine_.desktop.objects = step.objects; }

void Player::Do(const FilesStep& step) {
  for (const auto& [path, text] : step.files) {
    if (text) {
      machine_.setup.files[path] = *text;
    } else {
      machine_.setup.files.erase(path);
    }
  }
}

void Player::Do(const CloseStep&) {
  RunProgram([this] {
    mouse_->Form_Terminate();
    machine_.LeaveProgram(false);
  });
}

void Player::Do(const KillStep&) { EndRun(true); }

void Player::Do(const ShowStep& step) {
  for (const Shown part : step.parts) Show(part);
}

void Player::Show(Shown part) {
  Transcript& transcript = machine_.transcript;
  switch (part) {
    case Shown::kFiles:
      for (const auto& [path, text] : machine_.setup.files) transcript.Add("file", path, text);
      break;
    case Shown::kRegistry: ShowRegistry(machine_.setup.registry, transcript); break;
    case Shown::kClipboard: transcript.Add("clipboard", machine_.clipboard); break;
    case Shown::kMemory:
      transcript.Add("memory", platform_ == nullptr ? 0 : platform_->memory.Memory().BlockCount());
      break;
  }
}

}  // namespace pointalk::sim
