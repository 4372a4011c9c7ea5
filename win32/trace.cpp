#include "win32/trace.h"

#include <shellapi.h>

#include <cstdio>
#include <exception>

#include "win32/counter.h"
#include "win32/handles.h"
#include "win32/wide_text.h"

namespace pointalk::win32 {
namespace {

constexpr wchar_t kTrace[] = L"--trace";
constexpr wchar_t kTexts[] = L"--trace-texts";
constexpr std::size_t kLongestShown = 200;       // characters
constexpr std::size_t kLongestEventLine = 4000;  // characters; an event may go on for hours

std::int64_t MillisecondsSince(std::int64_t begin) {
  return (CounterNow() - begin) * 1000 / CounterFrequency();
}

std::string Utf8(std::wstring text) {
  for (wchar_t& character : text)
    if (character < L' ') character = L' ';
  std::string bytes(3 * text.size(), '\0');
  const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
  bytes.resize(static_cast<std::size_t>(length));
  return bytes;
}

}  // namespace

std::optional<TraceOptions> TraceOptionsOf(const wchar_t* commandLine) {
  int count = 0;
  LPWSTR* const word = CommandLineToArgvW(commandLine, &count);
  const Owned<HLOCAL, LocalFree> owned(word);
  if (word == nullptr) return std::nullopt;
  TraceOptions options;
  for (int i = 1; i < count; ++i) {
    if (std::wstring_view(word[i]) == kTexts) options.texts = true;
    if (std::wstring_view(word[i]) == kTrace && i + 1 < count) options.file = word[++i];
  }
  if (options.file.empty()) return std::nullopt;
  return options;
}

Trace::Trace(const TraceOptions& options)
    : file_(options.file), texts_(options.texts), begin_(CounterNow()) {}

// Seconds since the trace began.
std::string Trace::Stamp() const {
  const std::int64_t passed = MillisecondsSince(begin_);
  char stamp[32];
  std::snprintf(stamp, sizeof stamp, "%lld.%03d ", static_cast<long long>(passed / 1000),
                static_cast<int>(passed % 1000));
  return stamp;
}

void Trace::State(std::string_view what) { file_.Add(Stamp().append(what)); }

void Trace::Step(std::string_view what) {
  if (event_ == nullptr) return State(what);
  if (event_->line_.size() > kLongestEventLine) return;
  event_->line_.append(" ").append(what).append(" ");
  event_->line_.append(std::to_string(MillisecondsSince(event_->begin_))).append(" ms,");
  file_.SetUnderWay(event_->line_);
}

void Trace::Moved(std::uint32_t millisecondsAgo) {
  if (event_ != nullptr) event_->begin_ = CounterNow() - CounterFrequency() * millisecondsAgo / 1000;
  Step("noticed");
}

void Trace::Finish() {
  for (const Event* event = event_; event != nullptr; event = event->outer_)
    if (!event->IsEmpty()) file_.Add(event->line_ + " at work until the end");
  file_.SetUnderWay({});
  file_.Finish();
}

std::string Trace::Shown(TextView text) const {
  std::string shown = std::to_string(text.size()) + " characters";
  if (texts_) shown += " \"" + Utf8(Wide(text.substr(0, kLongestShown))) + '"';
  return shown;
}

Trace::Event::Event(Trace* trace, std::string_view name)
    : trace_(trace), outer_(trace != nullptr ? trace->event_ : nullptr), begin_(0) {
  if (trace_ == nullptr) return;
  line_ = trace_->Stamp().append(name).append(":");
  emptyLength_ = line_.size();
  begin_ = CounterNow();
  trace_->event_ = this;
}

Trace::Event::~Event() {
  if (trace_ == nullptr) return;
  trace_->event_ = outer_;
  try {
    if (!IsEmpty()) {
      trace_->file_.Add(line_ + " done " + std::to_string(MillisecondsSince(begin_)) + " ms");
      trace_->file_.SetUnderWay(outer_ != nullptr ? outer_->line_ : std::string_view());
    }
  } catch (const std::exception&) {  // the line is lost
  }
}

}  // namespace pointalk::win32
