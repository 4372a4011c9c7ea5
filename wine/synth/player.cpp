#include "wine/synth/player.h"

#include <initializer_list>
#include <string_view>
#include <thread>
#include <utility>

#include "play_script.h"
#include "wine/heard/linux_helper.h"

namespace pointalk::wine {

namespace {

// Lines that nobody takes are dropped beyond this; FluidSynth needs a second or two to load its sounds.
constexpr std::size_t kLongestQueue = 100'000;

std::string Command(std::string_view name, std::initializer_list<std::uint32_t> arguments) {
  std::string line(name);
  for (const std::uint32_t argument : arguments) {
    line += ' ';
    line += std::to_string(argument);
  }
  return line;
}

}  // namespace

std::optional<std::string> ShellCommand(std::uint32_t message) {
  const std::uint32_t channel = message & 0x0F;
  const std::uint32_t first = (message >> 8) & 0x7F;
  const std::uint32_t second = (message >> 16) & 0x7F;
  switch (message & 0xF0) {
    case 0x80: return Command("noteoff", {channel, first});
    case 0x90:
      return second == 0 ? Command("noteoff", {channel, first}) : Command("noteon", {channel, first, second});
    case 0xB0: return Command("cc", {channel, first, second});
    case 0xC0: return Command("prog", {channel, first});
    case 0xE0: return Command("pitch_bend", {channel, first | (second << 7)});
    default: return std::nullopt;
  }
}

Player& Player::Only() {
  static Player& player = *new Player;
  return player;
}

void Player::Begin() {
  const std::lock_guard lock(mutex_);
  if (begun_) return;
  begun_ = true;
  std::thread(&Player::Feed, this).detach();
}

void Player::Play(std::uint32_t message) {
  if (const auto command = ShellCommand(message)) Queue(*command);
}

void Player::Silence() {
  constexpr std::uint32_t kAllSoundOff = 120;
  for (std::uint32_t channel = 0; channel < 16; ++channel) Queue(Command("cc", {channel, kAllSoundOff, 0}));
}

void Player::Queue(const std::string& line) {
  const std::lock_guard lock(mutex_);
  if (lines_.size() > kLongestQueue) return;
  if (!lines_.empty()) lines_ += '\n';
  lines_ += line;
  changed_.notify_one();
}

void Player::Feed() {
  LinuxHelper synthesizer(L"pointalk-synth", kPlayScript);
  if (!synthesizer.Running()) return;
  for (std::unique_lock lock(mutex_);;) {
    changed_.wait(lock, [&] { return !lines_.empty(); });
    const std::string lines = std::exchange(lines_, {});
    lock.unlock();
    synthesizer.Tell(lines);
    lock.lock();
  }
}

}  // namespace pointalk::wine
