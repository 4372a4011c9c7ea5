// What goes onto the clipboard beside the text.
#include <gtest/gtest.h>

#include "tests/contract/win32/win_world.h"

namespace pointalk::contract {
namespace {

TEST(ClipboardTest, TheTextIsToStayOnThisComputer) {
  WinWorld world({});
  ASSERT_TRUE(world.platform.system.SetClipboard(u"a report"));
  ASSERT_TRUE(OpenClipboard(nullptr));
  for (const wchar_t* const name : {L"CanIncludeInClipboardHistory", L"CanUploadToCloudClipboard"}) {
    const HANDLE data = GetClipboardData(RegisterClipboardFormatW(name));
    const auto* const number = static_cast<const DWORD*>(data != nullptr ? GlobalLock(data) : nullptr);
    EXPECT_TRUE(number != nullptr && *number == 0) << name;
    if (number != nullptr) GlobalUnlock(data);
  }
  CloseClipboard();
  EXPECT_EQ(world.Clipboard(), u"a report");
}

}  // namespace
}  // namespace pointalk::contract
