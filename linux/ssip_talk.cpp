#include "linux/ssip_talk.h"

#include <algorithm>
#include <utility>

namespace pointalk::linux {
namespace {

// Answers and events of SSIP.
constexpr int kMessageQueued = 225;
constexpr int kReceivingData = 230;
constexpr int kEnded = 702;
constexpr int kCancelled = 703;

constexpr char kLineEnd[] = "\r\n";

}  // namespace

void SsipTalk::Begin() {
  due_.clear();
  textsDue_ = 0;
  sounding_.clear();
  eventText_.clear();
  had_ = {};
}

std::string SsipTalk::Command(std::string_view line) {
  due_.emplace_back();
  return std::string(line) + kLineEnd;
}

void SsipTalk::Cut() {
  sounding_.clear();
  ++cut_;
}

std::string SsipTalk::Set(What what, const std::string& words) {
  due_.push_back({what, wanted_, 0, {}});
  return "SET SELF " + words + kLineEnd;
}

std::string SsipTalk::SetUp() {
  std::string bytes = Set(What::kRate, "RATE " + std::to_string(wanted_.rate));
  if (wanted_.volume) bytes += Set(What::kVolume, "VOLUME " + std::to_string(*wanted_.volume));
  if (!wanted_.type.empty()) bytes += Set(What::kType, "VOICE_TYPE " + wanted_.type);
  if (!wanted_.name.empty()) bytes += Set(What::kName, "SYNTHESIS_VOICE " + wanted_.name);
  return bytes;
}

std::string SsipTalk::Speak(std::string_view line, Moment now) {
  due_.push_back({What::kText, {}, cut_, now});
  ++textsDue_;
  return SpeakCommand(line);
}

void SsipTalk::Take(const SsipLine& line) {
  if (line.code >= kFirstEvent) return TakeEvent(line);
  if (line.code == kReceivingData) return;  // the text that follows has an answer of its own
  if (line.code == kMessageQueued) DropUntilText();
  if (due_.empty()) return;
  if (line.isLast) return TakeAnswer(line);
  const Due& first = due_.front();
  if (line.code == kMessageQueued && first.what == What::kText && first.cut == cut_)
    sounding_.insert(line.text);
}

// A server that leaves other commands unanswered is followed all the same.
void SsipTalk::DropUntilText() {
  const auto text =
      std::find_if(due_.begin(), due_.end(), [](const Due& due) { return due.what == What::kText; });
  if (text != due_.end()) due_.erase(due_.begin(), text);
}

// The number of the text, the number of the client, and then the event's name.
void SsipTalk::TakeEvent(const SsipLine& line) {
  if (!line.isLast && eventText_.empty()) eventText_ = line.text;
  if (!line.isLast) return;
  if (line.code == kEnded || line.code == kCancelled) sounding_.erase(eventText_);
  eventText_.clear();
}

void SsipTalk::TakeAnswer(const SsipLine& line) {
  const Due first = std::move(due_.front());
  due_.pop_front();
  const bool isTaken = line.code < kFirstError;
  const auto settle = [&](auto field) {
    if (isTaken) {
      had_.*field = first.with.*field;
    } else if (wanted_.*field == first.with.*field) {  // another one may be wanted by now
      wanted_.*field = had_.*field;
    }
  };
  switch (first.what) {
    case What::kText: --textsDue_; break;
    case What::kRate: return settle(&VoiceSettings::rate);
    case What::kVolume: return settle(&VoiceSettings::volume);
    case What::kType: return settle(&VoiceSettings::type);
    case What::kName: return settle(&VoiceSettings::name);
    case What::kOther: break;
  }
}

std::optional<SsipTalk::Moment> SsipTalk::OldestTextDue() const {
  const auto text =
      std::find_if(due_.begin(), due_.end(), [](const Due& due) { return due.what == What::kText; });
  if (text == due_.end()) return std::nullopt;
  return text->sent;
}

}  // namespace pointalk::linux
