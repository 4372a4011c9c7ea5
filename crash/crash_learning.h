// Notices that the last run did not end in order, keeps a log of what is being handled, and learns which
// window classes bring the program down.
#pragma once

#include "app/spoken_dialogs.h"
#include "crash/class_lists.h"
#include "platform/files.h"
#include "platform/system.h"
#include "platform/text.h"

namespace pointalk {

// Where users send the list of learnt classes and their crash reports.
inline constexpr TextView kSupportAddress = u"support@pointalk.example";

class CrashLearning {
 public:
  CrashLearning(Files& theFiles, System& theSystem, SpokenDialogs& theDialogs)
      : files(theFiles), system(theSystem), dialogs(theDialogs) {}

  // Looks at how the last run ended, asks or learns accordingly, marks the new run, and loads the lists.
  void CheckLastRun();

  // Marks an orderly end.
  void MarkStopped();

  // The class log. Both do nothing unless this is a logging run; the line is on disk when they return.
  void LogClass(TextView className);
  void LogQueryOf(TextView className);

  bool IsBadClass(TextView className) const { return lists.IsBadClass(className); }
  bool IsBadQueryClass(TextView className) const { return lists.IsBadQueryClass(className); }

 private:
  Files& files;
  System& system;
  SpokenDialogs& dialogs;

  Text mCrashLearningMode;  // "normal", "logging" or "running"
  ClassLists lists;

  void AskWhetherItCrashed();
  void LearnCrashClass();
  void ThankForLearning();
  void LoadBadClasses();
  void WriteLine(TextView file, TextView line);
};

}  // namespace pointalk
