// The text that a crash report puts on the clipboard.
#include "reader/report_facts.h"

#include <gtest/gtest.h>

namespace pointalk {
namespace {

TEST(CrashReportText, HasSevenLabelledLines) {
  const Spot spot{.className = u"Button",
                  .lowerClassName = u"button",
                  .texts = {.maccName = u"OK",
                            .maccRole = u"push button",
                            .maccDescription = u"Prints the page",
                            .maccValue = u"pressed",
                            .maccText = u"pressed one"}};
  EXPECT_EQ(CrashReportText(spot),
            u"mOfficialClassName = Button\r\n"
            u"maccName = OK\r\n"
            u"maccValue = pressed\r\n"
            u"maccText = pressed one\r\n"
            u"maccRole = push button\r\n"
            u"maccDescription = Prints the page\r\n"
            u"maccParent = ");
}

TEST(CrashReportText, KeepsTheLinesOfEmptyFields) {
  EXPECT_EQ(CrashReportText(Spot()),
            u"mOfficialClassName = \r\nmaccName = \r\nmaccValue = \r\nmaccText = \r\nmaccRole = \r\n"
            u"maccDescription = \r\nmaccParent = ");
}

}  // namespace
}  // namespace pointalk
