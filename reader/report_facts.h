// The facts of a crash report.
#pragma once

#include "reader/spot.h"

namespace pointalk {

// Seven labelled lines, without a line end after the last one.
Text CrashReportText(const Spot& spot);

}  // namespace pointalk
