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
constexpr char kTellEnds[] = "SET SELF NOTIFICATION END on";

constexpr std::chrono::seconds kHungLimit{5};
constexpr std::chrono::seconds kSignPause{2};

// After which a server that has told of no text of this connection is taken for one that never does. A text
// begins within 50 ms where no other is being spoken. Another program's text can take longer than this limit:
// then one text of ours is not waited for, and its end shows that this server does tell.
constexpr std::chrono::seconds kFirstEventLimit{2};

}  // namespace

void SsipTalk::Begin() {
  due_.clear();
  textsDue_ = 0;
  answersTextsOnly_ = false;
  sounding_.clear();
  events_ = Events::kUnknown;
  eventText_.clear();
  had_ = {};
}

std::string SsipTalk::Send(What what, std::string_view line, Moment now) {
  due_.push_back({what, now, wanted_, cut_});
  lastSent_ = now;
  return std::string(line) + kLineEnd;
}

std::string SsipTalk::Command(std::string_view line, Moment now) { return Send(What::kOther, line, now); }

std::string SsipTalk::AskForEvents(Moment now) {
  std::string bytes = Send(What::kOther, "SET SELF NOTIFICATION BEGIN on", now);
  bytes += Send(What::kEndEvents, kTellEnds, now);
  bytes += Send(What::kOther, "SET SELF NOTIFICATION CANCEL on", now);
  return bytes;
}

// What was taken once is no risk to send again.
std::string SsipTalk::AskForSign(Moment now) {
  if (!due_.empty() || now - lastSent_ < kSignPause) return {};
  return Send(What::kEndEvents, kTellEnds, now);
}

void SsipTalk::Cut() {
  sounding_.clear();
  ++cut_;
}

std::string SsipTalk::SetUp(Moment now) {
  std::string bytes = Send(What::kRate, "SET SELF RATE " + std::to_string(wanted_.rate), now);
  if (wanted_.volume) bytes += Send(What::kVolume, "SET SELF VOLUME " + std::to_string(*wanted_.volume), now);
  if (!wanted_.type.empty()) bytes += Send(What::kType, "SET SELF VOICE_TYPE " + wanted_.type, now);
  if (!wanted_.name.empty()) bytes += Send(What::kName, "SET SELF SYNTHESIS_VOICE " + wanted_.name, now);
  return bytes;
}

std::string SsipTalk::Speak(std::string_view line, Moment now) {
  due_.push_back({What::kText, now, {}, cut_});
  lastSent_ = now;
  ++textsDue_;
  return SpeakCommand(line);
}

void SsipTalk::Take(const SsipLine& line, Moment now) {
  if (line.code >= kFirstEvent) return TakeEvent(line);
  if (line.code == kReceivingData) return;  // the text that follows has an answer of its own
  if (line.code == kMessageQueued) DropUntilText();
  if (due_.empty()) return;
  if (line.isLast) return TakeAnswer(line);
  if (line.code == kMessageQueued) TakeTextNumber(line.text, now);
}

void SsipTalk::TakeTextNumber(const std::string& number, Moment now) {
  const Due& first = due_.front();
  if (first.what != What::kText || first.cut != cut_) return;
  if (sounding_.empty()) soundingSince_ = now;
  sounding_.insert(number);
}

// A server that leaves other commands unanswered is followed all the same.
void SsipTalk::DropUntilText() {
  const auto text =
      std::find_if(due_.begin(), due_.end(), [](const Due& due) { return due.what == What::kText; });
  if (text == due_.end() || text == due_.begin()) return;
  due_.erase(due_.begin(), text);
  answersTextsOnly_ = true;
}

// The number of the text, the number of the client, and then the event's name.
void SsipTalk::TakeEvent(const SsipLine& line) {
  if (!line.isLast && eventText_.empty()) eventText_ = line.text;
  if (!line.isLast) return;
  const bool isOver = line.code == kEnded || line.code == kCancelled;
  if (isOver) sounding_.erase(eventText_);
  // A server may tell beginnings and no ends.
  if (isOver || events_ == Events::kUnknown) events_ = Events::kCome;
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
    case What::kEndEvents:
      if (!isTaken) events_ = Events::kNone;
      break;
    case What::kRate: return settle(&VoiceSettings::rate);
    case What::kVolume: return settle(&VoiceSettings::volume);
    case What::kType: return settle(&VoiceSettings::type);
    case What::kName: return settle(&VoiceSettings::name);
    case What::kOther: break;
  }
}

// Of a server that answers texts only, other commands stay due.
bool SsipTalk::IsHung(Moment now) const {
  const auto oldest = std::find_if(due_.begin(), due_.end(), [this](const Due& due) {
    return due.what == What::kText || !answersTextsOnly_;
  });
  return oldest != due_.end() && now - oldest->sent > kHungLimit;
}

bool SsipTalk::IsSounding(Moment now) {
  if (sounding_.empty()) return false;
  if (events_ == Events::kUnknown && now - soundingSince_ >= kFirstEventLimit) events_ = Events::kNone;
  return events_ != Events::kNone;
}

}  // namespace pointalk::linux
