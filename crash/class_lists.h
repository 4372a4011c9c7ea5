// The learnt classes, as rules on texts: each entry stands between two commas, one behind the other.
#pragma once

#include "text/text.h"

namespace pointalk {

// An entry as the lists hold it.
Text ListEntry(TextView entry);

// An entry of a class whose accessibility query never returned bears this mark in front.
inline constexpr char16_t kQueryMark = u'^';

struct ClassLists {
  Text mBadClassList;       // classes after which the program crashed
  Text mBadQueryClassList;  // marked classes, whose query never returned

  // Adds an entry to the list that it belongs to.
  void Add(TextView entry);

  // Adds it unless that list holds it.
  void AddMissing(TextView entry);

  // True when the list of bad classes holds the entry, or the query list holds it without its mark, at any
  // place but the very beginning of the list.
  bool Knows(TextView entry) const;

  // Both are false for an empty class name.
  bool IsBadClass(TextView className) const;
  bool IsBadQueryClass(TextView className) const;

 private:
  Text& ListOf(TextView entry);
};

}  // namespace pointalk
