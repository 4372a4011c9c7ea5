// How often each key is asked for, in which order, and what is made of it.
#include "input/keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/sim/simulated.h"
#include "tests/support/forwarding.h"

namespace pointalk {
namespace {

using ::testing::ElementsAre;

class AskedInput final : public testing::ForwardingInput {
 public:
  using ForwardingInput::ForwardingInput;

  bool KeyDown(int virtualKey) override {
    asked.push_back(virtualKey);
    return down.contains(virtualKey);
  }

  std::vector<int> TakeAsked() { return std::exchange(asked, {}); }

  std::set<int> down;
  std::vector<int> asked;
};

class KeysTest : public ::testing::Test {
 protected:
  sim::Simulated simulated;
  AskedInput input{simulated.platform.input};
  Keys keys{input};
};

TEST_F(KeysTest, AreAskedForInAFixedOrder) {
  keys.ReadForTick();
  EXPECT_THAT(input.TakeAsked(), ElementsAre(kKeyControl, kKeyAlt, kKeyShift));
  keys.ReadForDescription();
  EXPECT_THAT(input.TakeAsked(), ElementsAre(kKeyControl, kKeyAlt));
  keys.ReadForUtterance();
  EXPECT_THAT(input.TakeAsked(), ElementsAre(kKeyShift));
  std::ignore = keys.ReadForSpelling();
  EXPECT_THAT(input.TakeAsked(), ElementsAre(kKeyShift, kKeyAlt, kKeyControl));
  std::ignore = keys.ReadLeftButton();
  EXPECT_THAT(input.TakeAsked(), ElementsAre(kKeyLeftButton));
}

TEST_F(KeysTest, ControlIsPressedOnTheTickThatFindsItDownFirst) {
  keys.ReadForTick();
  EXPECT_FALSE(keys.ControlPressed());
  input.down = {kKeyControl};
  keys.ReadForTick();
  EXPECT_TRUE(keys.ControlPressed());
  keys.ReadForTick();
  EXPECT_FALSE(keys.ControlPressed());
  input.down = {};
  keys.ReadForTick();
  EXPECT_FALSE(keys.ControlPressed());
}

TEST_F(KeysTest, ControlFoundDownByADescriptionIsNoPressForTheNextTick) {
  keys.ReadForTick();
  input.down = {kKeyControl};
  keys.ReadForDescription();
  keys.ReadForTick();
  EXPECT_FALSE(keys.ControlPressed());
}

TEST_F(KeysTest, ShiftIsAsTheLastTickOrUtteranceFoundIt) {
  input.down = {kKeyShift};
  keys.ReadForTick();
  EXPECT_TRUE(keys.ShiftDown());
  input.down = {};
  keys.ReadForDescription();
  EXPECT_FALSE(keys.ReadForSpelling());
  EXPECT_TRUE(keys.ShiftDown());
  keys.ReadForUtterance();
  EXPECT_FALSE(keys.ShiftDown());
}

TEST_F(KeysTest, ShiftSpellsUnlessItIsBlocked) {
  input.down = {kKeyShift};
  EXPECT_TRUE(keys.ReadForSpelling());
  {
    const SpellingBlock block(keys);
    EXPECT_FALSE(keys.ReadForSpelling());
  }
  EXPECT_TRUE(keys.ReadForSpelling());
  input.down = {kKeyControl, kKeyAlt};
  EXPECT_FALSE(keys.ReadForSpelling());
}

TEST_F(KeysTest, TheLeftButtonIsAskedAnew) {
  EXPECT_FALSE(keys.ReadLeftButton());
  input.down = {kKeyLeftButton};
  EXPECT_TRUE(keys.ReadLeftButton());
}

}  // namespace
}  // namespace pointalk
