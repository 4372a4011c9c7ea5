#include "wine/voice/utterances.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <utility>

#include "speak_script.h"
#include "wine/heard/heard.h"
#include "wine/voice/wave.h"

namespace pointalk::wine {

namespace {

constexpr std::int64_t kLongestMaking = 15'000'000;
constexpr std::int64_t kLongestTail = 2'000'000;  // that a player may take beyond the length of the wave
constexpr auto kLook = std::chrono::milliseconds(4);

std::int64_t NewNumber() {
  static std::atomic<std::int64_t> last = 0;
  return ++last;
}

bool Exists(const std::wstring& path) { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

std::string Narrow(const std::wstring& digits) { return {digits.begin(), digits.end()}; }

// The name under which the wave was kept; empty when none is wanted or it could not be.
std::string KeepWave(const std::wstring& wave, std::int64_t utterance, int part) {
  const auto folder = PathFromEnvironment(L"POINTALK_WAVES");
  if (!folder) return {};
  const std::wstring name = L"utterance-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                            std::to_wstring(utterance) + L"-" + std::to_wstring(part) + L".wav";
  return CopyFileW(wave.c_str(), (*folder + L"\\" + name).c_str(), FALSE) ? Narrow(name) : std::string();
}

void WriteEnd(const char* what, std::int64_t utterance, std::int64_t sounded) {
  HeardLine(what).Number("utterance", utterance).Number("sounded", sounded).Write();
}

}  // namespace

Utterances::~Utterances() {
  CutAll();
  {
    const std::lock_guard lock(mutex_);
    stop_ = true;
  }
  changed_.notify_all();
  if (worker_.joinable()) worker_.join();
}

std::int64_t Utterances::Say(std::u16string text, const Sound& sound) {
  const std::lock_guard lock(mutex_);
  lastNumber_ = NewNumber();
  queue_.push_back({lastNumber_, std::move(text), sound});
  if (!worker_.joinable()) worker_ = std::thread(&Utterances::Work, this);
  changed_.notify_all();
  return lastNumber_;
}

void Utterances::CutAll() {
  const std::lock_guard lock(mutex_);
  cutUpTo_ = lastNumber_;
  changed_.notify_all();
}

void Utterances::WaitUntilOver(std::int64_t number) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] { return overUpTo_ >= number; });
}

bool Utterances::AllOverWithin(std::chrono::milliseconds limit) {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, limit, [&] { return overUpTo_ >= lastNumber_; });
}

std::optional<std::size_t> Utterances::Position(std::int64_t number) {
  const std::lock_guard lock(mutex_);
  if (!sounding_ || sounding_->number != number) return std::nullopt;
  const std::int64_t elapsed = std::min(Now() - sounding_->begin, sounding_->length);
  const auto units = static_cast<std::int64_t>(sounding_->part.end - sounding_->part.begin);
  const std::int64_t come = sounding_->length > 0 ? units * elapsed / sounding_->length : units;
  return sounding_->part.begin + static_cast<std::size_t>(come);
}

void Utterances::Work() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [&] { return stop_ || !queue_.empty(); });
    if (queue_.empty()) return;
    const Utterance utterance = queue_.front();
    lock.unlock();
    if (!IsBlank(utterance.text)) SayAll(utterance);
    lock.lock();
    queue_.pop_front();
    overUpTo_ = utterance.number;
    changed_.notify_all();
  }
}

void Utterances::SayAll(const Utterance& utterance) {
  sounded_ = 0;
  int partNumber = 0;
  for (const TextPart& part : PartsOf(utterance.text)) {
    if (IsCut(utterance.number)) break;
    if (SayPart(utterance, part, ++partNumber)) continue;
    HeardLine("silent").Number("utterance", utterance.number).Number("part", partNumber).Write();
    return;
  }
  WriteEnd(IsCut(utterance.number) ? "cut" : "spoken", utterance.number, sounded_);
}

// False when there is no speech to be had; being cut off is no failure.
bool Utterances::SayPart(const Utterance& utterance, const TextPart& part, int partNumber) {
  if (!EnsureHelper()) return false;
  const std::wstring name = std::to_wstring(++partsMade_);
  if (!MakeWave(utterance, part, name)) {
    helper_.reset();  // with everything it started; the next utterance tries anew
    return false;
  }
  if (!IsCut(utterance.number)) LetSound(utterance, part, name, partNumber);
  helper_->Tell("end " + Narrow(name));
  return true;
}

// True also when the utterance was cut off meanwhile.
bool Utterances::MakeWave(const Utterance& utterance, const TextPart& part, const std::wstring& name) {
  const std::u16string_view text =
      std::u16string_view(utterance.text).substr(part.begin, part.end - part.begin);
  if (!WriteWholeFile(helper_->PathOf(name + L".txt"), SpokenText(text))) return false;
  const Sound& sound = utterance.sound;
  helper_->Tell("speak " + Narrow(name) + " " + sound.voice + " " + std::to_string(sound.pitch) + " " +
                std::to_string(sound.wordsPerMinute) + " " + std::to_string(sound.amplitude));
  const std::int64_t begin = Now();
  while (PauseUnlessCut(utterance.number)) {
    if (Exists(helper_->PathOf(name + L".wav"))) return true;
    if (Exists(helper_->PathOf(name + L".failed")) || Now() - begin > kLongestMaking) return false;
  }
  return true;
}

// A part sounds for the length of its wave, with or without a player; a player that is late may end it.
void Utterances::LetSound(const Utterance& utterance, const TextPart& part, const std::wstring& name,
                          int partNumber) {
  const std::wstring wave = helper_->PathOf(name + L".wav");
  const std::int64_t length = WaveFileLength(wave);
  const std::string kept = KeepWave(wave, utterance.number, partNumber);
  HeardLine line("sounding");
  line.Number("utterance", utterance.number).Number("part", partNumber).Number("length", length);
  if (!kept.empty()) line.Ascii("wave", kept);
  line.Write();

  const std::int64_t begin = Now();
  {
    const std::lock_guard lock(mutex_);
    sounding_ = Sounding{utterance.number, part, begin, length};
  }
  while (PauseUnlessCut(utterance.number)) {
    const std::int64_t elapsed = Now() - begin;
    if (elapsed >= length + kLongestTail) break;
    if (elapsed >= length && Exists(helper_->PathOf(name + L".done"))) break;
  }
  sounded_ += std::min(Now() - begin, length);
  const std::lock_guard lock(mutex_);
  sounding_.reset();
}

bool Utterances::PauseUnlessCut(std::int64_t number) {
  std::unique_lock lock(mutex_);
  return !changed_.wait_for(lock, kLook, [&] { return cutUpTo_ >= number; });
}

bool Utterances::IsCut(std::int64_t number) {
  const std::lock_guard lock(mutex_);
  return cutUpTo_ >= number;
}

bool Utterances::EnsureHelper() {
  if (!helper_) helper_ = std::make_unique<LinuxHelper>(L"pointalk-voice", kSpeakScript);
  if (!helper_->Running()) helper_.reset();
  return helper_ != nullptr;
}

}  // namespace pointalk::wine
