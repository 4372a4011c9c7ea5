// A program that is killed while it writes its files.
#include <gtest/gtest.h>

#include "tests/contract/win32/child_program.h"
#include "win32/files.h"
#include "win32/program_folder.h"
#include "win32/wide_text.h"

namespace pointalk::contract {
namespace {

constexpr FilePath kFile{Folder::kProgram, u"contract file of a killed writer.txt"};
constexpr ULONGLONG kPatience = 20'000;  // milliseconds
const Text kOneContent(5000, u'1');
const Text kOtherContent(3000, u'2');

// Run as a program of its own by the test below, which ends it.
TEST(KilledWriter, DISABLED_WritesUntilItIsKilled) {
  win32::WinFiles files;
  for (;;) {
    ASSERT_TRUE(files.Write(kFile, kOneContent));
    ASSERT_TRUE(files.Write(kFile, kOtherContent));
  }
}

TEST(KilledWriter, LeavesOneContentOrTheOther) {
  const std::wstring self = win32::ProgramFolderPath() + L"\\pointalk_contract.exe";
  const std::wstring options =
      L" --gtest_also_run_disabled_tests --gtest_filter=KilledWriter.DISABLED_WritesUntilItIsKilled";
  win32::WinFiles files;
  for (DWORD run = 0; run < 8; ++run) {
    {
      ChildProgram writer(self, options);
      while (writer.ReadLine().find("RUN") == std::string::npos) {
      }
      const ULONGLONG end = GetTickCount64() + kPatience;
      while (!files.Read(kFile) && GetTickCount64() < end) Sleep(10);
      Sleep(7 * run);
    }
    const auto content = files.Read(kFile);
    ASSERT_TRUE(content);
    EXPECT_TRUE(content == kOneContent || content == kOtherContent);
  }
  const std::wstring path = win32::ProgramFolderPath() + L'\\' + win32::Wide(kFile.name);
  DeleteFileW(path.c_str());
  DeleteFileW((path + L".new").c_str());
}

}  // namespace
}  // namespace pointalk::contract
