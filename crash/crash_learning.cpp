#include "crash/crash_learning.h"

#include <optional>
#include <tuple>

#include "text/text_rules.h"

namespace pointalk {
namespace {

constexpr TextView kStatusFile = u"status.txt";
constexpr TextView kClassLog = u"ClassName.txt";
constexpr TextView kBadClassFile = u"BadClasses.txt";

constexpr TextView kRunning = u"running";
constexpr TextView kStopped = u"stopped";
constexpr TextView kLogging = u"logging";
constexpr TextView kNormal = u"normal";

TextView FirstLine(TextView content) {
  const auto end = content.find(u"\r\n");
  return content.substr(0, end);
}

}  // namespace

void CrashLearning::CheckLastRun() {
  const std::optional<Text> status = files_.Read({Folder::kProgram, kStatusFile});
  if (!status) {
    WriteLine(kStatusFile, kRunning);
    mCrashLearningMode = kNormal;
  } else if (const TextView line = FirstLine(*status); line == kStopped) {
    mCrashLearningMode = kNormal;
    WriteLine(kStatusFile, kRunning);
  } else if (line == kRunning) {
    mCrashLearningMode = kLogging;
    AskWhetherItCrashed();
  } else {
    LearnCrashClass();
    ThankForLearning();
    mCrashLearningMode = kRunning;
    WriteLine(kStatusFile, kRunning);
  }
  LoadBadClasses();
}

void CrashLearning::MarkStopped() { WriteLine(kStatusFile, kStopped); }

void CrashLearning::LogClass(TextView className) {
  if (mCrashLearningMode == kLogging) LogLine(className);
}

void CrashLearning::LogQueryOf(TextView className) {
  if (mCrashLearningMode == kLogging) LogLine(Text(1, kQueryMark).append(className));
}

// The class log is kept in this run whatever the answer is.
void CrashLearning::AskWhetherItCrashed() {
  const int answer = spokenDialogs_.AskSpoken(
      u"You did not exit from Pointalk last time, before quitting Windows.\r\nIs that because Pointalk "
      u"crashed?  Just say no, if you forgot to quit from Pointalk first.",
      kBoxYesNo);
  if (answer == kAnswerYes) {
    spokenDialogs_.TellSpoken(
        u"I can see that Pointalk had crashed. I am entering a special mode where I will be taking careful "
        u"notes. Please try to reproduce the same conditions and make it crash just like last time.");
    WriteLine(kStatusFile, kLogging);
  } else {
    spokenDialogs_.TellSpoken(
        u"No Problem.  I'll continue without saving non existant crash data.\r\nNext time let us quit from "
        u"Pointalk before quitting Windows.");
    WriteLine(kStatusFile, kRunning);
  }
}

// The lists are still empty here, so that a class that brings the program down once more is written once
// more.
void CrashLearning::LearnCrashClass() {
  const Text log = files_.Read({Folder::kProgram, kClassLog}).value_or(Text());
  const Text entry(Trimmed(FirstLine(log)));
  if (lists_.Knows(entry)) return;
  // Where it cannot be written, it is known for this run at least.
  std::ignore = files_.Append({Folder::kProgram, kBadClassFile}, entry + u"\r\n");
  lists_.Add(entry);
}

void CrashLearning::ThankForLearning() {
  spokenDialogs_.TellSpoken(
      u"I have hopefully taught Pointalk to avoid the crash. Once there are no more crashes to be found, you "
      u"could help me to make Pointalk better. Please send as an email attachment,  the file called " +
      system_.ProgramFolder() + u"\\" + Text(kBadClassFile) + u". Please send it to " +
      Text(kSupportAddress));
}

void CrashLearning::LoadBadClasses() {
  const Text content = files_.Read({Folder::kProgram, kBadClassFile}).value_or(Text());
  for (const TextView line : Lines(content)) lists_.AddMissing(Trimmed(line));
}

// Where the folder cannot be written, everything else goes on.
void CrashLearning::WriteLine(TextView file, TextView line) {
  std::ignore = files_.Write({Folder::kProgram, file}, Text(line).append(u"\r\n"));
}

void CrashLearning::LogLine(TextView line) {
  std::ignore = files_.WriteLog({Folder::kProgram, kClassLog}, Text(line).append(u"\r\n"));
}

}  // namespace pointalk
