// Seam: message boxes and input boxes. Both are modal: events of the form are handled while they are open.
#pragma once

#include "text/text.h"

namespace pointalk {

// Styles of a message box.
inline constexpr int kBoxOk = 0;
inline constexpr int kBoxYesNoCancel = 3;
inline constexpr int kBoxYesNo = 4;

// Answers of a message box.
inline constexpr int kAnswerOk = 1;
inline constexpr int kAnswerCancel = 2;
inline constexpr int kAnswerYes = 6;
inline constexpr int kAnswerNo = 7;

class Dialogs {
 public:
  virtual ~Dialogs() = default;

  // The platform's number of the answer; 0 when the box could not be shown.
  virtual int AskByBox(TextView text, TextView title, int style) = 0;

  // The text typed; empty when the box was cancelled or could not be shown.
  virtual Text AskByInput(TextView prompt, TextView title, TextView proposed) = 0;
};

}  // namespace pointalk
