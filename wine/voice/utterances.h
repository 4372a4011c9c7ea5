// The queue of one engine: what it has been told to say, said one after the other by a thread of its own.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "wine/heard/linux_helper.h"
#include "wine/voice/spoken_text.h"

namespace pointalk::wine {

// How espeak-ng is to sound.
struct Sound {
  const char* voice;
  int pitch;  // 0 to 99
  int wordsPerMinute;
  int amplitude;  // 0 to 100
};

// Each utterance leaves, in POINTALK_HEARD, a line "sounding" for every part of it that began to sound, with
// its length, and one line at its end: "spoken", "cut", or "silent" when there was no speech to be had. Where
// POINTALK_WAVES names a folder, the waves are kept there under the names that "sounding" gives.
class Utterances {
 public:
  Utterances() = default;
  // Cuts off what is sounding.
  ~Utterances();
  Utterances(const Utterances&) = delete;
  Utterances& operator=(const Utterances&) = delete;

  // Queues a text and returns its number, which no other utterance of the process has. A blank text is over
  // as soon as its turn comes.
  std::int64_t Say(std::u16string text, const Sound& sound);

  // Ends everything queued so far; what sounds falls silent at once.
  void CutAll();

  // Returns when the utterance is over in any way. Each part that sounds has its own length as a limit, and
  // espeak-ng 15 s to make it; an engine that does not answer therefore ends the wait too.
  void WaitUntilOver(std::int64_t number);

  // Whether all that was queued is over; waits for it, but no longer than so many milliseconds.
  bool AllOverWithin(std::chrono::milliseconds limit);

  // How far the utterance has come, in UTF-16 units; no value while it is not sounding.
  std::optional<std::size_t> Position(std::int64_t number);

 private:
  struct Utterance {
    std::int64_t number;
    std::u16string text;
    Sound sound;
  };
  struct Sounding {
    std::int64_t number;
    TextPart part;
    std::int64_t begin;   // clock
    std::int64_t length;  // microseconds
  };

  void Work();
  void SayAll(const Utterance& utterance);
  bool SayPart(const Utterance& utterance, const TextPart& part, int partNumber);
  bool MakeWave(const Utterance& utterance, const TextPart& part, const std::wstring& name);
  void LetSound(const Utterance& utterance, const TextPart& part, const std::wstring& name, int partNumber);
  bool PauseUnlessCut(std::int64_t number);
  bool IsCut(std::int64_t number);
  bool EnsureHelper();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Utterance> queue_;       // the first is the one being said
  std::int64_t lastNumber_ = 0;       // queued last
  std::int64_t cutUpTo_ = 0;          // this one and all before it are to end
  std::int64_t overUpTo_ = 0;         // this one and all before it have ended
  std::optional<Sounding> sounding_;  // the part that is sounding
  bool stop_ = false;
  std::thread worker_;

  // The worker's own.
  std::unique_ptr<LinuxHelper> helper_;
  std::int64_t sounded_ = 0;  // microseconds of the utterance heard so far
  int partsMade_ = 0;         // names the files
};

}  // namespace pointalk::wine
