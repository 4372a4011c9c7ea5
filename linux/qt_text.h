// The program's texts as Qt's strings and back: both are UTF-16.
#pragma once

#include <QtCore/QString>

#include "text/text.h"

namespace pointalk::linux {

inline QString ToQt(TextView text) {
  return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

inline Text FromQt(const QString& text) { return text.toStdU16String(); }

}  // namespace pointalk::linux
