// Windows that tell of themselves by UI Automation only. Its client is the companion of wine/automation/.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/contract/win32/patience.h"
#include "tests/contract/win32/win_world.h"
#include "win32/com.h"

namespace pointalk::contract {
namespace {

namespace fs = std::filesystem;

constexpr Point kElementPlace{150, 150};
constexpr const char* kHost = "class=Windows.UI.Input.InputSite.WindowClass";
const std::string kProtected = std::to_string(STATE_SYSTEM_PROTECTED);

class AutomationTest : public ::testing::Test {
 protected:
  AutomationTest() { SetEnvironmentVariableW(L"POINTALK_AUTOMATION", answers_.c_str()); }
  ~AutomationTest() override {
    SetEnvironmentVariableW(L"POINTALK_AUTOMATION", nullptr);
    fs::remove(answers_);
  }

  // What UI Automation says of the place, in the words of wine/automation/answers.h.
  void Answer(const std::string& answer) {
    std::ofstream(answers_, std::ios::binary | std::ios::trunc) << "rect=100,100,300,300 " << answer << '\n';
  }

  // A window there whose accessible object has these properties.
  void Make(const std::string& window, const std::string& object) {
    world_.Tell("create window " + window + " title=Title rect=100,100,300,300");
    world_.Tell("element window 0 rect=100,100,300,300 " + object);
  }

  std::optional<AccessibleFacts> Ask() {
    world_.MovePointer(kElementPlace);
    std::optional<AccessibleFacts> facts;
    EXPECT_TRUE(world_.RunUntil([&] { return (facts = accessibility_.ObjectAt(kElementPlace)).has_value(); },
                                kPatience));
    return facts;
  }

  // How often UI Automation has been asked so far.
  static int Questions() {
    std::ifstream lines{fs::path(_wgetenv(L"POINTALK_HEARD"))};
    int count = 0;
    for (std::string line; std::getline(lines, line);) count += line.find(R"("automation")") != line.npos;
    return count;
  }

