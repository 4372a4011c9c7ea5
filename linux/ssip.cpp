#include "linux/ssip.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "linux/utf8.h"

namespace pointalk::linux {
namespace {

constexpr std::size_t kLongestLine = 64 * 1024;  // bytes

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The language alone, without country and encoding, in small letters.
std::string LanguageAlone(std::string_view language) {
  std::string alone(language.substr(0, language.find_first_of("_-.@")));
  std::transform(alone.begin(), alone.end(), alone.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return alone == "c" || alone == "posix" || alone.empty() ? "en" : alone;
}

}  // namespace

std::string SsipText(TextView text) {
  Text spoken(text);
  for (char16_t& character : spoken) {
    if (character < 32 || character == 127) character = u' ';
  }
  const auto first = spoken.find_first_not_of(u' ');
  if (first == Text::npos) return {};
  const std::string line = ToUtf8(TextView(spoken).substr(first, spoken.find_last_not_of(u' ') + 1 - first));
  return line.front() == '.' ? '.' + line : line;
}

std::string SpeakCommand(std::string_view line) {
  return std::string("SPEAK\r\n").append(line).append("\r\n.\r\n");
}

std::optional<SsipLine> ParseSsipLine(std::string_view line) {
  if (line.size() < 3 || !std::all_of(line.begin(), line.begin() + 3, IsDigit)) return std::nullopt;
  SsipLine parsed;
  for (const char digit : line.substr(0, 3)) parsed.code = parsed.code * 10 + (digit - '0');
  parsed.isLast = line.size() == 3 || line[3] != '-';
  parsed.text = line.substr(std::min<std::size_t>(line.size(), 4));
  return parsed;
}

void SsipLines::Add(std::string_view bytes) {
  bytes_.erase(0, std::exchange(next_, 0));
  bytes_.append(bytes);
  if (bytes_.size() <= kLongestLine || bytes_.find('\n') != std::string::npos) return;
  bytes_.clear();
  isGivenUp_ = true;
}

std::optional<SsipLine> SsipLines::Next() {
  for (;;) {
    const auto end = bytes_.find('\n', next_);
    if (end == std::string::npos) return std::nullopt;
    std::string_view line = std::string_view(bytes_).substr(next_, end - next_);
    next_ = end + 1;
    if (std::exchange(isGivenUp_, false)) continue;
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (auto parsed = ParseSsipLine(line)) return parsed;
  }
}

std::optional<NamedSsipVoice> ParseSsipVoice(std::string_view text) {
  const auto first = text.find('\t');
  if (first == std::string_view::npos) return std::nullopt;
  const auto second = text.find('\t', first + 1);
  const std::string_view variant = second == std::string_view::npos ? "none" : text.substr(second + 1);
  NamedSsipVoice voice{
      std::string(text.substr(0, first)),
      std::string(text.substr(first + 1, second == std::string_view::npos ? second : second - first - 1))};
  if (voice.name.empty() || voice.name.find('+') != std::string::npos ||
      (variant != "none" && !variant.empty()))
    return std::nullopt;
  return voice;
}

bool IsForUser(std::string_view voiceLanguage, std::string_view userLanguage) {
  return !voiceLanguage.empty() && LanguageAlone(voiceLanguage) == LanguageAlone(userLanguage);
}

}  // namespace pointalk::linux
