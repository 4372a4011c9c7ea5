// The lists of learnt classes.
#include "crash/class_lists.h"

#include <gtest/gtest.h>

namespace pointalk {
namespace {

TEST(ClassLists, PutEachEntryBetweenCommas) {
  ClassLists lists;
  lists.Add(u"Grid");
  lists.Add(u"^Tree");
  lists.Add(u"Bar");
  lists.Add(u"^Tree");
  EXPECT_EQ(lists.mBadClassList, u",Grid,,Bar,");
  EXPECT_EQ(lists.mBadQueryClassList, u",^Tree,,^Tree,");
}

TEST(ClassLists, KeepASingleCopyOfWhatIsLoaded) {
  ClassLists lists;
  for (const TextView entry : {u"Grid", u"^Grid", u"Grid", u"^Grid", u"Gri"}) lists.AddMissing(entry);
  EXPECT_EQ(lists.mBadClassList, u",Grid,,Gri,");
  EXPECT_EQ(lists.mBadQueryClassList, u",^Grid,");
}

TEST(ClassLists, TakeAnEmptyEntryForAnEntry) {
  ClassLists lists;
  lists.AddMissing(u"");
  EXPECT_EQ(lists.mBadClassList, u",,");
  EXPECT_FALSE(lists.IsBadClass(u""));
  EXPECT_FALSE(lists.IsBadQueryClass(u""));
}

TEST(ClassLists, FindWholeClassesWithTheirCase) {
  ClassLists lists;
  lists.Add(u"Grid");
  lists.Add(u"^Tree");
  EXPECT_TRUE(lists.IsBadClass(u"Grid"));
  EXPECT_FALSE(lists.IsBadClass(u"grid"));
  EXPECT_FALSE(lists.IsBadClass(u"Gri"));
  EXPECT_FALSE(lists.IsBadClass(u"Tree"));
  EXPECT_FALSE(lists.IsBadClass(u"Other"));
  EXPECT_TRUE(lists.IsBadQueryClass(u"Tree"));
  EXPECT_FALSE(lists.IsBadQueryClass(u"tree"));
  EXPECT_FALSE(lists.IsBadQueryClass(u"Grid"));
  EXPECT_FALSE(lists.IsBadQueryClass(u"ree"));
}

TEST(ClassLists, FindNothingWhileEmpty) {
  const ClassLists lists;
  EXPECT_FALSE(lists.IsBadClass(u"Grid"));
  EXPECT_FALSE(lists.IsBadQueryClass(u"Grid"));
  EXPECT_FALSE(lists.Knows(u"Grid"));
  EXPECT_FALSE(lists.Knows(u""));
}

TEST(ClassLists, KnowAnEntryAnywhereButAtTheVeryBeginning) {
  ClassLists lists;
  lists.Add(u"Grid");
  lists.Add(u"^Tree");
  EXPECT_TRUE(lists.Knows(u"Grid"));
  EXPECT_TRUE(lists.Knows(u"ri")) << "a part of an entry counts";
  EXPECT_TRUE(lists.Knows(u"^Tree"));
  EXPECT_TRUE(lists.Knows(u"Tree")) << "the class of a query that never returned";
  EXPECT_FALSE(lists.Knows(u"^Grid")) << "a marked entry is looked for among the queries only";
  EXPECT_FALSE(lists.Knows(u",Grid,")) << "at the very beginning";
  EXPECT_FALSE(lists.Knows(u""));
}

}  // namespace
}  // namespace pointalk
