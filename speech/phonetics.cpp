// The replacement chains. Their order is what makes them work.
#include "speech/phonetics.h"

#include <span>

#include "text/letters.h"
#include "text/numbers.h"
#include "text/text_rules.h"

namespace pointalk {
namespace {

struct Replacement {
  TextView find;
  TextView replacement;
};

constexpr int kMostEqual = 4;  // equal characters in a row that are spoken

// Row 8 repeats row 7 and stays.
constexpr Replacement kWords[] = {
    {u" A ", u" eigh "},   {u" a ", u" eigh "},     {u"^", u" carat "},
    {u" to ", u" too "},   {u" this ", u" thihs "}, {u" no.", u" know. "},
    {u" No.", u" know. "}, {u" No.", u" know. "},   {u" email", u" eemail"},
};

constexpr Replacement kSplitMarks[] = {
    {u"ComboLBox", u"OpenCombobox"},
    {u"bar", u"Bar"},
    {u"iexplore", u"internet explorer"},
    {u"box", u"Box"},
    {u"edit", u"Edit"},
};

// The first row never matches, since the text is in lower case by then; it stays.
constexpr Replacement kClutter[] = {
    {u"Mso", u" M S O "}, {u"thunder", u""}, {u"afx", u" A F X "}, {u"vba", u" V B A-   "},
    {u"vb", u" V B "},    {u"sys", u""},     {u"32", u""},
};

constexpr Replacement kDesktopNames[] = {
    {u"shell_ tray wnd", u"Tasck-Bar"},
    {u"tray notify wnd", u"Siss-Tray"},
    {u"re bar window 3  2", u"Ree-Bar"},
    {u"tool bar window 3  2", u"Tool-Bar"},
};

// Whole tens come before tens with a unit, ":00" before ":0". The second ":0" can no longer match and stays.
constexpr Replacement kClock[] = {
    {u"PM", u" PM"},           {u"AM", u" AM"},           {u":00", u" oclock"},     {u":0", u" oh "},
    {u":20", u" twenty "},     {u":30", u" thirty "},     {u":40", u" fourty "},    {u":50", u" fifty "},
    {u":2", u" twenty- "},     {u":3", u" thirty- "},     {u":4", u" fourty- "},    {u":5", u" fifty- "},
    {u":0", u" oh "},          {u":10", u" ten "},        {u":11", u" eleven "},    {u":12", u" twelve "},
    {u":13", u" thirteen "},   {u":14", u" four teen "},  {u":15", u" fifteen "},   {u":16", u" six teen "},
    {u":17", u" seven teen "}, {u":18", u" eight teen "}, {u":19", u" nine teen "},
};

Text AllReplaced(Text text, std::span<const Replacement> rows) {
  for (const Replacement& row : rows) {
    if (Contains(text, row.find)) text = Replaced(text, row.find, row.replacement);
  }
  return text;
}

// The characters set apart, before dots and words are respelt.
Text SetApart(TextView text, bool spelling) {
  Text result;
  result.reserve(text.size() * 2);
  char16_t previous = 0;
  bool hasPrevious = false;
  bool previousBlank = false;
  int run = 0;
  for (const char16_t character : text) {
    const bool digit = IsDigit(character);
    // A digit is never cut as a repetition, for it is compared with its blanks on.
    run = !digit && hasPrevious && character == previous ? run + 1 : 0;
    const bool capital = IsCapital(character);
    if (run < kMostEqual) {
      if (spelling || (capital && !previousBlank)) result.push_back(u' ');
      if (digit) result.push_back(u' ');
      if (spelling && capital) result.append(u"Capitl ");
      result.push_back(character);
      if (digit) result.push_back(u' ');
    }
    previousBlank = character == u' ';
    previous = character;
    hasPrevious = true;
  }
  return result;
}

}  // namespace

Text Pronounced(TextView text, bool spelling) {
  if (text.empty()) return {};
  return SubstituteWords(Replaced(SetApart(text, spelling), u".", u" dot "));
}

Text SubstituteWords(TextView text) {
  const TextView trimmed = Trimmed(text);
  if (ToLower(trimmed) == u"the") return u"dthoghh";
  return AllReplaced(Text(trimmed), kWords);
}

Text WithSplitMarks(TextView className) { return AllReplaced(Text(className), kSplitMarks); }

Text WithoutClutter(TextView pronounced) { return AllReplaced(ToLower(pronounced), kClutter); }

Text WithDesktopNames(TextView words) { return AllReplaced(Text(words), kDesktopNames); }

Text SpokenClock(TextView text) {
  const Text packed = ToUpper(Replaced(Replaced(text, u", client area", u""), u" ", u""));
  return u"System Clock, " + AllReplaced(packed, kClock);
}

}  // namespace pointalk
