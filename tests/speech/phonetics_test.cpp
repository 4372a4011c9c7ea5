// Rewriting for the ear, row by row. The odd spellings are the ones that the engines read right.
#include "speech/phonetics.h"

#include <gtest/gtest.h>

namespace pointalk {
namespace {

struct Rewriting {
  TextView text;
  TextView spoken;
};

// A class name by all three steps, as it is spoken.
Text ClassWords(TextView className, bool spelling = false) {
  return WithDesktopNames(WithoutClutter(Pronounced(WithSplitMarks(className), spelling)));
}

TEST(Pronounced, PartsWordsAtTheirCapitals) {
  constexpr Rewriting kRows[] = {
      {u"TrayClockWClass", u"Tray Clock W Class"},
      {u"AB", u"A B"},
      {u"a B", u"a B"},
      {u"Ok", u"Ok"},
      {u"a\u00C9b", u"a \u00C9b"},
      {u"a\u0414b", u"a \u0414b"},
      {u"a_B", u"a_ B"},
      {u"a\tB", u"a\t B"},
      {u"plain words", u"plain words"},
      {u"  trimmed  ", u"trimmed"},
      {u"", u""},
      {u"   ", u""},
  };
  for (const Rewriting& row : kRows) {
    EXPECT_EQ(Pronounced(row.text, false), row.spoken) << testing::PrintToString(row.text);
  }
}

TEST(Pronounced, SetsDigitsAndDotsApart) {
  constexpr Rewriting kRows[] = {
      {u"2001", u"2  0  0  1"}, {u"1111111", u"1  1  1  1  1  1  1"},
      {u"A1", u"A 1"},          {u"1A", u"1  A"},
      {u"a1b", u"a 1 b"},       {u"a 1", u"a  1"},
      {u"a.b", u"a dot b"},     {u"a. b", u"a dot  b"},
      {u"3.5", u"3  dot  5"},   {u"end.", u"end dot"},
      {u"\u0661", u"\u0661"},
  };
  for (const Rewriting& row : kRows) {
    EXPECT_EQ(Pronounced(row.text, false), row.spoken) << testing::PrintToString(row.text);
  }
}

TEST(Pronounced, SaysAtMostFourEqualCharactersInARow) {
  constexpr Rewriting kRows[] = {
      {u"x=======", u"x===="},           {u"====", u"===="},       {u"=====", u"===="},
      {u"=====-=====", u"====-===="},    {u"a      b", u"a    b"}, {u"AAAAAA", u"A eigh A A"},
      {u".....", u"dot  dot  dot  dot"}, {u"BBBBBB", u"B B B B"},  {u"aaaAAAaaa", u"aaa eigh A Aaaa"},
  };
  for (const Rewriting& row : kRows) {
    EXPECT_EQ(Pronounced(row.text, false), row.spoken) << testing::PrintToString(row.text);
  }
}

TEST(Pronounced, SpellsCharacterByCharacter) {
  constexpr Rewriting kRows[] = {
      {u"Ok", u"Capitl O k"},
      {u"ab", u"a b"},
      {u"a1", u"a  1"},
      {u"12", u"1   2"},
      {u"A B", u"Capitl eigh   Capitl B"},
      {u"a.b", u"a  dot  b"},
      {u"bbbbbb", u"b b b b"},
      {u"aaaaaa", u"a eigh a a"},
      {u"\u00C9\u00DF", u"Capitl \u00C9 \u00DF"},
      {u"", u""},
  };
  for (const Rewriting& row : kRows) {
    EXPECT_EQ(Pronounced(row.text, true), row.spoken) << testing::PrintToString(row.text);
  }
}

TEST(Pronounced, CountsEqualCharactersFromTheFirst) {
  EXPECT_EQ(Pronounced(Text(6, u'b'), false), Text(4, u'b'));
  EXPECT_EQ(Pronounced(Text(6, u'\0'), false), Text(4, u'\0'));
}

TEST(SubstituteWords, SaysTheAloneInItsOwnWay) {
  constexpr Rewriting kRows[] = {
      {u"the", u"dthoghh"},    {u"The", u"dthoghh"}, {u"THE", u"dthoghh"},
      {u"  the ", u"dthoghh"}, {u"them", u"them"},   {u"the end", u"the end"},
  };
  for (const Rewriting& row : kRows) EXPECT_EQ(SubstituteWords(row.text), row.spoken);
}

TEST(SubstituteWords, RespellsWordsWithin) {
  constexpr Rewriting kRows[] = {
      {u"x A y", u"x eigh y"},
      {u"x a y", u"x eigh y"},
      {u"x^y", u"x carat y"},
      {u"go to it", u"go too it"},
      {u"in this way", u"in thihs way"},
      {u"say no. x", u"say know.  x"},
      {u"say No. 5", u"say know.  5"},
      {u"an email", u"an eemail"},
      {u"two emails", u"two eemails"},
      {u"x a a y", u"x eigh a y"},
      {u"^ a ^", u" carat  eigh  carat "},
      {u"x THIS y", u"x THIS y"},
  };
  for (const Rewriting& row : kRows) EXPECT_EQ(SubstituteWords(row.text), row.spoken);
}

TEST(SubstituteWords, LeavesWordsAtTheEndsAlone) {
  for (const TextView text :
       {u"a box", u"vitamin A", u"to go", u"go to", u"this one", u"do this", u"no. 5", u"email"}) {
    EXPECT_EQ(SubstituteWords(text), text);
    EXPECT_EQ(SubstituteWords(Text(u" ").append(text).append(u" ")), text) << "blanks around it are trimmed";
  }
}

TEST(SplitMarks, GiveRunTogetherWordsTheirCapitals) {
  constexpr Rewriting kRows[] = {
      {u"ComboLBox", u"OpenComboBox"}, {u"Toolbar", u"ToolBar"}, {u"iexplore", u"internet explorer"},
      {u"Listbox", u"ListBox"},        {u"myedit", u"myEdit"},   {u"barboxedit", u"BarBoxEdit"},
      {u"combolbox", u"combolBox"},    {u"EDIT", u"EDIT"},       {u"", u""},
  };
  for (const Rewriting& row : kRows) EXPECT_EQ(WithSplitMarks(row.text), row.spoken);
}

TEST(Clutter, IsRemovedInLowerCase) {
  constexpr Rewriting kRows[] = {
      {u"Mso Bar", u"mso bar"},          {u"Thunder Form", u" form"}, {u"Afx Frame", u" A F X  frame"},
      {u"vba Form", u" V B A-    form"}, {u"vb Form", u" V B  form"}, {u"Sys Header", u" header"},
      {u"window32", u"window"},          {u"sysafx32", u" A F X "},   {u"Button", u"button"},
  };
  for (const Rewriting& row : kRows) EXPECT_EQ(WithoutClutter(row.text), row.spoken);
}

TEST(ClassNames, BecomeWords) {
  constexpr Rewriting kRows[] = {
      {u"Shell_TrayWnd", u"Tasck-Bar"},
      {u"TrayNotifyWnd", u"Siss-Tray"},
      {u"ReBarWindow32", u"Ree-Bar"},
      {u"ToolbarWindow32", u"Tool-Bar"},
      {u"TrayClockWClass", kClockClassWords},
      {u"ComboLBox", u"open combo box"},
      {u"ComboBox", u"combo box"},
      {u"Edit", u"edit"},
      {u"RichEdit20A", u"rich edit 2  0  a"},
      {u"SysListView32", u" list view 3  2"},
      {u"ThunderRT6TextBox", u" r t 6  text box"},
      {u"Afx:400", u" A F X : 4  0  0"},
      {u"vbaWindow", u" V B A-    window"},
      {u"MsoCommandBar", u"mso command bar"},
      {u"iexplore", u"internet explorer"},
      {u"IEFrame", u"i e frame"},
      {u"Statusbar", u"status bar"},
      {u"My.Class", u"my dot  class"},
      {u"", u""},
  };
  for (const Rewriting& row : kRows) {
    EXPECT_EQ(ClassWords(row.text), row.spoken) << testing::PrintToString(row.text);
  }
}

TEST(ClassNames, AreSpelledInLowerCase) {
  EXPECT_EQ(ClassWords(u"Edit", true), u"capitl e d i t");
  EXPECT_EQ(ClassWords(u"TrayClockWClass", true),
            u"capitl t r eigh y capitl c l o c k capitl w capitl c l eigh s s");
}

TEST(SpokenClock, SaysEveryMinuteInWords) {
  constexpr TextView kMinutes[] = {
      u" oclock",      u" oh 1",       u" oh 2",       u" oh 3",      u" oh 4",      u" oh 5",
      u" oh 6",        u" oh 7",       u" oh 8",       u" oh 9",      u" ten ",      u" eleven ",
      u" twelve ",     u" thirteen ",  u" four teen ", u" fifteen ",  u" six teen ", u" seven teen ",
      u" eight teen ", u" nine teen ", u" twenty ",    u" twenty- 1", u" twenty- 2", u" twenty- 3",
      u" twenty- 4",   u" twenty- 5",  u" twenty- 6",  u" twenty- 7", u" twenty- 8", u" twenty- 9",
      u" thirty ",     u" thirty- 1",  u" thirty- 2",  u" thirty- 3", u" thirty- 4", u" thirty- 5",
      u" thirty- 6",   u" thirty- 7",  u" thirty- 8",  u" thirty- 9", u" fourty ",   u" fourty- 1",
      u" fourty- 2",   u" fourty- 3",  u" fourty- 4",  u" fourty- 5", u" fourty- 6", u" fourty- 7",
      u" fourty- 8",   u" fourty- 9",  u" fifty ",     u" fifty- 1",  u" fifty- 2",  u" fifty- 3",
      u" fifty- 4",    u" fifty- 5",   u" fifty- 6",   u" fifty- 7",  u" fifty- 8",  u" fifty- 9",
  };
  static_assert(std::size(kMinutes) == 60);
  for (std::size_t minute = 0; minute < std::size(kMinutes); ++minute) {
    const Text shown = {u':', static_cast<char16_t>(u'0' + minute / 10),
                        static_cast<char16_t>(u'0' + minute % 10)};
    const Text words(kMinutes[minute]);
    EXPECT_EQ(SpokenClock(u"7" + shown + u" PM"), u"System Clock, 7" + words + u" PM");
    EXPECT_EQ(SpokenClock(u"11" + shown + u" am"), u"System Clock, 11" + words + u" AM");
    EXPECT_EQ(SpokenClock(u"23" + shown), u"System Clock, 23" + words);
  }
}

TEST(SpokenClock, SaysWhatTheTaskBarShows) {
  constexpr Rewriting kRows[] = {
      {u"10:45 PM, client area", u"System Clock, 10 fourty- 5 PM"},
      {u"3:00 AM", u"System Clock, 3 oclock AM"},
      {u"3:05 PM", u"System Clock, 3 oh 5 PM"},
      {u"12:30 PM", u"System Clock, 12 thirty  PM"},
      {u"9:14 PM", u"System Clock, 9 four teen  PM"},
      {u"10:45:12 PM", u"System Clock, 10 fourty- 5 twelve  PM"},
      {u"10:45:00 PM", u"System Clock, 10 fourty- 5 oclock PM"},
      {u"10:20:30", u"System Clock, 10 twenty  thirty "},
      {u"22:45", u"System Clock, 22 fourty- 5"},
      {u"10.45", u"System Clock, 10.45"},
      {u"9:14, Client area", u"System Clock, 9 four teen ,CLIENTAREA"},
      {u"Program", u"System Clock, PROGR AM"},
      {u" 1 2 : 0 0 ", u"System Clock, 12 oclock"},
      {u"", u"System Clock, "},
  };
  for (const Rewriting& row : kRows) {
    EXPECT_EQ(SpokenClock(row.text), row.spoken) << testing::PrintToString(row.text);
  }
}

}  // namespace
}  // namespace pointalk
