// Every row of the decision table, and the classes of real programs.
#include "reader/reader_choice.h"

#include <gtest/gtest.h>

#include "text/letters.h"

namespace pointalk {
namespace {

struct Choice {
  TextView className;
  Reader reader;
};

TEST(ReaderFor, FollowsTheRowsFromTheTop) {
  constexpr Choice kRows[] = {
      {u"listview", Reader::kListView},
      {u"viewlist", Reader::kListView},
      {u"list view box", Reader::kListView},
      {u"listbox", Reader::kListBox},
      {u"boxlist", Reader::kListBox},
      {u"list", Reader::kAccessibleControl},
      {u"listcombo", Reader::kAccessibleControl},
      {u"combo", Reader::kComboBox},
      {u"comboedit", Reader::kComboBox},
      {u"treeview", Reader::kTreeView},
      {u"treeviewedit", Reader::kTreeView},
      {u"tree view", Reader::kAccessibleControl},
      {u"richedit", Reader::kRichEdit},
      {u"editcontrolrich", Reader::kRichEdit},
      {u"richeditbox", Reader::kRichEdit},
      {u"editbox", Reader::kEditControl},
      {u"boxedit", Reader::kEditControl},
      {u"edit", Reader::kAccessibleControl},
      {u"edittext", Reader::kAccessibleControl},
      {u"editbutton", Reader::kAccessibleControl},
      {u"editcontrol", Reader::kEditControl},
      {u"myeditcontroltext", Reader::kEditControl},
      {u"text", Reader::kEditControl},
      {u"textbox", Reader::kEditControl},
      {u"textbutton", Reader::kEditControl},
      {u"button", Reader::kButton},
      {u"staticbutton", Reader::kButton},
      {u"static", Reader::kStaticControl},
      {u"window", Reader::kAccessibleControl},
      {u"", Reader::kAccessibleControl},
  };
  for (const Choice& row : kRows) {
    EXPECT_EQ(ReaderFor(row.className), row.reader) << ::testing::PrintToString(row.className);
  }
}

TEST(ReaderFor, KnowsTheClassesOfPrograms) {
  constexpr Choice kRows[] = {
      {u"ListBox", Reader::kListBox},
      {u"SysListView32", Reader::kListView},
      {u"ComboBox", Reader::kComboBox},
      {u"ComboLBox", Reader::kComboBox},
      {u"SysTreeView32", Reader::kTreeView},
      {u"RichEdit20A", Reader::kRichEdit},
      {u"Edit", Reader::kAccessibleControl},
      {u"ThunderRT6TextBox", Reader::kEditControl},
      {u"ScintillaEditControl", Reader::kEditControl},
      {u"Button", Reader::kButton},
      {u"Static", Reader::kStaticControl},
      {u"Shell_TrayWnd", Reader::kAccessibleControl},
      {u"#32770", Reader::kAccessibleControl},
  };
  for (const Choice& row : kRows) {
    EXPECT_EQ(ReaderFor(ToLower(row.className)), row.reader) << ::testing::PrintToString(row.className);
  }
}

}  // namespace
}  // namespace pointalk
