#include "linux/speech_engines.h"

#include <cmath>
#include <iterator>

#include "linux/ssip_socket.h"
#include "linux/utf8.h"
#include "text/numbers.h"

namespace pointalk::linux {
namespace {

constexpr std::chrono::seconds kServerLimit{12};

// How long an utterance may take before it is no longer waited for. The slowest rate of espeak-ng is 80 words
// a minute, which is an eighth of a second for a character.
constexpr std::chrono::milliseconds kUtteranceLimit{5000};
constexpr std::chrono::milliseconds kCharacterLimit{125};

struct KindOfVoice {
  TextView description;
  const char* type;
};
constexpr KindOfVoice kKindsOfVoice[] = {
    {u"Default voice", ""},
    {u"Mike", "MALE1"},
    {u"Sam", "MALE2"},
    {u"Mary", "FEMALE1"},
};

std::optional<int> Whole(double number, double least, double most) {
  if (!std::isfinite(number)) return std::nullopt;
  const double whole = Rounded(number);
  if (whole < least || whole > most) return std::nullopt;
  return static_cast<int>(whole);
}

}  // namespace

bool LinuxSapi5Voice::Create() {
  isCreated_ = true;
  if (client_.WaitForServer(kServerLimit)) return true;
  notices_.Show(
      HasSpeechDispatcher()
          ? u"Pointalk has no voice: speech-dispatcher does not answer. Where it has no synthesizer, please "
            u"install one, such as the package speech-dispatcher-espeak-ng. The tones work without it."
          : u"Pointalk has no voice. Please install the package speech-dispatcher, and a synthesizer, such "
            u"as the package speech-dispatcher-espeak-ng. The tones work without it.");
  return true;
}

std::optional<double> LinuxSapi5Voice::Rate() {
  if (!isCreated_) return std::nullopt;
  return client_.Settings().rate / 10.0;
}

bool LinuxSapi5Voice::SetRate(double rate) {
  const auto whole = Whole(rate, -10, 10);
  if (!isCreated_ || !whole) return false;
  client_.Change([&whole](VoiceSettings& settings) { settings.rate = *whole * 10; });
  return true;
}

bool LinuxSapi5Voice::SetVolume(double volume) {
  const auto whole = Whole(volume, 0, 100);
  if (!isCreated_ || !whole) return false;
  client_.Change([&whole](VoiceSettings& settings) { settings.volume = *whole * 2 - 100; });
  return true;
}

std::optional<std::int32_t> LinuxSapi5Voice::VoiceCount() {
  if (!isCreated_) return std::nullopt;
  return static_cast<std::int32_t>(std::size(kKindsOfVoice) + client_.Voices().size());
}

std::optional<Text> LinuxSapi5Voice::VoiceDescription(std::int32_t index) {
  if (!isCreated_ || index < 0) return std::nullopt;
  const auto place = static_cast<std::size_t>(index);
  if (place < std::size(kKindsOfVoice)) return Text(kKindsOfVoice[place].description);
  const auto voices = client_.Voices();
  if (place - std::size(kKindsOfVoice) >= voices.size()) return std::nullopt;
  return FromUtf8(voices[place - std::size(kKindsOfVoice)]);
}

// One of the synthesizer's voices is taken at its word while they are not known.
bool LinuxSapi5Voice::SetVoice(std::int32_t index) {
  if (!isCreated_ || index < 0) return false;
  const auto place = static_cast<std::size_t>(index);
  if (place >= std::size(kKindsOfVoice)) return client_.UseListed(place - std::size(kKindsOfVoice));
  client_.UseType(kKindsOfVoice[place].type);
  return true;
}

bool LinuxSapi5Voice::Speak(TextView text, std::optional<int> flags) {
  if (!isCreated_) return false;
  const int how = flags.value_or(0);
  if ((how & kSpeakPurgeFirst) != 0) client_.Silence();
  const std::string line = SsipText(text);
  if (!line.empty()) client_.Say(line);
  if ((how & kSpeakAsync) != 0 || line.empty()) return true;
  waiting_.WaitUntil([this] { return client_.IsQuiet(); },
                     kUtteranceLimit + kCharacterLimit * static_cast<int>(text.size()));
  return true;
}

}  // namespace pointalk::linux
