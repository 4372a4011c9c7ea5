#include "crash/class_lists.h"

#include "text/text_rules.h"

namespace pointalk {

Text ListEntry(TextView entry) { return Text(u",").append(entry).append(u","); }

void ClassLists::Add(TextView entry) { ListOf(entry).append(ListEntry(entry)); }

void ClassLists::AddMissing(TextView entry) {
  if (!Contains(ListOf(entry), ListEntry(entry))) Add(entry);
}

bool ClassLists::Knows(TextView entry) const {
  const auto holds = [](const Text& list, TextView part) {
    const auto at = list.find(part);
    return at != Text::npos && at >= 1;
  };
  return holds(mBadQueryClassList, Replaced(entry, TextView(&kQueryMark, 1), u"")) ||
         holds(mBadClassList, entry);
}

bool ClassLists::IsBadClass(TextView className) const {
  return !className.empty() && !mBadClassList.empty() && Contains(mBadClassList, ListEntry(className));
}

bool ClassLists::IsBadQueryClass(TextView className) const {
  return !className.empty() && !mBadQueryClassList.empty() &&
         Contains(mBadQueryClassList, ListEntry(Text(1, kQueryMark).append(className)));
}

Text& ClassLists::ListOf(TextView entry) {
  return entry.find(kQueryMark) == TextView::npos ? mBadClassList : mBadQueryClassList;
}

}  // namespace pointalk