  WinWorld world_{{{{"frame", u"ContractFrame", u"Frame", {400, 400, 500, 500}}}}};
  Accessibility& accessibility_ = world_.platform.accessibility;
  const fs::path answers_ = fs::temp_directory_path() / "pointalk-automation.txt";
};

TEST_F(AutomationTest, AWindowWhoseObjectHasNoNameAndNoValueIsAskedFor) {
  Make("class=ContractSilent", "role=10");
  Answer(R"(name=Start description="Opens the menu" value=on role=43)");
  const int before = Questions();
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Start");
  EXPECT_EQ(facts->role, 43);
  EXPECT_EQ(facts->description, u"Opens the menu");
  EXPECT_EQ(facts->value, u"on");
  EXPECT_EQ(Questions(), before + 1);
}

TEST_F(AutomationTest, AWindowWithoutAnObjectIsAskedFor) {
  Make("class=ContractBroken", "name=Never");
  world_.Tell("rule window accHitTest result -1");
  Answer("name=Start role=43");
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Start");
}

TEST_F(AutomationTest, AnObjectWithANameOrAValueIsEnough) {
  Make("class=ContractPlain", "name=Own");
  Answer("name=Start role=43 value=on");
  const int before = Questions();
  EXPECT_EQ(Ask()->name, u"Own");
  world_.Tell("element window 0 name= value=Text");
  EXPECT_EQ(Ask()->value, u"Text");
  EXPECT_EQ(Questions(), before);
}

TEST_F(AutomationTest, AHostOfControlsIsAskedForWhateverItsObjectSays) {
  Make(kHost, R"(name=Host value=v description="A host" role=10)");
  Answer("name=File role=12");
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"File");
  EXPECT_EQ(facts->role, 12);
  EXPECT_EQ(facts->description, u"A host");
  EXPECT_EQ(facts->value, u"v");
}

TEST_F(AutomationTest, WhereItFailsTheObjectsOwnAnswerStays) {
  Make(kHost, "name=Host role=41");
  for (const char* answer : {"fails=all", "name= role=0", "fails=name,role,description,value name=File"}) {
    Answer(answer);
    const auto facts = Ask();
    ASSERT_TRUE(facts) << answer;
    EXPECT_EQ(facts->name, u"Host") << answer;
    EXPECT_EQ(facts->role, 41) << answer;
  }
}

TEST_F(AutomationTest, APasswordIsNotTold) {
  Make(kHost, "role=41");
  for (const std::string& sign : {std::string("password=1"), "state=" + kProtected,
                                  std::string("fails=password"), std::string("fails=state")}) {
    Answer("name=Code value=marlin role=42 " + sign);
    const auto facts = Ask();
    ASSERT_TRUE(facts) << sign;
    EXPECT_EQ(facts->name, u"Code") << sign;
    EXPECT_EQ(facts->value, std::nullopt) << sign;
  }
  Answer("name=Code value=marlin role=42");
  EXPECT_EQ(Ask()->value, u"marlin");
}

TEST_F(AutomationTest, NobodyElseIsAskedForWhatAnObjectKeeps) {
  Make(kHost, "role=42 value=marlin state=" + kProtected);
  Answer("value=marlin role=42");
  const int before = Questions();
  EXPECT_EQ(Ask()->value, std::nullopt);
  EXPECT_EQ(Questions(), before);
}

TEST_F(AutomationTest, AProtectedObjectThatGivesNoValueHasNoneFromAnybodyElse) {
  Make("class=ContractSilent", "role=42 value=marlin fails=value");
  Answer("name=Code value=marlin role=42");
  EXPECT_EQ(Ask()->value, u"marlin");
  world_.Tell("element window 0 state=" + kProtected);
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Code");
  EXPECT_EQ(facts->value, std::nullopt);
}

// The label is told, but not a name that may be the field's own text.
TEST_F(AutomationTest, ThePasswordOfAFieldIsNotTold) {
  world_.Tell("create window class=OddBox base=Edit kind=password title=marlin rect=100,100,300,300");
  world_.Tell("element window 0 role=10");
  const struct {
    const char* answer;
    std::optional<Text> name;
  } kRows[] = {
      {"name=marlin value=marlin role=10", std::nullopt},
      {"name=marlin value=marlin", std::nullopt},
      {"name=Code value=marlin role=42", u"Code"},
  };
  for (const auto& row : kRows) {
    Answer(row.answer);
    const auto facts = Ask();
    ASSERT_TRUE(facts) << row.answer;
    EXPECT_EQ(facts->name, row.name) << row.answer;
    EXPECT_EQ(facts->value, std::nullopt) << row.answer;
  }
}

TEST_F(AutomationTest, ADescriptionHasAnEndHereToo) {
  Make(kHost, "role=41");
  Answer("description=" + std::string(100'000, 'x') + " name=" + std::string(60'000, 'y'));
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->description, Text(2000, u'x'));
  EXPECT_EQ(facts->name, Text(60'000, u'y'));
}

// The question goes on after that, and the program is left alone meanwhile.
TEST_F(AutomationTest, OneThatTakesTooLongLeavesTheObjectsOwnAnswer) {
  Make(kHost, "name=Host role=41");
  const WindowHandle window = world_.platform.windows.WindowAt(kElementPlace);
  std::optional<AccessibleFacts> facts;
  // On a busy machine the object itself may be late.
  const auto saysSomething = [&] {
    Answer("hold=1");
    facts = accessibility_.ObjectAt(kElementPlace);
    if (!facts) Answer("name=File");
    return facts.has_value();
  };
  world_.MovePointer(kElementPlace);
  ASSERT_TRUE(world_.RunUntil(saysSomething, kPatience));
  EXPECT_EQ(facts->name, u"Host");
  EXPECT_TRUE(accessibility_.QueryPending(window));
  const int before = Questions();
  EXPECT_EQ(accessibility_.ObjectAt(kElementPlace), std::nullopt);
  EXPECT_EQ(Questions(), before);
  Answer("name=File");
  facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"File");
}

}  // namespace
}  // namespace pointalk::contract
