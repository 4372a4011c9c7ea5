// Notices that the last run did not end in order, keeps a log of what is being handled, and learns which
// window classes bring the program down.
#pragma once

#include "crash/class_lists.h"
#include "platform/files.h"
#include "platform/system.h"
#include "speech/spoken_dialogs.h"
#include "text/text.h"

namespace pointalk {

// Where users send the list of learnt classes and their crash reports.
inline constexpr TextView kSupportAddress = u"support@pointalk.example";

class CrashLearning {
 public:
  CrashLearning(Files& files, System& system, SpokenDialogs& spokenDialogs)
      : files_(files), system_(system), spokenDialogs_(spokenDialogs) {}

  // Looks at how the last run ended, asks or learns accordingly, marks the new run, and loads the lists.
  void CheckLastRun();

  // Marks an orderly end.
  void MarkStopped();

  // The class log. Both are ignored unless this is a logging run; the line outlives the program, though not a
  // power cut, once they return.
  void LogClass(TextView className);
  void LogQueryOf(TextView className);

  bool IsBadClass(TextView className) const { return lists_.IsBadClass(className); }
  bool IsBadQueryClass(TextView className) const { return lists_.IsBadQueryClass(className); }

 private:
  Files& files_;
  System& system_;
  SpokenDialogs& spokenDialogs_;

  Text mCrashLearningMode;  // "normal", "logging" or "running"
  ClassLists lists_;

  void AskWhetherItCrashed();
  void LearnCrashClass();
  void ThankForLearning();
  void LoadBadClasses();
  void WriteLine(TextView file, TextView line);
  void LogLine(TextView line);
};

}  // namespace pointalk
