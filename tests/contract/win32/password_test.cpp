// Password fields of every kind, and what may be taken for one.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <richedit.h>

#include <array>
#include <future>
#include <span>
#include <string>
#include <tuple>

#include "reader/messages.h"
#include "tests/contract/asking.h"
#include "tests/contract/win32/patience.h"
#include "tests/contract/win32/win_world.h"
#include "win32/com.h"
#include "win32/object_question.h"

namespace pointalk::contract {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* kFieldRect = " rect=110,110,300,140";
constexpr Point kOnField{150, 120};

// What a field is made of, as the target's command `create` takes it.
constexpr const char* kMadeAsPasswordFields[] = {
    "class=Edit kind=password",
    "class=EDIT style=0x24",  // one of several lines, which shows its text
    "class=OddTextBox base=Edit kind=password",
    "class=OddMemo base=Edit style=0x24",
    "class=RichEdit20A ansi=1 kind=password",
    "class=RichEdit20W kind=password",
    "class=RICHEDIT50W kind=password",
    "class=OddRich base=RICHEDIT50W kind=password",
};
constexpr const char* kOpenFields[] = {
    "class=Edit",        "class=OddOpenBox base=Edit",         "class=RichEdit20W",
    "class=RICHEDIT50W", "class=OddOpenRich base=RICHEDIT50W",
};

class PasswordTest : public ::testing::Test {
 protected:
  // Makes a field with something in it that must not be told.
  WindowHandle Make(const std::string& what, const std::string& name = "field") {
    const std::string reply =
        world_.Tell("create " + name + ' ' + what + " parent=frame title=marlin" + kFieldRect);
    return std::stoull(std::string(RawField(reply, "hwnd")));
  }

  std::optional<AccessibleFacts> Ask() {
    world_.MovePointer(kOnField);
    return Answered([&] { return world_.platform.accessibility.ObjectAt(kOnField); });
  }

  void ExpectKept(WindowHandle field) {
    EXPECT_EQ(messages_.Send(field, kWmGetTextLength, 0, 0), std::nullopt);
    EXPECT_EQ(messages_.Send(field, EM_GETTEXTLENGTHEX, 0, 0), std::nullopt);
    EXPECT_EQ(messages_.WindowText(field, 100), std::nullopt);
    EXPECT_EQ(messages_.EditLine(field, 0, 100), std::nullopt);
    const auto facts = Ask();
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->name.value_or(u"").find(u"marlin"), Text::npos);
    EXPECT_EQ(facts->value, std::nullopt);
  }

  void ExpectTold(WindowHandle field) {
    EXPECT_EQ(Answered([&] { return messages_.Send(field, kWmGetTextLength, 0, 0); }), 6);
    EXPECT_EQ(Answered([&] { return messages_.WindowText(field, 100); }), u"marlin");
    const auto facts = Ask();
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->value.value_or(facts->name.value_or(u"")), u"marlin");
  }

  std::string Counts(const std::string& window) { return world_.Tell("counts " + window); }

  // How often the field was sent that message.
  int Count(const std::string& message) {
    const std::string counts = Counts("field");
    const std::string_view count = RawField(counts, message);
    return count.empty() ? 0 : std::stoi(std::string(count));
  }

  WinWorld world_{{{{"frame", u"ContractFrame", u"Frame", {100, 100, 500, 400}}}}};
  ControlMessages& messages_ = world_.platform.messages;
};

TEST_F(PasswordTest, AFieldThatWasMadeForPasswordsKeepsItsText) {
  for (const char* what : kMadeAsPasswordFields) {
    SCOPED_TRACE(what);
    ExpectKept(Make(what));
    world_.Tell("destroy field");
  }
}

TEST_F(PasswordTest, AnOpenFieldTellsItsTextUntilItBecomesAPasswordField) {
  for (const char* what : kOpenFields) {
    SCOPED_TRACE(what);
    const WindowHandle field = Make(what);
    ExpectTold(field);
    world_.Tell("conceal field");
    ExpectKept(field);
    world_.Tell("send field EM_SETPASSWORDCHAR 0 0");
    ExpectTold(field);
    world_.Tell("destroy field");
  }
}

// A style of 0x20 is nothing special there.
TEST_F(PasswordTest, AWindowThatIsNoTextFieldTellsItsTextWhateverItsStyle) {
  for (const char* what :
       {"class=Static style=0x20", "class=OddPlate base=Static style=0x20", "class=OddOwn style=0x20"}) {
    SCOPED_TRACE(what);
    ExpectTold(Make(what));
    world_.Tell("destroy field");
  }
}

TEST_F(PasswordTest, AComboBoxKeepsTheTextOfItsPasswordField) {
  for (const char* what : {"class=ComboBox kind=editable", "class=OddCombo base=ComboBox kind=editable"}) {
    SCOPED_TRACE(what);
    const WindowHandle combo = Make(what);
    world_.Tell("title field marlin");
    EXPECT_EQ(Answered([&] { return messages_.WindowText(combo, 100); }), u"marlin");
    world_.Tell("conceal field");
    ExpectKept(combo);
    world_.Tell("destroy field");
  }
}

// No window is found at its place, but the frame's object finds its object.
TEST_F(PasswordTest, ADisabledFieldKeepsItsText) {
  Make("class=OddPier base=Edit style=0x08000020");
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, std::nullopt);
}

TEST_F(PasswordTest, ALabelIsNoPassword) {
  Make("class=Edit kind=password");
  world_.Tell("create label class=Static parent=frame title=Password rect=110,150,300,170");
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Password");
  EXPECT_EQ(facts->value, std::nullopt);
}

