#include "reader/reader_choice.h"

#include "text/text_rules.h"

namespace pointalk {
namespace {

struct Row {
  TextView has;
  TextView hasToo;  // may be empty
  TextView lacks;   // may be empty
  Reader reader;
};

// The first row that matches decides.
constexpr Row kRows[] = {
    {u"list", u"view", u"", Reader::kListView},
    {u"list", u"box", u"", Reader::kListBox},
    {u"list", u"", u"", Reader::kAccessibleControl},
    {u"combo", u"", u"", Reader::kComboBox},
    {u"treeview", u"", u"", Reader::kTreeView},
    {u"edit", u"rich", u"", Reader::kRichEdit},
    {u"edit", u"box", u"", Reader::kEditControl},
    {u"edit", u"", u"editcontrol", Reader::kAccessibleControl},
    {u"editcontrol", u"", u"", Reader::kEditControl},
    {u"text", u"", u"", Reader::kEditControl},
    {u"button", u"", u"", Reader::kButton},
    {u"static", u"", u"", Reader::kStaticControl},
};

bool Matches(const Row& row, TextView name) {
  return Contains(name, row.has) && Contains(name, row.hasToo) &&
         (row.lacks.empty() || !Contains(name, row.lacks));
}

}  // namespace

Reader ReaderFor(TextView lowerClassName) {
  for (const Row& row : kRows) {
    if (Matches(row, lowerClassName)) return row.reader;
  }
  return Reader::kAccessibleControl;
}

}  // namespace pointalk
