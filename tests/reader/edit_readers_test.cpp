// What a text field is asked, and which of its answers counts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/reader/strange_controls.h"

namespace pointalk {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::uint64_t Packed(std::uint32_t x, std::uint32_t y) { return y << 16U | x; }

class EditReadersTest : public StrangeControls {
 protected:
  // The parameters of all messages of a kind.
  std::vector<std::uint64_t> Asked(std::uint32_t message, std::uint64_t StrangeMessages::Sent::*parameter) {
    std::vector<std::uint64_t> asked;
    for (const auto& sent : messages.sent) {
      if (sent.message == message) asked.push_back(sent.*parameter);
    }
    return asked;
  }
};

TEST_F(EditReadersTest, LinesBeginThreePixelsFromTheEdge) {
  messages.answers[kEmCharFromPos] = 0x10000;
  messages.places[Packed(3, 24)] = 0x20009;  // another line, four pixels below
  edits.ReadEditControl(spot);
  EXPECT_THAT(Asked(kEmCharFromPos, &StrangeMessages::Sent::lParam),
              ElementsAre(Packed(3, 20), Packed(3, 24), Packed(10, 20)));
}

TEST_F(EditReadersTest, TheLineUnderThePointerIsReadThoughItIsNotTheOneAtTheEdge) {
  messages.places[Packed(3, 20)] = 0x20000;
  messages.places[Packed(10, 20)] = 0x50000;
  messages.answers[kEmLineLength] = 5;
  messages.text = u"fifth";
  edits.ReadEditControl(spot);
  EXPECT_THAT(messages.lines, ElementsAre(5));
}

TEST_F(EditReadersTest, AFieldThatDoesNotAnswerIsTakenForItsBeginning) {
  messages.answers[kEmCharFromPos] = std::nullopt;
  messages.answers[kEmLineLength] = std::nullopt;
  spot.texts.maccText = u"Beginning";
  edits.ReadEditControl(spot);
  EXPECT_THAT(Asked(kEmLineLength, &StrangeMessages::Sent::wParam), ElementsAre(0u));
  EXPECT_THAT(Asked(kEmLineLength, &StrangeMessages::Sent::lParam), ElementsAre(0u));
  EXPECT_THAT(messages.lines, IsEmpty());
  EXPECT_EQ(HeardWords(), "Beginning");
}

TEST_F(EditReadersTest, TheNextLineIsLookedForAsFarAs256PixelsBelow) {
  messages.answers[kEmCharFromPos] = 0x10000;
  edits.ReadEditControl(spot);
  const auto places = Asked(kEmCharFromPos, &StrangeMessages::Sent::lParam);
  EXPECT_THAT(places, Contains(Packed(3, 20 + 256)));
  EXPECT_THAT(places, Not(Contains(Packed(3, 20 + 260))));
}

TEST_F(EditReadersTest, ACharacterThatIsNotToldIsTakenForTheFirst) {
  messages.places[Packed(3, 20)] = 0x2000A;  // the line's first
  messages.answers = {{kEmCharFromPos, std::nullopt}, {kEmLineLength, 5}};
  messages.text = u"first";
  edits.ReadEditControl(spot);
  EXPECT_THAT(messages.lines, ElementsAre(0));
}

TEST_F(EditReadersTest, ALineWithoutACharacterIsNotFetched) {
  messages.answers[kEmLineLength] = 0;
  edits.ReadEditControl(spot);
  EXPECT_THAT(messages.lines, IsEmpty());
}

TEST_F(EditReadersTest, ALineWithASingleNulIsNotUsed) {
  messages.answers[kEmLineLength] = 3;
  messages.text = u"ab";
  spot.texts.maccText = u"All of it";
  edits.ReadEditControl(spot);
  EXPECT_EQ(HeardWords(), "All");
}

TEST_F(EditReadersTest, RichEditGivesTheObjectsTextWithWholeLineEnds) {
  spot.texts.maccText = u"one\rtwo";
  EXPECT_EQ(edits.ReadRichEdit(spot), u"one\r\ntwo");
  spot.texts.maccRole = u"scroll bar";
  EXPECT_EQ(edits.ReadRichEdit(spot), u"one\rtwo") << "where no line was read";
}

}  // namespace
}  // namespace pointalk
