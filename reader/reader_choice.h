// Which reader belongs to which window class.
#pragma once

#include "text/text.h"

namespace pointalk {

enum class Reader {
  kListView,
  kListBox,
  kAccessibleControl,
  kComboBox,
  kTreeView,
  kRichEdit,
  kEditControl,
  kButton,
  kStaticControl,
};

// By parts of the class name, which is given in lower case.
Reader ReaderFor(TextView lowerClassName);

}  // namespace pointalk
