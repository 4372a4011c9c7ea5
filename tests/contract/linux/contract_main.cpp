// Runs the contract suite on this desktop, without the tests of what cannot be the same here. Each of those
// is named with its reason below, and a name that no test has is an error.
//
//   pointalk_contract [--differences]     with that word those tests alone: each of them has to fail
#include <gtest/gtest.h>
#include <unistd.h>

#include <QtWidgets/QApplication>
#include <algorithm>
#include <iostream>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "linux/x_display.h"

namespace {

struct Difference {
  const char* tests;  // as a filter has them
  const char* reason;
};

constexpr unsigned kTestLimit = 120;  // seconds, which only end a wait for ever

constexpr char kNoRegistry[] = "there is no registry: its one value that means something starts the program";
constexpr char kNoMenus[] = "a menu is an accessible object like others, and no window tells of one";
constexpr char kNoClasses[] = "a class name is made of an object's role";
constexpr char kOneLine[] = "of a text the line under the pointer is known, once it was pointed at";
constexpr char kObjects[] = "a list's items are objects, and it is not asked for them by their numbers";
constexpr char kNoMemory[] = "no control asks for memory in its process";

constexpr Difference kDifferences[] = {
    {"RegistryContract.*", kNoRegistry},
    {"RegistryLayerContract.*", kNoRegistry},
    {"MenusContract.AWindowMayHaveAMenu", kNoMenus},
    {"MenusContract.AnItemMayOpenASubMenu", kNoMenus},
    {"MenusContract.TheItemUnderAPointIsFound", kNoMenus},
    {"MenusContract.AnItemsTextIsWrittenOverTheBuffersBeginning", kNoMenus},
    {"MenusContract.AnItemsTextIsCutToItsRoom", kNoMenus},
    {"AccessibilityContract.AnObjectTellsWhatItHas", "an item of a list has no value"},
    {"ControlMessagesContract.AWindowGivesItsTextAsTheCodePageHasIt", "titles come in full Unicode"},
    {"ControlMessagesContract.ATextIsCutToItsRoom", "titles come in full Unicode"},
    {"ControlMessagesContract.AnEditGivesItsTextAndItsLines", kOneLine},
    {"ControlMessagesContract.AnEditFindsTheCharacterUnderAPoint", kOneLine},
    {"ControlMessagesContract.APasswordFieldTellsWhereItsCharactersStand", kOneLine},
    {"ControlMessagesContract.AListBoxFindsAndGivesItsItems", kObjects},
    {"ControlMessagesContract.AnItemsTextHasTheLengthAskedFor", kObjects},
    {"RemoteMemoryContract.AFreshBlockHoldsZerosAndThenWhatWasWritten", kNoMemory},
    {"RemoteMemoryContract.BlocksAreApart", kNoMemory},
    {"RemoteMemoryContract.AListViewFindsTheItemUnderAPoint", kNoMemory},
    {"RemoteMemoryContract.AListViewWritesItsLabels", kNoMemory},
    {"SoundContract.ThePortTakesMessagesWhileItIsOpen", "a message that is none goes no further"},
    {"SoundContract.ASoundIsPlayedByItsName", "the system has no sounds with names"},
    {"SoundContract.ASapi5Voice*", "speech-dispatcher has other voices, and SSIP other words"},
    {"SoundContract.ASapi4Control*", "there is one generation of voices"},
    {"SystemContract.TheProgramsFolderHasNoBackslashAtItsEnd", "a path begins with a slash"},
    {"WindowTreeContract.AClassNameIsCutToItsLimit", kNoClasses},
    {"WindowTreeContract.ATopLevelWindowIsFoundByClassAndTitle", kNoClasses},
    {"WindowTreeContract.ParentsAndChildrenFindEachOther", "an object is not asked for its children"},
    {"WindowTreeContract.AHungWindowIsFoundAllTheSame", "of a stopped program its windows alone are known"},
};

bool Matches(std::string_view name, std::string_view tests) {
  if (!tests.ends_with('*')) return name == tests;
  return name.starts_with(tests.substr(0, tests.size() - 1));
}

std::vector<std::string> AllTests() {
  std::vector<std::string> names;
  const ::testing::UnitTest& all = *::testing::UnitTest::GetInstance();
  for (int i = 0; i < all.total_test_suite_count(); ++i) {
    const ::testing::TestSuite& suite = *all.GetTestSuite(i);
    for (int j = 0; j < suite.total_test_count(); ++j)
      names.push_back(std::string(suite.name()) + '.' + suite.GetTestInfo(j)->name());
  }
  return names;
}

bool AllAreTests() {
  const auto names = AllTests();
  bool allAre = true;
  for (const Difference& difference : kDifferences) {
    const bool is = std::any_of(names.begin(), names.end(),
                                [&](const std::string& name) { return Matches(name, difference.tests); });
    if (!is) std::cerr << "no test is called " << difference.tests << '\n';
    allAre = allAre && is;
  }
  return allAre;
}

// Ends the whole run where a test does not come to its end: its name is the last one printed.
class Limit final : public ::testing::EmptyTestEventListener {
  void OnTestStart(const ::testing::TestInfo& /*test*/) override { alarm(kTestLimit); }
  void OnTestEnd(const ::testing::TestInfo& /*test*/) override { alarm(0); }
};

std::string FilterOfDifferences() {
  std::string filter;
  for (const Difference& difference : kDifferences) filter += std::string(difference.tests) + ':';
  return filter;
}

// Those that pass although they are said to differ.
int CountOfEqual() {
  int equal = 0;
  const ::testing::UnitTest& all = *::testing::UnitTest::GetInstance();
  for (int i = 0; i < all.total_test_suite_count(); ++i) {
    const ::testing::TestSuite& suite = *all.GetTestSuite(i);
    for (int j = 0; j < suite.total_test_count(); ++j) {
      const ::testing::TestInfo& test = *suite.GetTestInfo(j);
      if (!test.should_run() || test.result()->Failed()) continue;
      std::cout << "is no difference: " << suite.name() << '.' << test.name() << '\n';
      ++equal;
    }
  }
  return equal;
}

}  // namespace

int main(int count, char** arguments) {
  ::testing::InitGoogleTest(&count, arguments);
  const bool differences = count > 1 && std::string_view(arguments[1]) == "--differences";
  QApplication application(count, arguments);
  QApplication::setQuitOnLastWindowClosed(false);
  pointalk::linux::TakeXErrorsAsAnswers();
  if (!AllAreTests()) return EXIT_FAILURE;
  ::testing::UnitTest::GetInstance()->listeners().Append(new Limit);  // which takes it over
  if (differences) {
    GTEST_FLAG_SET(filter, FilterOfDifferences());
    std::ignore = RUN_ALL_TESTS();
    return CountOfEqual() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  if (GTEST_FLAG_GET(filter) == "*") GTEST_FLAG_SET(filter, "-" + FilterOfDifferences());
  return RUN_ALL_TESTS();
}