TEST_F(PasswordTest, AnObjectOfAPasswordFieldHasANameButNoValue) {
  Make("class=OddTextBox base=Edit kind=password");
  world_.Tell("element field 0 name=Password value=marlin role=42");
  const auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Password");
  EXPECT_EQ(facts->value, std::nullopt);
}

TEST_F(PasswordTest, AnObjectThatKnowsNoStatesTellsItsValueAndOneThatDoesNotTellThemDoesNot) {
  Make("class=OddOwn");
  world_.Tell("element field 0 value=marlin role=42 state=none");
  auto facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->value, u"marlin");
  world_.Tell("element field 0 statetext=guarded");
  facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->value, std::nullopt);
  world_.Tell("element field 0 statetext= fails=state");
  facts = Ask();
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->value, std::nullopt);
}

TEST_F(PasswordTest, AFieldThatDoesNotSayWhatItIsCountsAsAPasswordFieldAndIsAskedNoMore) {
  const WindowHandle field = Make("class=OddTextBox base=Edit");
  world_.Tell("rule field EM_GETPASSWORDCHAR hold");
  world_.Tell("reset");
  EXPECT_EQ(messages_.WindowText(field, 100), std::nullopt);
  EXPECT_EQ(messages_.EditLine(field, 0, 100), std::nullopt);
  world_.Tell("unrule field EM_GETPASSWORDCHAR");
  EXPECT_EQ(Count("EM_GETPASSWORDCHAR"), 1);
  EXPECT_THAT(Counts("field"), Not(HasSubstr("WM_GETTEXT")));
  EXPECT_TRUE(world_.RunUntil([&] { return messages_.WindowText(field, 100) == u"marlin"; }, 100'000));
}

TEST_F(PasswordTest, AFieldThatDoesNotAnswerTheObjectsQuestionIsAskedNoMore) {
  const WindowHandle field = Make("class=OddTextBox base=Edit");
  world_.Tell("element field 0 value=marlin role=42");
  world_.Tell("rule field EM_GETPASSWORDCHAR hold");
  world_.Tell("reset");
  world_.MovePointer(kOnField);
  const auto facts = world_.platform.accessibility.ObjectAt(kOnField);
  EXPECT_EQ(facts.value_or(AccessibleFacts()).value, std::nullopt);
  EXPECT_FALSE(world_.platform.unresponsiveThreads.AllAnswer());
  EXPECT_EQ(messages_.WindowText(field, 100), std::nullopt);
  world_.Tell("unrule field EM_GETPASSWORDCHAR");
  EXPECT_LE(Count("EM_GETPASSWORDCHAR"), 1);
  EXPECT_TRUE(world_.RunUntil([&] { return messages_.WindowText(field, 100) == u"marlin"; }, 100'000));
}

// The object may take long to answer, and a window open over the field meanwhile.
TEST_F(PasswordTest, AFieldThatIsCoveredWhileItsObjectIsAskedKeepsItsText) {
  Make("class=OddTextBox base=Edit kind=password");
  world_.Tell("element field 0 value=marlin role=42");
  world_.Tell("rule field accName hold");
  world_.Tell("reset");
  world_.MovePointer(kOnField);
  auto answer = std::async(std::launch::async, [] {
    const win32::ComThread com(COINIT_MULTITHREADED);
    win32::AutomationQuestion automation;
    return win32::AskObjectAt(kOnField, automation, [](const std::optional<AccessibleFacts>&) {});
  });
  EXPECT_TRUE(world_.RunUntil([&] { return Count("accName") == 1; }, kPatience));
  world_.Tell(std::string("create cover class=OddCover topmost=1 thread=cover") + kFieldRect);
  world_.Tell("unrule field accName");
  const auto facts = answer.get().facts;
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->value, std::nullopt);
}

TEST_F(PasswordTest, NobodyIsAskedWhereClassAndStyleTell) {
  for (const char* what : {"class=Button", "class=Static", "class=Edit kind=password"}) {
    SCOPED_TRACE(what);
    const WindowHandle window = Make(what);
    world_.Tell("reset");
    std::ignore = messages_.WindowText(window, 100);
    std::ignore = Ask();
    EXPECT_THAT(Counts("field"), Not(HasSubstr("EM_GET")));
    world_.Tell("destroy field");
  }
}

TEST_F(PasswordTest, APartOfTheTextIsKeptAsWell) {
  for (const bool hidden : {false, true}) {
    const WindowHandle field = Make("class=RICHEDIT50W");
    if (hidden) world_.Tell("conceal field");
    const ProcessId process = world_.platform.windows.ProcessOf(field).value();
    RemoteMemory& memory = world_.platform.memory;
    const RemoteAddress text = memory.Allocate(process, 64);
    const RemoteAddress record = memory.Allocate(process, 64);
    TEXTRANGEW range{{0, 3}, reinterpret_cast<wchar_t*>(static_cast<std::uintptr_t>(text))};
    ASSERT_TRUE(memory.Write(process, record, std::as_bytes(std::span(&range, 1))));
    const auto count = messages_.Send(field, EM_GETTEXTRANGE, 0, record);
    std::array<wchar_t, 4> part{};
    ASSERT_TRUE(memory.Read(process, text, std::as_writable_bytes(std::span(part))));
    EXPECT_EQ(count, hidden ? std::nullopt : std::optional(3));
    EXPECT_EQ(std::wstring(part.data()), hidden ? L"" : L"mar");
    world_.Tell("destroy field");
  }
}

}  // namespace
}  // namespace pointalk::contract
