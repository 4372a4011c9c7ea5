#include "reader/report_facts.h"

namespace pointalk {
namespace {

constexpr TextView maccParent;  // no object is asked for its parent; the report has a line for it

}  // namespace

Text CrashReportText(const Spot& spot) {
  const struct {
    TextView label;
    TextView field;
  } lines[] = {
      {u"mOfficialClassName = ", spot.className},
      {u"maccName = ", spot.texts.maccName},
      {u"maccValue = ", spot.texts.maccValue},
      {u"maccText = ", spot.texts.maccText},
      {u"maccRole = ", spot.texts.maccRole},
      {u"maccDescription = ", spot.texts.maccDescription},
      {u"maccParent = ", maccParent},
  };
  Text report;
  for (const auto& line : lines) {
    if (!report.empty()) report.append(u"\r\n");
    report.append(line.label).append(line.field);
  }
  return report;
}

}  // namespace pointalk
