// Message boxes and input boxes.
#include <gtest/gtest.h>

#include "tests/contract/world.h"

namespace pointalk::contract {
namespace {

class DialogsContract : public ::testing::Test {
 protected:
  std::unique_ptr<World> world_ = MakeWorld({});
  Dialogs& dialogs_ = world_->Seam().dialogs;
};

TEST_F(DialogsContract, ABoxGivesTheNumberOfItsButton) {
  world_->AnswerBox(kAnswerOk);
  EXPECT_EQ(dialogs_.AskByBox(u"One.", u"Pointalk", kBoxOk), kAnswerOk);
  world_->AnswerBox(kAnswerYes);
  EXPECT_EQ(dialogs_.AskByBox(u"Two?\r\nReally?", u"Pointalk", kBoxYesNo), kAnswerYes);
  world_->AnswerBox(kAnswerNo);
  EXPECT_EQ(dialogs_.AskByBox(u"Three?", u"Pointalk", kBoxYesNo), kAnswerNo);
  world_->AnswerBox(kAnswerCancel);
  EXPECT_EQ(dialogs_.AskByBox(u"Four?", u"Pointalk", kBoxYesNoCancel), kAnswerCancel);
}

TEST_F(DialogsContract, AnInputBoxGivesWhatIsTypedOverTheProposal) {
  world_->AnswerInput(u"42");
  EXPECT_EQ(dialogs_.AskByInput(u"Which number?", u"Pointalk", u"100"), u"42");
  world_->AnswerInput(u"six");
  EXPECT_EQ(dialogs_.AskByInput(u"Which number?", u"Pointalk", u""), u"six");
}

TEST_F(DialogsContract, ACancelledInputBoxGivesNothing) {
  world_->AnswerInput(std::nullopt);
  EXPECT_EQ(dialogs_.AskByInput(u"Which number?", u"Pointalk", u"100"), u"");
}

}  // namespace
}  // namespace pointalk::contract
