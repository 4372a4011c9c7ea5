// The text that a crash report puts on the clipboard.
#include "crash/crash_report.h"

#include <gtest/gtest.h>

namespace pointalk {
namespace {

TEST(CrashReportText, HasSevenLabelledLines) {
  ObjectDescription description;
  description.mOfficialClassName = u"Button";
  description.maccName = u"OK";
  description.maccValue = u"pressed";
  description.maccText = u"pressed one";
  description.maccRole = u"push button";
  description.maccDescription = u"Prints the page";
  description.maccParent = u"Print";
  EXPECT_EQ(CrashReportText(description),
            u"mOfficialClassName = Button\r\n"
            u"maccName = OK\r\n"
            u"maccValue = pressed\r\n"
            u"maccText = pressed one\r\n"
            u"maccRole = push button\r\n"
            u"maccDescription = Prints the page\r\n"
            u"maccParent = Print");
}

TEST(CrashReportText, KeepsTheLinesOfEmptyFields) {
  EXPECT_EQ(CrashReportText(ObjectDescription()),
            u"mOfficialClassName = \r\nmaccName = \r\nmaccValue = \r\nmaccText = \r\nmaccRole = \r\n"
            u"maccDescription = \r\nmaccParent = ");
}

}  // namespace
}  // namespace pointalk
