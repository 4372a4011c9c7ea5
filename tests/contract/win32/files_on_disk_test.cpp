// Files on the disk: of a program that is killed while it writes them, and which are not written at all.
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>

#include "tests/contract/win32/child_program.h"
#include "tests/contract/win32/patience.h"
#include "win32/files.h"
#include "win32/program_folder.h"
#include "win32/wide_text.h"

namespace pointalk::contract {
namespace {

constexpr FilePath kFile{Folder::kProgram, u"contract file of a killed writer.txt"};
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

// The same, for a log. Tells of each line once that is written.
TEST(KilledWriter, DISABLED_LogsUntilItIsKilled) {
  win32::WinFiles files;
  for (int line = 1;; ++line) {
    const std::string number = std::to_string(line);
    ASSERT_TRUE(files.WriteLog(kFile, Text(number.begin(), number.end())));
    std::printf("%d\n", line);
    std::fflush(stdout);
  }
}

class FilesOnDisk : public ::testing::Test {
 protected:
  ~FilesOnDisk() override {
    const std::wstring path = win32::ProgramFolderPath() + L'\\' + win32::Wide(kFile.name);
    DeleteFileW(path.c_str());
    DeleteFileW((path + L".new").c_str());
  }

  // This program once more, with one of the tests above, which has begun.
  static std::unique_ptr<ChildProgram> Start(const std::wstring& test) {
    auto writer = std::make_unique<ChildProgram>(
        win32::ProgramFolderPath() + L"\\pointalk_contract.exe",
        L" --gtest_also_run_disabled_tests --gtest_filter=KilledWriter.DISABLED_" + test);
    while (writer->ReadLine().find("RUN") == std::string::npos) {
    }
    return writer;
  }

  win32::WinFiles files_;
};

TEST_F(FilesOnDisk, OfAKilledWriterHoldOneContentOrTheOther) {
  for (DWORD run = 0; run < 8; ++run) {
    {
      const auto writer = Start(L"WritesUntilItIsKilled");
      const ULONGLONG end = GetTickCount64() + kPatience;
      while (!files_.Read(kFile) && GetTickCount64() < end) Sleep(10);
      Sleep(7 * run);
    }
    const auto content = files_.Read(kFile);
    ASSERT_TRUE(content);
    EXPECT_TRUE(content == kOneContent || content == kOtherContent);
  }
}

TEST_F(FilesOnDisk, OfAKilledLoggerHoldEveryLineThatWasWritten) {
  for (int run = 0; run < 8; ++run) {
    int told = 0;
    {
      const auto writer = Start(L"LogsUntilItIsKilled");
      for (int line = 0; line < 5 + 3 * run; ++line) told = std::stoi(writer->ReadLine());
    }
    const auto content = files_.Read(kFile);
    ASSERT_TRUE(content);
    EXPECT_GE(std::stoi(std::string(content->begin(), content->end())), told);
  }
}

// Which file of the disk has the name. One that is written anew is another one.
DWORD FileNumber() {
  const std::wstring path = win32::ProgramFolderPath() + L'\\' + win32::Wide(kFile.name);
  const win32::OwnedHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  BY_HANDLE_FILE_INFORMATION information{};
  GetFileInformationByHandle(file.get(), &information);
  return information.nFileIndexLow;
}

TEST_F(FilesOnDisk, AreNotWrittenWhereALogSaysSoAlready) {
  ASSERT_TRUE(files_.WriteLog(kFile, u"Grid\r\n"));
  const DWORD number = FileNumber();
  EXPECT_TRUE(files_.WriteLog(kFile, u"Grid\r\n"));
  EXPECT_EQ(FileNumber(), number);
  EXPECT_TRUE(files_.WriteLog(kFile, u"^Grid\r\n"));
  EXPECT_NE(FileNumber(), number);
}

}  // namespace
}  // namespace pointalk::contract
